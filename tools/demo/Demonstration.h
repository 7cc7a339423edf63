#pragma once

#include "tools/demo/DemoSteps.h"
#include "tools/desktop/BrimlowProgram.h"
#include "tools/desktop/PrivateDesktop.h"

#include <QElapsedTimer>

#include <optional>

namespace brimlow::desktop {

/// What the window manager said around one step.
struct DemoResult {
    DemoStep step;
    DesktopState before;
    DesktopState after;
    bool logged = false;   // the program said that it did it
    bool happened = false; // the window manager says that it is so
};

/// The program on a desktop of its own, with a recording for a trackpad.
class Demonstration {
public:
    Demonstration(QString program, QString recording, QString pictureFolder);

    /// Opens the desktop, some windows and the program; empty, or why that fails.
    QString prepare();
    /// Follows the recording to its end, or to the program's. Takes as long as the recording.
    std::vector<DemoResult> run();
    /// Starts the program once more, which has the first one show its window; closes it again.
    /// False when it does not come or go, or when the program has ended.
    bool showMainWindow();
    /// Whether the program ended when it was asked to.
    bool finish();

private:
    QString openWindows();
    std::uint32_t openTerminal(const QString& title, const QString& text, int workspace);
    DemoResult runStep(const DemoStep& step);
    void focusApplication();
    bool ownWindowInFront(const DesktopState& now) const;
    /// Without the program's own windows.
    DesktopState applicationsState() const;
    void takePicture(const QString& name);

    PrivateDesktop desktop_{WindowManager::openbox};
    QString program_;
    QString recording_;
    QString pictureFolder_;
    std::optional<BrimlowProgram> brimlow_;
    DemoWindows windows_;
    QElapsedTimer sinceStart_;
};

} // namespace brimlow::desktop
