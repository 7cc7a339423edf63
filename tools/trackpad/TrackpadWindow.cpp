#include "tools/trackpad/TrackpadWindow.h"

#include "ui/controls/Caption.h"
#include "ui/controls/Card.h"

#include <QGuiApplication>
#include <QVBoxLayout>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace brimlow::trackpad {

using namespace Qt::StringLiterals;

namespace {

constexpr std::uint32_t allWorkspaces = 0xffffffff;

xcb_atom_t atom(xcb_connection_t* connection, const QByteArray& name) {
    const auto request =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, request, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

TrackpadWindow::TrackpadWindow(std::size_t mostFingers)
    : QWidget(nullptr, Qt::Tool | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint),
      surface_(new TrackpadSurface(mostFingers)) {
    setWindowTitle(u"Brimlow Trackpad"_s);
    setAttribute(Qt::WA_QuitOnClose); // which tool windows lack
    auto* caption = new controls::Caption(
        u"Click to tap, drag to move; the right button, or Ctrl, pushes the pad down as well. Hold "
        u"Shift to keep fingers down, and let go of it to lift them."_s);
    surface_->setAccessibleDescription(caption->text());
    auto* card = new controls::Card;
    card->add(surface_);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(20, 20, 20, 20);
    rows->setSpacing(8);
    rows->addWidget(card, 1);
    rows->addWidget(caption);
}

void TrackpadWindow::appear() {
    show();
    if (QGuiApplication::platformName() == u"xcb")
        stayOnAllWorkspaces();
}

// By a message, once the window is managed: as a property from the beginning Xfwm4 ignores it for
// tool windows.
void TrackpadWindow::stayOnAllWorkspaces() {
    xcb_connection_t* connection =
        qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(winId());
    message.type = atom(connection, "_NET_WM_DESKTOP");
    message.data.data32[0] = allWorkspaces;
    message.data.data32[1] = 2; // at the user's wish
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

} // namespace brimlow::trackpad
