#pragma once

#include "bench/whole/OwnLibraries.h"
#include "tools/desktop/BrimlowProgram.h"
#include "tools/desktop/Panel.h"
#include "tools/desktop/PrivateDesktop.h"
#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadScript.h"

#include <memory>
#include <optional>

namespace brimlow::bench {

/// The built program on a mocked trackpad and a desktop of its own, under openbox and with a panel;
/// its user has ten bindings. Wants an application object.
class DesktopSubject {
public:
    enum class Launch { atLogin, byUser };

    /// Throws when there can be no such desktop.
    DesktopSubject();

    /// From the next start on the program has Qt to itself.
    void giveOwnLibraries() { libraries_.emplace(desktop::BrimlowProgram::builtProgram()); }

    /// Starts the program and waits until its taps work and its icon is in the panel; seconds that
    /// took. Throws when it does not come up.
    double start(Launch launch);
    /// Only starts it.
    void begin(Launch launch);
    void stop() { program_.reset(); }

    desktop::BrimlowProgram& program() { return *program_; }
    desktop::PrivateDesktop& desktop() { return desktop_; }

private:
    desktop::PrivateDesktop desktop_{desktop::WindowManager::openbox};
    platform::MockedInput input_;
    platform::MockedPad pad_{input_, platform::ordinaryTrackpad(), 5};
    std::optional<desktop::Panel> panel_;
    std::optional<OwnLibraries> libraries_;
    std::unique_ptr<desktop::BrimlowProgram> program_;
};

} // namespace brimlow::bench
