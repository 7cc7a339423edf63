#pragma once

#include <QByteArray>
#include <QString>

#include <xcb/xcb.h>

#include <vector>

namespace brimlow::desktop {

/// What a client may write on its window: any bytes under any type.
struct TestProperty {
    const char* name;
    const char* type;
    int format; // bits per item: 8, 16 or 32
    QByteArray bytes;
};

/// A client of the X server that does nothing unasked: its windows have the properties they are
/// given and no others. It also overhears the announcements of programs that start.
class X11TestClient {
public:
    explicit X11TestClient(const QByteArray& displayName);
    ~X11TestClient() { xcb_disconnect(connection_); }
    X11TestClient(const X11TestClient&) = delete;
    X11TestClient& operator=(const X11TestClient&) = delete;

    /// A mapped window; the manager may take a moment to manage it.
    std::uint32_t open(const std::vector<TestProperty>& properties);
    void set(std::uint32_t window, const TestProperty& property);
    /// Returns once the server has done it.
    void destroy(std::uint32_t window);
    QByteArray textOf(std::uint32_t window, const char* property);

    /// An atom as the value of a property.
    QByteArray atomBytes(const char* name);

    /// The next announcement, such as "remove: ID=..."; empty when none comes within five seconds.
    QByteArray nextAnnouncement();

private:
    xcb_atom_t atom(const char* name);
    void finish();

    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
    xcb_atom_t begin_;
    xcb_atom_t more_;
    QByteArray unfinished_;
};

} // namespace brimlow::desktop
