#include "platform/NSAppleScript.h"

#include "platform/SystemEvents.h"

#include <QRegularExpression>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

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
    auto script = compileForSystemEvents(source);
    return script ? std::unique_ptr<NSAppleScript>(new NSAppleScript(std::move(*script))) : nullptr;
}

std::optional<QString> NSAppleScript::executeAndReturnError(NSAppleScriptError& error) const {
    const auto answer = runInSystemEvents(script_);
    if (answer.errorNumber == 0)
        return answer.text;
    error = NSAppleScriptError(answer.errorNumber,
                               u"System Events got an error: "_s + answer.error + u'.');
    return std::nullopt;
}

} // namespace brimlow::platform
