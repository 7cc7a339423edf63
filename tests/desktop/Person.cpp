#include "tests/desktop/Person.h"

#include <gtest/gtest.h>

namespace brimlow::desktop {

using namespace Qt::StringLiterals;

namespace {
constexpr int mostTurns = 60; // of the mouse wheel
} // namespace

QString Person::sitDown() {
    environment_ = desktop_.environment();
    environment_.remove(u"BRIMLOW_AUTOSTART"_s);
    return reader_.start(environment_);
}

bool Person::xdotool(const QStringList& arguments) const {
    return desktop_.run(u"xdotool"_s, arguments);
}

bool Person::type(const QString& text) const {
    return xdotool({u"type"_s, text});
}

bool Person::moveTo(const QPoint& point) const {
    return xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y())});
}

bool Person::sees(const QString& name, const QString& role) const {
    return desktop_.waitFor(
        [&](const DesktopState&) { return reader_.find(name, role).has_value(); });
}

bool Person::seesNo(const QString& name) const {
    return desktop_.waitFor([&](const DesktopState&) { return !reader_.find(name).has_value(); });
}

std::optional<Accessible> Person::focused() const {
    for (const Accessible& thing : reader_.everything())
        if (thing.focused)
            return thing;
    return std::nullopt;
}

bool Person::hasFocusOn(const QString& name) const {
    return desktop_.waitFor([&](const DesktopState&) {
        const auto thing = focused();
        return thing && thing->name == name;
    });
}

QString Person::nextFocus() {
    const bool moved = desktop_.waitFor([&](const DesktopState&) {
        const auto thing = focused();
        if (!thing || (thing->name == lastFocus_.name && thing->place == lastFocus_.place))
            return false;
        lastFocus_ = *thing;
        return true;
    });
    return moved ? lastFocus_.name : QString();
}

bool Person::isIn(const QString& window) const {
    return desktop_.waitFor([&](const DesktopState&) {
        return outputOf(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowname"_s}, environment_)
               == window.toUtf8() + '\n';
    });
}

bool Person::click(const QString& name, const QString& role) const {
    if (!sees(name, role))
        return false;
    for (int turn = 0; turn < mostTurns; ++turn) {
        const auto thing = reader_.find(name, role);
        if (!thing)
            return false;
        const QRect& page = thing->page;
        if (page.isNull() || page.contains(thing->place.center()))
            return moveTo(thing->place.center()) && xdotool({u"click"_s, u"1"_s});
        const bool below = thing->place.center().y() > page.center().y();
        if (!moveTo({page.left() + 5, page.center().y()})
            || !xdotool({u"click"_s, below ? u"5"_s : u"4"_s}))
            return false;
    }
    return false;
}

bool Person::click(const QStringList& names) const {
    for (const QString& name : names) {
        if (click(name))
            continue;
        ADD_FAILURE() << "there is no " << name.toStdString();
        lookAt(u"missing"_s);
        return false;
    }
    return true;
}

void Person::lookAt(const QString& picture) const {
    if (qEnvironmentVariableIsSet("BRIMLOW_TEST_PICTURES"))
        desktop_.screenshot(qEnvironmentVariable("BRIMLOW_TEST_PICTURES") + u'/' + picture
                            + u".png"_s);
}

} // namespace brimlow::desktop
