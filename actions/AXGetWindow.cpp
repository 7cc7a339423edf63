#include "actions/AXGetWindow.h"

#include "platform/FrameworkImage.h"
#include "platform/Streams.h"

#include <dlfcn.h>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* imagePath = "/System/Library/Frameworks/ApplicationServices.framework/"
                                  "Frameworks/HIServices.framework/HIServices";

AXUIElementGetWindowFunction load() {
    if (void* image = platform::dlopen(imagePath, RTLD_NOW)) {
        if (void* symbol = platform::dlsym(image, "_AXUIElementGetWindow"))
            return reinterpret_cast<AXUIElementGetWindowFunction>(symbol);
    }
    platform::printErrorLine(u"ActionExecutor: _AXUIElementGetWindow unavailable — focus-by-ID "
                             "falls back to title matching"_s);
    return nullptr;
}

} // namespace

AXUIElementGetWindowFunction axGetWindow() {
    static const AXUIElementGetWindowFunction function = load();
    return function;
}

} // namespace brimlow
