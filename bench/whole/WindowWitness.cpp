#include "bench/whole/WindowWitness.h"

#include <QDeadlineTimer>

#include <cstdlib>
#include <cstring>
#include <thread>

namespace brimlow::bench {

namespace {

constexpr int lineCount = 8;

struct Free {
    void operator()(void* pointer) const { std::free(pointer); }
};
template<typename T>
using Freed = std::unique_ptr<T, Free>;

bool isUniform(const QByteArray& pixels) {
    constexpr qsizetype size = 4; // bytes of a pixel
    return pixels.size() <= size
           || std::memcmp(pixels.constData(), pixels.constData() + size, pixels.size() - size) == 0;
}

bool waitUntil(const std::function<bool()>& holds, int milliseconds) {
    using namespace std::chrono_literals;
    const QDeadlineTimer deadline(milliseconds);
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

} // namespace

WindowWitness::WindowWitness(const QByteArray& display)
    : connection_(xcb_connect(display, nullptr)) {
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    constexpr char name[] = "_NET_CLIENT_LIST";
    const Freed<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_.get(), xcb_intern_atom(connection_.get(), 0, sizeof(name) - 1, name), nullptr));
    clientList_ = reply ? reply->atom : 0;
}

xcb_window_t WindowWitness::window() {
    const auto cookie =
        xcb_get_property(connection_.get(), 0, root_, clientList_, XCB_ATOM_WINDOW, 0, 1);
    const Freed<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(xcb_window_t))
        return 0;
    return *static_cast<xcb_window_t*>(xcb_get_property_value(reply.get()));
}

QByteArray WindowWitness::lines() {
    const xcb_window_t shown = window();
    if (shown == 0)
        return {};
    const Freed<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
        connection_.get(), xcb_get_geometry(connection_.get(), shown), nullptr));
    if (!geometry)
        return {};
    QByteArray pixels;
    for (int i = 0; i < lineCount; ++i) {
        const int y = geometry->height * (2 * i + 1) / (2 * lineCount);
        const auto cookie = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, shown, 0,
                                          static_cast<std::int16_t>(y), geometry->width, 1, ~0U);
        const Freed<xcb_get_image_reply_t> image(
            xcb_get_image_reply(connection_.get(), cookie, nullptr));
        if (!image) // it is managed, but not on the screen yet
            return {};
        pixels.append(reinterpret_cast<const char*>(xcb_get_image_data(image.get())),
                      xcb_get_image_data_length(image.get()));
    }
    return pixels;
}

bool WindowWitness::waitForPaint(int milliseconds) {
    return waitUntil([this] { return !isUniform(lines()); }, milliseconds);
}

bool WindowWitness::waitForChange(const QByteArray& lines, int milliseconds) {
    return waitUntil([&] { return this->lines() != lines; }, milliseconds);
}

bool WindowWitness::waitForNoWindow(int milliseconds) {
    return waitUntil([this] { return window() == 0; }, milliseconds);
}

} // namespace brimlow::bench
