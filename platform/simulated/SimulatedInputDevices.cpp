#include "platform/simulated/SimulatedInputDevices.h"

namespace brimlow::platform {

class SimulatedInputDevices::Listener final : public ButtonListener {
public:
    Listener(SimulatedInputDevices& devices, std::function<void(ButtonNotice)> theHandler)
        : handler(std::move(theHandler)), devices_(devices) {
        devices_.listeners_.push_back(this);
    }
    ~Listener() override { std::erase(devices_.listeners_, this); }

    const std::function<void(ButtonNotice)> handler;

private:
    SimulatedInputDevices& devices_;
};

void SimulatedInputDevices::notify(ButtonNotice notice) {
    for (const auto* listener : std::vector(listeners_))
        listener->handler(notice);
}

std::unique_ptr<ButtonListener>
SimulatedInputDevices::listen(std::function<void(ButtonNotice)> handler) {
    return std::make_unique<Listener>(*this, std::move(handler));
}

} // namespace brimlow::platform
