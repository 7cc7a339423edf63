#include "platform/SystemEventsScripts.h"

#include <QRegularExpression>
#include <QStringList>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

const QString keyWithControlSource =
    u"tell application \"System Events\" to key code %1 using control down"_s;

const QString focusWindowSource = uR"(tell application "System Events"
    tell process "%1"
        set winList to windows
        set targetTitle to "%2"
        -- Pass 1: exact match (case-sensitive)
        repeat with w in winList
            if (name of w as string) is targetTitle then
                perform action "AXRaise" of w
                try
                    set value of attribute "AXMain" of w to true
                end try
                return "exact|" & (name of w as string)
            end if
        end repeat
        -- Pass 2: case-insensitive exact
        set lowerTarget to do shell script "echo " & quoted form of targetTitle & " | tr '[:upper:]' '[:lower:]'"
        repeat with w in winList
            set wname to name of w as string
            set wnameLower to do shell script "echo " & quoted form of wname & " | tr '[:upper:]' '[:lower:]'"
            if wnameLower is lowerTarget then
                perform action "AXRaise" of w
                try
                    set value of attribute "AXMain" of w to true
                end try
                return "exact-ci|" & wname
            end if
        end repeat
        -- Pass 3: substring (case-insensitive)
        repeat with w in winList
            set wname to name of w as string
            set wnameLower to do shell script "echo " & quoted form of wname & " | tr '[:upper:]' '[:lower:]'"
            if wnameLower contains lowerTarget then
                perform action "AXRaise" of w
                try
                    set value of attribute "AXMain" of w to true
                end try
                return "substring|" & wname
            end if
        end repeat
        return "no_match|"
    end tell
end tell)"_s;

const QString dumpWindowsSource = uR"(tell application "System Events"
    tell process "%1"
        set out to ""
        repeat with w in windows
            set out to out & "  | " & (name of w as string) & "
"
        end repeat
        return out
    end tell
end tell)"_s;

const QString consentSource = uR"(tell application "System Events"
    tell process "Finder"
        count windows
    end tell
end tell)"_s;

namespace {

/// The texts between the quotes of a source made from `templateText`, unescaped; absent when it was
/// made from another one.
std::optional<QStringList> literalsOf(const QString& source, const QString& templateText) {
    static const QRegularExpression placeholder(u"%[12]"_s);
    const QStringList fixed = templateText.split(placeholder);
    if (!source.startsWith(fixed.first()))
        return std::nullopt;
    QStringList literals;
    qsizetype at = fixed.first().size();
    for (const QString& next : fixed.mid(1)) {
        QString literal;
        for (; at < source.size() && source[at] != u'"'; ++at) {
            if (source[at] == u'\\') {
                ++at;
                if (at == source.size() || (source[at] != u'"' && source[at] != u'\\'))
                    return std::nullopt;
            }
            literal += source[at];
        }
        if (!QStringView(source).sliced(at).startsWith(next))
            return std::nullopt;
        at += next.size();
        literals << literal;
    }
    return at == source.size() ? std::optional(literals) : std::nullopt;
}

std::optional<int> keyCodeOf(const QString& source) {
    static const QRegularExpression whole(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(keyWithControlSource).replace(u"\\%1"_s, u"(\\d{1,3})"_s)));
    const auto match = whole.match(source);
    return match.hasMatch() ? std::optional(match.captured(1).toInt()) : std::nullopt;
}

} // namespace

QString escapedForAppleScript(const QString& text) {
    return QString(text).replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
}

std::optional<SystemEventsScript> compileForSystemEvents(const QString& source) {
    if (const auto keyCode = keyCodeOf(source))
        return PressKeyWithControl{*keyCode};
    if (const auto literals = literalsOf(source, focusWindowSource))
        return FocusWindowByName{literals->at(0), literals->at(1)};
    if (const auto literals = literalsOf(source, dumpWindowsSource))
        return DumpWindows{literals->at(0)};
    if (source == consentSource)
        return CountFinderWindows{};
    return std::nullopt;
}

} // namespace brimlow::platform
