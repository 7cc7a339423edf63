#include "ui/shell/Windows.h"

#include "platform/Platform.h"
#include "platform/Session.h"
#include "ui/style/ApplicationStyle.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace brimlow {

namespace {

// What window managers draw above a window, at most; not known before it is shown.
constexpr int titleBarHeight = 40;

} // namespace

void fitToText(QWidget& window, QSize smallest, QSize usual) {
    const auto& type = style::currentType();
    const QSize wanted(type.scaled(usual.width()), type.scaled(usual.height()));
    window.setMinimumSize(type.scaled(smallest.width()), smallest.height());
    const QSize room = window.screen()->availableSize() - QSize(0, titleBarHeight);
    window.resize(wanted.boundedTo(room));
}

void centre(QWidget& window) {
    QRect frame = window.rect().marginsAdded({0, titleBarHeight, 0, 0});
    frame.moveCenter(window.screen()->availableGeometry().center());
    window.move(frame.topLeft());
}

void bringToFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
    // A window manager may not believe a program that it is its user's turn. It believes a pager.
    if (QGuiApplication::platformName() == u"xcb")
        platform::Platform::current().session.windows().activate(
            static_cast<std::uint32_t>(window.winId()));
}

} // namespace brimlow
