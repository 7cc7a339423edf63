#pragma once

#include "tools/desktop/BrimlowProgram.h"
#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadScript.h"

#include <QTemporaryDir>

#include <memory>

namespace brimlow::bench {

/// The built program on a mocked trackpad, with fresh preferences and no desktop.
class Subject {
public:
    Subject();

    /// Starts the program and waits until it listens; seconds that took. Throws when it does not.
    double start();
    void stop() { program_.reset(); }

    desktop::BrimlowProgram& program() { return *program_; }
    platform::MockedPad& pad() { return pad_; }
    const platform::MockedInput& input() const { return input_; }
    const QProcessEnvironment& environment() const { return environment_; }

private:
    QTemporaryDir home_;
    platform::MockedInput input_;
    platform::MockedPad pad_{input_, platform::ordinaryTrackpad(), 5};
    QProcessEnvironment environment_;
    std::unique_ptr<desktop::BrimlowProgram> program_;
};

// Each prints its own lines.
void measureStart(int rounds);
void measureStartInTray(int rounds);
void measureFirstPaint(int rounds);
void measureIdle(int seconds);
void measureIdleInTray(int seconds);
void measureWindowMemory();
void measureLatency(int taps);
void measureReplay(int frames);

} // namespace brimlow::bench
