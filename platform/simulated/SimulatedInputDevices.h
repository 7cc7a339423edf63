#pragma once

#include "platform/InputDevices.h"

namespace brimlow::platform {

/// Pointer devices of a described world.
class SimulatedInputDevices final : public InputDevices {
public:
    // The world's verbs.
    void setAvailable(bool available) { available_ = available; }
    void plugIn(Trackpad trackpad) { trackpads_.push_back(std::move(trackpad)); }
    void unplugAll() { trackpads_.clear(); }
    /// Tells every listener, as the reader would.
    void notify(ButtonNotice notice);
    void click() { notify(ButtonNotice::leftMouseDown); }

    bool available() override { return available_; }
    std::vector<Trackpad> trackpads() override { return trackpads_; }
    std::unique_ptr<ButtonListener> listen(std::function<void(ButtonNotice)> handler) override;
    std::size_t listenerCount() const { return listeners_.size(); }

private:
    class Listener;

    bool available_ = true;
    std::vector<Trackpad> trackpads_;
    std::vector<Listener*> listeners_;
};

} // namespace brimlow::platform
