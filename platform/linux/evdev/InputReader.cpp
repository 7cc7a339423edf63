#include "platform/linux/evdev/InputReader.h"

#include "platform/linux/evdev/ContactFrames.h"
#include "platform/linux/evdev/EventLoop.h"
#include "platform/linux/evdev/PointerDevices.h"
#include "platform/linux/evdev/RecordingPlayer.h"
#include "platform/linux/evdev/StandardError.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>

namespace brimlow::platform {

namespace {

/// Nodes may be named before they are plugged in.
bool namesNode(const std::string& path) {
    std::error_code error;
    return path.starts_with("/dev/") || std::filesystem::is_character_file(path, error);
}

} // namespace

/// Everything below belongs to the loop's thread, except `loop` itself and what is constant.
class InputReader::Sources {
public:
    explicit Sources(const std::string& touchDevice)
        : onlyTouchpad_(namesNode(touchDevice) ? touchDevice : std::string()),
          playsRecording_(!touchDevice.empty() && onlyTouchpad_.empty()),
          frames_([this](std::span<const MTFinger> fingers, double timestamp, std::int32_t frame) {
              if (delivery_ == Delivery::started && session_ == SessionState::active && frame_)
                  frame_(fingers, timestamp, frame);
          }) {
        if (playsRecording_)
            loadRecording(touchDevice);
        else
            loop.perform([this] { openDevices(); });
    }

    ~Sources() {
        loop.perform([this] {
            delivery_ = Delivery::stopped;
            listeners_.clear();
            devices_.reset();
            player_.reset();
        });
    }

    bool available() const {
        std::error_code error;
        return hasRecording_ || std::filesystem::is_directory("/dev/input", error);
    }

    void setFrameHandler(FrameHandler handler) { frame_ = std::move(handler); }

    void start() {
        delivery_ = Delivery::started;
        if (player_)
            player_->start();
    }
    void stop() { delivery_ = Delivery::stopped; }

    ListenerId addListener(ButtonHandler handler) {
        listeners_[++lastListener_] = std::move(handler);
        return lastListener_;
    }
    void removeListener(ListenerId id) { listeners_.erase(id); }

    std::vector<TrackpadNode> trackpads() {
        if (hasRecording_)
            return {recording_};
        if (devices_)
            trackpads_ = devices_->trackpads();
        return trackpads_;
    }

    void setSession(SessionState state) {
        if (state == session_)
            return;
        if (state == SessionState::inactive)
            closeDevices(); // first: the contacts end with them
        session_ = state;
        if (state == SessionState::inactive)
            return;
        if (player_)
            player_->endSilence();
        else if (!playsRecording_)
            openDevices();
    }

private:
    enum class Delivery { stopped, started };

    void openDevices() {
        devices_.emplace(
            loop, identities_, frames_, [this](ButtonEvent event) { tell(event); }, onlyTouchpad_,
            reported_);
    }

    void closeDevices() {
        trackpads(); // what is known of them holds until they are opened again
        devices_.reset();
        if (player_)
            player_->beginSilence();
    }

    void loadRecording(const std::string& path) {
        auto result = readRecording(path);
        if (const auto* error = std::get_if<RecordingError>(&result)) {
            printToStandardError("Brimlow: " + error->text());
            return;
        }
        auto& recording = std::get<Recording>(result);
        hasRecording_ = true;
        recording_ = {recording.description.name, path};
        loop.perform([&] {
            player_.emplace(loop, std::move(recording), identities_, frames_,
                            [this] { tell(ButtonEvent::leftMouseDown); });
        });
    }

    void tell(ButtonEvent event) {
        if (session_ == SessionState::inactive)
            return;
        for (const auto& [id, handler] : listeners_)
            handler(event);
    }

    const std::string onlyTouchpad_;
    const bool playsRecording_;
    bool hasRecording_ = false; // constant once constructed, as is
    TrackpadNode recording_;
    Delivery delivery_ = Delivery::stopped;
    SessionState session_ = SessionState::active;
    FrameHandler frame_;
    std::map<ListenerId, ButtonHandler> listeners_;
    ListenerId lastListener_ = 0;
    ContactIdentities identities_;
    ContactFrames frames_;

public:
    EventLoop loop;

private:
    std::optional<PointerDevices> devices_;
    std::vector<TrackpadNode> trackpads_; // as last known
    PointerDevices::Reported reported_;
    std::optional<RecordingPlayer> player_;
};

InputReader& InputReader::shared() {
    // Never destroyed: its thread may be in the middle of something when the process ends.
    static InputReader* const reader = [] {
        const char* device = std::getenv("BRIMLOW_TOUCH_DEVICE");
        return new InputReader(device ? device : "");
    }();
    return *reader;
}

InputReader::InputReader(const std::string& touchDevice)
    : sources_(std::make_unique<Sources>(touchDevice)) {}

InputReader::~InputReader() = default;

bool InputReader::available() const {
    return sources_->available();
}

void InputReader::setFrameHandler(FrameHandler handler) {
    sources_->loop.perform([&] { sources_->setFrameHandler(std::move(handler)); });
}

void InputReader::start() {
    sources_->loop.perform([&] { sources_->start(); });
}

void InputReader::stop() {
    sources_->loop.perform([&] { sources_->stop(); });
}

InputReader::ListenerId InputReader::addButtonListener(ButtonHandler handler) {
    ListenerId id = 0;
    sources_->loop.perform([&] { id = sources_->addListener(std::move(handler)); });
    return id;
}

void InputReader::removeButtonListener(ListenerId id) {
    sources_->loop.perform([&] { sources_->removeListener(id); });
}

std::vector<TrackpadNode> InputReader::trackpads() {
    std::vector<TrackpadNode> trackpads;
    sources_->loop.perform([&] { trackpads = sources_->trackpads(); });
    return trackpads;
}

void InputReader::setSessionState(SessionState state) {
    sources_->loop.perform([&] { sources_->setSession(state); });
}

} // namespace brimlow::platform
