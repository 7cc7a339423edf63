#include "platform/NSAppleScript.h"

#include "platform/Platform.h"
#include "platform/Session.h"

#include <QRegularExpression>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int leftArrow = 123;
constexpr int rightArrow = 124;
constexpr int eventNotHandled = -10000; // the number of an Apple event that its receiver refused

const QString messageKey = u"NSAppleScriptErrorMessage"_s;

QString quoted(const QString& text) {
    static const QRegularExpression plain(u"^[A-Za-z0-9_$/:.]+$"_s);
    if (plain.match(text).hasMatch())
        return text;
    QString result(u'"');
    for (const QChar character : text) {
        if (character == u'"' || character == u'\\')
            result += u'\\' + QString(character);
        else if (character == u'\n')
            result += u"\\n"_s;
        else if (character.unicode() < 0x80)
            result += character;
        else
            result += u"\\U%1"_s.arg(character.unicode(), 4, 16, QChar(u'0'));
    }
    return result + u'"';
}

} // namespace

NSAppleScriptError::NSAppleScriptError(int number, const QString& message)
    : entries_{{u"NSAppleScriptErrorAppName"_s, u"System Events"_s},
               {u"NSAppleScriptErrorBriefMessage"_s, message},
               {messageKey, message},
               {u"NSAppleScriptErrorNumber"_s, QString::number(number)}} {}

std::optional<QString> NSAppleScriptError::message() const {
    const auto found = entries_.find(messageKey);
    return found == entries_.end() ? std::nullopt : std::optional(*found);
}

QString NSAppleScriptError::description() const {
    QString text(u"{\n"_s);
    for (auto entry = entries_.begin(); entry != entries_.end(); ++entry)
        text += u"    "_s + entry.key() + u" = "_s + quoted(entry.value()) + u";\n"_s;
    return text + u'}';
}

std::unique_ptr<NSAppleScript> NSAppleScript::initWithSource(const QString& source) {
    static const QRegularExpression keyWithControl(
        uR"(\Atell application "System Events" to key code (\d{1,3}) using control down\z)"_s);
    const auto match = keyWithControl.match(source);
    if (!match.hasMatch())
        return nullptr;
    return std::unique_ptr<NSAppleScript>(new NSAppleScript(match.captured(1).toInt()));
}

std::optional<QString> NSAppleScript::executeAndReturnError(NSAppleScriptError& error) const {
    auto& workspaces = Platform::current().session.workspaces();
    Outcome outcome = Outcome::failure(u"the key has no meaning in this session"_s);
    if (keyCode_ == leftArrow)
        outcome = workspaces.step(Direction::left);
    else if (keyCode_ == rightArrow)
        outcome = workspaces.step(Direction::right);
    if (outcome)
        return QString();
    error = NSAppleScriptError(eventNotHandled,
                               u"System Events got an error: "_s + outcome.reason + u'.');
    return std::nullopt;
}

} // namespace brimlow::platform
