#pragma once

#include <QString>

namespace brimlow::platform {

/// dlopen for framework images: the image's own path, "/System/Library/.../Foo.framework/Foo",
/// means the file "Foo.so" in the folder that the environment variable BRIMLOW_FRAMEWORKS names, or
/// else in "../lib/brimlow" beside the program's folder. Any other path is opened as it stands.
void* dlopen(const char* path, int mode);
void* dlsym(void* image, const char* symbol);
/// The text of the last failure, empty when there was none. Same thread as the failure.
QString dlerror();

} // namespace brimlow::platform
