#pragma once

#include "tools/desktop/PrivateDesktop.h"
#include "tools/desktop/ScreenReader.h"

namespace brimlow::desktop {

/// Somebody at a desktop: finds things by their names, as a screen reader tells them, and uses a
/// real mouse and real keys. Each step gives up after a few seconds.
class Person {
public:
    explicit Person(PrivateDesktop& desktop) : desktop_(desktop) {}

    /// Before the programs that are to be used; they are started with environment().
    QString sitDown();
    const QProcessEnvironment& environment() const { return environment_; }

    bool press(const QString& key) const { return xdotool({QStringLiteral("key"), key}); }
    bool type(const QString& text) const;
    bool sees(const QString& name, const QString& role = {}) const;
    bool seesNo(const QString& name) const;
    /// Scrolls to it where it is in a page that scrolls.
    bool click(const QString& name, const QString& role = {}) const;
    /// One after the other; complains of the first that is not there.
    bool click(const QStringList& names) const;
    bool hasFocusOn(const QString& name) const;
    /// What the focus has moved to since this was last asked; empty where it has not.
    QString nextFocus();
    /// The title of the window in front.
    bool isIn(const QString& window) const;

    const ScreenReader& reader() const { return reader_; }
    /// Kept where the environment names a folder for pictures.
    void lookAt(const QString& picture) const;

private:
    std::optional<Accessible> focused() const;
    bool xdotool(const QStringList& arguments) const;
    bool moveTo(const QPoint& point) const;

    PrivateDesktop& desktop_;
    ScreenReader reader_;
    QProcessEnvironment environment_;
    Accessible lastFocus_;
};

} // namespace brimlow::desktop
