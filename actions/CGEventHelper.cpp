#include "actions/CGEventHelper.h"

#include "platform/NSAppleScript.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

void CGEventHelper::switchDesktop(Direction direction) {
    const int arrowKey = direction == Direction::left ? 123 : 124;
    runAppleScript(keyWithControlSource.arg(arrowKey));
}

void CGEventHelper::runAppleScript(const QString& source) {
    const auto script = NSAppleScript::initWithSource(source);
    if (!script) {
        printLine(u"CGEventHelper: Failed to create AppleScript"_s);
        return;
    }
    NSAppleScriptError error;
    script->executeAndReturnError(error);
    if (!error.isEmpty())
        printLine(u"CGEventHelper: AppleScript error — "_s + error.description());
}

} // namespace brimlow
