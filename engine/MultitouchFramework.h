#pragma once

#include "platform/MultitouchSupport.h"

namespace brimlow {

/// The entry points of the multitouch framework: all of them, or none.
struct MultitouchFramework {
    MTDeviceCreateDefaultFunction deviceCreateDefault = nullptr;
    MTRegisterContactFrameCallbackFunction registerContactFrameCallback = nullptr;
    MTDeviceStartFunction deviceStart = nullptr;
    MTDeviceStopFunction deviceStop = nullptr;

    /// Opens the image at the first call, once per process, and prints how it went; a failure is
    /// never tried again. The image stays open. Main thread.
    static const MultitouchFramework& load();

    bool loaded() const { return deviceCreateDefault != nullptr; }
};

} // namespace brimlow
