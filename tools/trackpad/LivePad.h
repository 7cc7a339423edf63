#pragma once

#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadComposer.h"

#include <QObject>
#include <QTimer>

namespace brimlow::trackpad {

/// Has a mocked trackpad report fingers as they move, as the kernel would: in frames, at a pad's
/// rate, for as long as anything touches.
class LivePad : public QObject {
    Q_OBJECT

public:
    /// `input` outlives it.
    explicit LivePad(platform::MockedInput& input);

    /// What touches from now on. Each finger stays for a few frames at least: a mouse can be
    /// quicker than a fingertip.
    void setFingers(const std::vector<platform::PadFinger>& fingers);

Q_SIGNALS:
    /// So much was written that nobody has read that no more can be.
    void unheard();

private:
    struct Touch {
        platform::PadFinger finger;
        int frames = 0; // that have told of it
        bool lifted = false;
    };

    void sendFrame();
    void write(const std::vector<input_event>& events);

    platform::MockedPad pad_;
    platform::PadComposer composer_;
    std::vector<Touch> touches_;
    QTimer frames_;
};

} // namespace brimlow::trackpad
