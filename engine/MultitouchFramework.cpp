#include "engine/MultitouchFramework.h"

#include "platform/FrameworkImage.h"
#include "platform/Streams.h"

#include <dlfcn.h>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::printLine;

namespace {

constexpr const char* imagePath =
    "/System/Library/PrivateFrameworks/MultitouchSupport.framework/MultitouchSupport";

template<typename Function>
bool resolve(void* image, const char* symbol, Function& function) {
    function = reinterpret_cast<Function>(platform::dlsym(image, symbol));
    return function != nullptr;
}

MultitouchFramework loadSymbols() {
    void* image = platform::dlopen(imagePath, RTLD_NOW);
    if (!image) {
        printLine(u"MultitouchManager: dlopen("_s + QString::fromLatin1(imagePath) + u") failed: "_s
                  + platform::dlerror());
        return {};
    }
    MultitouchFramework found;
    if (!resolve(image, "MTDeviceCreateDefault", found.deviceCreateDefault)
        || !resolve(image, "MTRegisterContactFrameCallback", found.registerContactFrameCallback)
        || !resolve(image, "MTDeviceStart", found.deviceStart)
        || !resolve(image, "MTDeviceStop", found.deviceStop)) {
        printLine(u"MultitouchManager: dlsym failed for one or more symbols"_s);
        return {};
    }
    printLine(u"MultitouchManager: framework symbols loaded successfully"_s);
    return found;
}

} // namespace

const MultitouchFramework& MultitouchFramework::load() {
    static const MultitouchFramework framework = loadSymbols();
    return framework;
}

} // namespace brimlow
