#pragma once

#include "platform/InputDevices.h"

namespace brimlow::platform {

class InputReader;

/// The machine's pointers, through the reader that also delivers the contact frames.
class EvdevInputDevices : public InputDevices {
public:
    EvdevInputDevices();

    bool available() override;
    std::vector<Trackpad> trackpads() override;
    std::unique_ptr<ButtonListener> listen(std::function<void(ButtonNotice)> handler) override;

    /// While it is not, no device is open and nothing is delivered. Main thread.
    void setSessionActive(bool active);

private:
    InputReader& reader_;
};

} // namespace brimlow::platform
