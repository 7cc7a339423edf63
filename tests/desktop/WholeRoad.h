#pragma once

#include "tests/desktop/X11Desktop.h"
#include "tools/desktop/BrimlowProgram.h"
#include "tools/desktop/ScratchPreferences.h"
#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadScript.h"

#include <QFile>

#include <unistd.h>

namespace brimlow::desktop {

/// From the fingers on a kernel device to what the window manager says: the real program on a real
/// desktop, with preferences of its own.
class WholeRoad : public X11Desktop {
protected:
    void start(const std::vector<TapPositionMapping>& bindings) {
        writePreferences(desktop.environment(), bindings, profileName);
        auto environment = programEnvironment();
        for (const auto& [name, value] : input.environment())
            environment.insert(QString::fromStdString(name), QString::fromStdString(value));
        program.emplace(environment, launcher);
        ASSERT_EQ(program->start(), QString());
        ASSERT_TRUE(says(QStringLiteral("click detection active")));
    }

    virtual QProcessEnvironment programEnvironment() const { return desktop.environment(); }

    /// The program may do what its user may, also where the test is run by root.
    void dropRootsPowers() {
        if (::geteuid() != 0)
            return;
        launcher = desktop.home() + QStringLiteral("/launch");
        QFile script(launcher);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nexec setpriv --bounding-set=-all --inh-caps=-all \""
                     + BrimlowProgram::builtProgram().toUtf8() + "\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    bool hasWindow() const { return programWindow() != 0; }
    bool comesTrue(const std::function<bool()>& holds) {
        return desktop.waitFor([&](const DesktopState&) { return holds(); });
    }
    bool says(const QString& line) { return !program->waitForLine(line, 10000).isEmpty(); }

    /// A window of the program's; 0 as long as it has none.
    std::uint32_t programWindow() const {
        const auto state = desktop.state();
        for (const DesktopWindow& window : state ? state->windows : std::vector<DesktopWindow>())
            if (window.pid == program->pid())
                return window.number;
        return 0;
    }

    /// After a pause, because two taps within 0.3 s count as one.
    void tap(platform::PadPoint point, double pause = 0.35) {
        pad.play(platform::PadScript().tap(point, pause).events());
    }

    platform::MockedInput input;
    platform::MockedPad pad{input, platform::ordinaryTrackpad(), 5};
    QString profileName = QStringLiteral("Scratch");
    QString launcher; // empty for the program itself
    std::optional<BrimlowProgram> program;
};

} // namespace brimlow::desktop
