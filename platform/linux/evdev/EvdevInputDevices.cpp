#include "platform/linux/evdev/EvdevInputDevices.h"

#include "platform/RegularFile.h"
#include "platform/linux/evdev/InputReader.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

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

bool ruleInstalled() {
    static constexpr std::array folders{"/etc", "/run", "/usr/local/lib", "/usr/lib", "/lib"};
    return std::ranges::any_of(folders, [](const char* folder) {
        return QFile::exists(QLatin1StringView(folder) + u"/udev/rules.d/70-brimlow.rules"_s);
    });
}

TrackpadRemedy remedyFor(int error) {
    if (error == 0)
        return TrackpadRemedy::none;
    if (error != EACCES && error != EPERM)
        return TrackpadRemedy::reconnect;
    return ruleInstalled() ? TrackpadRemedy::applyRule : TrackpadRemedy::installRule;
}

} // namespace

EvdevInputDevices::EvdevInputDevices() : reader_(InputReader::shared()) {}

bool EvdevInputDevices::available() {
    return reader_.available();
}

std::vector<Trackpad> EvdevInputDevices::trackpads() {
    std::vector<Trackpad> trackpads;
    for (const TrackpadNode& node : reader_.trackpads())
        trackpads.push_back({QString::fromStdString(node.name), QString::fromStdString(node.node),
                             node.error == 0 ? QString() : messageOf(node.error),
                             remedyFor(node.error)});
    return trackpads;
}

std::unique_ptr<ButtonListener>
EvdevInputDevices::listen(std::function<void(ButtonNotice)> handler) {
    return std::make_unique<Listening>(reader_, std::move(handler));
}

void EvdevInputDevices::setSessionActive(bool active) {
    reader_.setSessionState(active ? SessionState::active : SessionState::inactive);
}

} // namespace brimlow::platform
