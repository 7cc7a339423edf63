#pragma once

#include <gio/gio.h>

#include <memory>

namespace brimlow::platform {

/// Gives what GLib handed over back to it.
template<auto release>
struct Release {
    template<typename T>
    void operator()(T* pointer) const {
        release(pointer);
    }
};

using ErrorPointer = std::unique_ptr<GError, Release<g_error_free>>;
using KeyFilePointer = std::unique_ptr<GKeyFile, Release<g_key_file_unref>>;
using TextPointer = std::unique_ptr<char, Release<g_free>>;
using TextListPointer = std::unique_ptr<char*, Release<g_strfreev>>;
template<typename T>
using ObjectPointer = std::unique_ptr<T, Release<g_object_unref>>;

} // namespace brimlow::platform
