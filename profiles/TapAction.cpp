#include "profiles/TapAction.h"

#include <QStringView>

#include <algorithm>

namespace brimlow {

namespace {

struct Words {
    QStringView rawValue;
    QStringView displayName;
    QStringView iconName;
};

constexpr std::array<Words, allTapActions.size()> words{{
    {u"none", u"No Action", u"nosign"},
    {u"switchDesktopLeft", u"Switch Desktop Left", u"arrow.left.circle"},
    {u"switchDesktopRight", u"Switch Desktop Right", u"arrow.right.circle"},
    {u"closeWindow", u"Close Window", u"xmark.square"},
    {u"openApp", u"Open App", u"app.badge"},
    {u"focusWindow", u"Focus Specific Window", u"macwindow.on.rectangle"},
    {u"hideAll", u"Hide Everything", u"eye.slash"},
    {u"toggleBrimlow", u"Toggle Brimlow", u"power.circle"},
    {u"customCommand", u"Custom Command", u"terminal"},
}};

const Words& wordsOf(TapAction action) {
    return words[static_cast<std::size_t>(action)];
}

} // namespace

QString rawValue(TapAction action) {
    return wordsOf(action).rawValue.toString();
}

QString displayName(TapAction action) {
    return wordsOf(action).displayName.toString();
}

QString iconName(TapAction action) {
    return wordsOf(action).iconName.toString();
}

std::optional<TapAction> tapActionFromJson(const QJsonValue& value) {
    if (!value.isString())
        return std::nullopt;
    const QString text = value.toString();
    const auto named = std::ranges::find_if(
        allTapActions, [&](TapAction each) { return wordsOf(each).rawValue == text; });
    return named == allTapActions.end() ? TapAction::none : *named;
}

} // namespace brimlow
