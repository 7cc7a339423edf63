#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <functional>
#include <memory>

namespace brimlow::bench {

/// A client of the X server that looks at the one window of a desktop, every millisecond.
class WindowWitness {
public:
    explicit WindowWitness(const QByteArray& display);

    /// False when nothing is painted in a managed window within `milliseconds`. Until then the
    /// window shows one colour: what was behind it.
    bool waitForPaint(int milliseconds = 5000);
    /// Waits until it shows something else than this.
    bool waitForChange(const QByteArray& lines, int milliseconds = 5000);
    bool waitForNoWindow(int milliseconds = 5000);

    /// 0 for none.
    xcb_window_t window();
    /// The pixels of some lines of the window; empty while there is none to be seen.
    QByteArray lines();

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = 0;
    xcb_atom_t clientList_ = 0;
};

} // namespace brimlow::bench
