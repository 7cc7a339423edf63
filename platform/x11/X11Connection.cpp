#include "platform/x11/X11Connection.h"

#include "platform/x11/X11Reply.h"

#include <xcb/res.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

xcb_window_t rootOfScreen(xcb_connection_t* connection, int screen) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screen > 0 && screens.rem > 1; --screen)
        xcb_screen_next(&screens);
    return screens.data->root;
}

bool askClientPids(xcb_connection_t* connection) {
    const auto* extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (!extension || !extension->present)
        return false;
    const Reply<xcb_res_query_version_reply_t> version(
        xcb_res_query_version_reply(connection, xcb_res_query_version(connection, 1, 2), nullptr));
    return version
           && (version->server_major > 1
               || (version->server_major == 1 && version->server_minor >= 2));
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(const QByteArray& displayName, QString& reason) {
    const QByteArray name = displayName.isEmpty() ? qgetenv("DISPLAY") : displayName;
    if (name.isEmpty()) {
        reason = u"DISPLAY names no X server"_s;
        return nullptr;
    }
    int screen = 0;
    xcb_connection_t* connection = xcb_connect(name.constData(), &screen);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        reason = u"the X server \"%1\" cannot be reached"_s.arg(QString::fromLocal8Bit(name));
        return nullptr;
    }
    auto result = std::unique_ptr<X11Connection>(new X11Connection(connection, screen));
    result->prepare();
    return result;
}

X11Connection::X11Connection(xcb_connection_t* connection, int screen)
    : connection_(connection), screen_(screen), root_(rootOfScreen(connection, screen)) {}

void X11Connection::prepare() {
    xcb_prefetch_extension_data(connection_, &xcb_res_id);
    atoms_ = X11Atoms(connection_);
    tellsClientPids_ = askClientPids(connection_);

    // Never mapped: it only carries the property whose changes tell the server's time.
    ownWindow_ = xcb_generate_id(connection_);
    const std::array<std::uint32_t, 2> values = {1, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(connection_, 0, ownWindow_, root_, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_flush(connection_);
}

X11Connection::~X11Connection() {
    xcb_disconnect(connection_);
}

bool X11Connection::lost() {
    while (Reply<xcb_generic_event_t>(xcb_poll_for_event(connection_))) {
    }
    return xcb_connection_has_error(connection_) != 0;
}

xcb_timestamp_t X11Connection::serverTime() {
    lost();
    // Appending nothing changes nothing, and is announced with the time all the same.
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, ownWindow_, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    // Events stand in the stream before the reply to a later request: once this one is answered
    // the announcement has arrived.
    const Reply<xcb_get_input_focus_reply_t> answered(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));

    xcb_timestamp_t time = XCB_CURRENT_TIME;
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_)}) {
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
            time = reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
    }
    return time;
}

Outcome X11Connection::askWindowManager(xcb_window_t window, Atom message,
                                        const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(data, event.data.data32);
    return tellWindowManager(reinterpret_cast<const char*>(&event));
}

Outcome X11Connection::tellWindowManager(const char* event) {
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   event);
    xcb_flush(connection_);
    return lost() ? connectionLost() : Outcome::success();
}

Outcome connectionLost() {
    return Outcome::failure(u"the connection to the X server is lost"_s);
}

} // namespace brimlow::platform
