#include "platform/x11/X11Property.h"

#include "platform/x11/X11Reply.h"

#include <cstring>

namespace brimlow::platform {

namespace {

// In units of four bytes. No honest title or window list is longer, and nobody can make us fetch
// megabytes.
constexpr std::uint32_t longestProperty = 0x4000;

} // namespace

std::vector<std::uint32_t> X11Property::values(xcb_atom_t expected) const {
    if (type != expected || format != 32)
        return {};
    std::vector<std::uint32_t> result(static_cast<std::size_t>(bytes.size()) / 4);
    if (!result.empty())
        std::memcpy(result.data(), bytes.constData(), result.size() * 4);
    return result;
}

X11PropertyRequest::X11PropertyRequest(X11Connection& connection, xcb_window_t window,
                                       Atom property)
    : connection_(connection.get()),
      cookie_(xcb_get_property(connection_, 0, window, connection.atom(property),
                               XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty)) {}

std::optional<X11Property> X11PropertyRequest::take() {
    xcb_generic_error_t* error = nullptr;
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_, cookie_, &error));
    const Reply<xcb_generic_error_t> freed(error);
    if (!reply)
        return std::nullopt;
    return X11Property{reply->type, reply->format,
                       QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                  xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> X11PropertyRequest::takeValues(xcb_atom_t expected) {
    const auto property = take();
    return property ? property->values(expected) : std::vector<std::uint32_t>();
}

std::optional<std::uint32_t> X11PropertyRequest::takeValue(xcb_atom_t expected) {
    const auto values = takeValues(expected);
    if (values.empty())
        return std::nullopt;
    return values.front();
}

} // namespace brimlow::platform
