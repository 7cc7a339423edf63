#include "tests/desktop/X11TestClient.h"

#include "platform/x11/X11Reply.h"

#include <QDeadlineTimer>

#include <poll.h>

#include <cstring>

namespace brimlow::desktop {

using platform::Reply;

X11TestClient::X11TestClient(const QByteArray& displayName)
    : connection_(xcb_connect(displayName.constData(), nullptr)),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data),
      begin_(atom("_NET_STARTUP_INFO_BEGIN")), more_(atom("_NET_STARTUP_INFO")) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_, screen_->root, XCB_CW_EVENT_MASK, &events);
    finish();
}

std::uint32_t X11TestClient::open(const std::vector<TestProperty>& properties) {
    const std::uint32_t window = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen_->root, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    for (const auto& property : properties)
        set(window, property);
    xcb_map_window(connection_, window);
    finish();
    return window;
}

void X11TestClient::set(std::uint32_t window, const TestProperty& property) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(property.name),
                        atom(property.type), static_cast<std::uint8_t>(property.format),
                        static_cast<std::uint32_t>(property.bytes.size() / (property.format / 8)),
                        property.bytes.constData());
    finish();
}

void X11TestClient::destroy(std::uint32_t window) {
    xcb_destroy_window(connection_, window);
    finish();
}

QByteArray X11TestClient::textOf(std::uint32_t window, const char* property) {
    const auto cookie = xcb_get_property(connection_, 0, window, atom(property),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_, cookie, nullptr));
    return reply ? QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

QByteArray X11TestClient::nextAnnouncement() {
    const QDeadlineTimer deadline(5000);
    while (!deadline.hasExpired()) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
        if (!event) {
            pollfd readable = {xcb_get_file_descriptor(connection_), POLLIN, 0};
            ::poll(&readable, 1, static_cast<int>(deadline.remainingTime()));
            continue;
        }
        const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE
            || (message->type != begin_ && message->type != more_))
            continue;
        if (message->type == begin_)
            unfinished_.clear();
        const auto* bytes = reinterpret_cast<const char*>(message->data.data8);
        const auto length = strnlen(bytes, sizeof message->data.data8);
        unfinished_.append(bytes, static_cast<qsizetype>(length));
        if (length < sizeof message->data.data8)
            return unfinished_;
    }
    return {};
}

QByteArray X11TestClient::atomBytes(const char* name) {
    const xcb_atom_t value = atom(name);
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

xcb_atom_t X11TestClient::atom(const char* name) {
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

void X11TestClient::finish() {
    const Reply<xcb_get_input_focus_reply_t> answered(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

} // namespace brimlow::desktop
