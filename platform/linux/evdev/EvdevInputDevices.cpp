#include "platform/linux/evdev/EvdevInputDevices.h"

#include "platform/linux/evdev/InputReader.h"

namespace brimlow::platform {

namespace {

ButtonNotice noticeOf(ButtonEvent event) {
    switch (event) {
    case ButtonEvent::leftMouseDown:
        return ButtonNotice::leftMouseDown;
    case ButtonEvent::eventsLost:
        return ButtonNotice::eventsLost;
    case ButtonEvent::devicesGone:
        return ButtonNotice::devicesGone;
    }
    return ButtonNotice::eventsLost;
}

class Listening : public ButtonListener {
public:
    Listening(InputReader& reader, std::function<void(ButtonNotice)> handler)
        : reader_(reader),
          id_(reader.addButtonListener(
              [handler = std::move(handler)](ButtonEvent event) { handler(noticeOf(event)); })) {}
    ~Listening() override { reader_.removeButtonListener(id_); }

private:
    InputReader& reader_;
    InputReader::ListenerId id_;
};

} // namespace

EvdevInputDevices::EvdevInputDevices() : reader_(InputReader::shared()) {}

bool EvdevInputDevices::available() {
    return reader_.available();
}

std::vector<UnreadableTrackpad> EvdevInputDevices::unreadableTrackpads() {
    std::vector<UnreadableTrackpad> trackpads;
    for (const UnreadableNode& node : reader_.retryUnreadable())
        trackpads.push_back({QString::fromStdString(node.name), QString::fromStdString(node.node),
                             QString::fromStdString(node.reason)});
    return trackpads;
}

std::unique_ptr<ButtonListener>
EvdevInputDevices::listen(std::function<void(ButtonNotice)> handler) {
    return std::make_unique<Listening>(reader_, std::move(handler));
}

} // namespace brimlow::platform
