#include "tools/demo/Demonstration.h"

#include <QDir>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

constexpr int patience = 10000;   // ms that a step may come late on a loaded machine
constexpr int settleLimit = 3000; // ms for the window manager to follow
constexpr int paintLimit = 500;   // ms for a window that is in front to be painted

// What the windows hold: their pictures are shown to people.
const QString releaseLog = u"$ make release 2>&1 | tee release.log\n"
                           "[211/214] Compiling player.c\n"
                           "[212/214] Compiling waveform.c\n"
                           "[213/214] Linking studio\n"
                           "[214/214] Packing studio-2.4.tar.gz\n"
                           "Built in 48 s, all 96 checks passed.\n"_s;
const QString inbox = u"  1   09:12  Design      Icons for the release\n"
                      "  2 N 09:40  Packaging   Studio 2.4 is ready to upload\n"
                      "  3 N 10:05  Calendar    Review at eleven\n"_s;
constexpr auto notesText = "Release 2.4\n\n"
                           "- icons in both sizes\n"
                           "- upload once the build is through\n"
                           "- tell the list, thank the translators\n";

void say(const QString& text) {
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

} // namespace

Demonstration::Demonstration(QString program, QString recording, QString pictureFolder)
    : program_(std::move(program)), recording_(std::move(recording)),
      pictureFolder_(std::move(pictureFolder)) {}

QString Demonstration::prepare() {
    if (!desktop_.start())
        return desktop_.error();
    if (const QString why = openWindows(); !why.isEmpty())
        return why;
    QDir().mkpath(pictureFolder_);
    writePreferences(desktop_.environment(), demoBindings(windows_));

    auto environment = desktop_.environment();
    environment.insert(u"BRIMLOW_TOUCH_DEVICE"_s, recording_);
    brimlow_.emplace(environment, program_);
    brimlow_->onLine = [](const QString& line) { say(u"  "_s + line); };
    if (const QString why = brimlow_->start(); !why.isEmpty())
        return why;
    sinceStart_.start();
    if (brimlow_->waitForLine(u"tap detection ENABLED"_s, patience).isEmpty())
        return u"the program does not come up"_s;
    takePicture(u"0 start"_s);
    return {};
}

QString Demonstration::openWindows() {
    desktop_.run(u"xsetroot"_s, {u"-solid"_s, u"#5b7590"_s});
    windows_.build = openTerminal(u"build — release.log"_s, releaseLog, 2);
    windows_.inbox = openTerminal(u"Inbox — Work"_s, inbox, 3);
    const QString notes = desktop_.home() + u"/notes.txt"_s;
    QFile file(notes);
    if (!file.open(QIODevice::WriteOnly) || file.write(notesText) < 0 || !file.flush())
        return u"%1 cannot be written"_s.arg(notes);
    windows_.editor = desktop_.openWindow(u"mousepad"_s, {notes});
    windows_.shell = openTerminal(u"shell"_s, {}, 0);
    return windows_.build && windows_.inbox && windows_.editor && windows_.shell ? QString()
                                                                                 : desktop_.error();
}

std::uint32_t Demonstration::openTerminal(const QString& title, const QString& text,
                                          int workspace) {
    const auto number = desktop_.openWindow(
        u"xterm"_s, {u"-T"_s, title, u"-fa"_s, u"Monospace"_s, u"-fs"_s, u"11"_s, u"-bg"_s,
                     u"#1e2430"_s, u"-fg"_s, u"#d8dee9"_s, u"-e"_s, u"sh"_s, u"-c"_s,
                     u"printf %s \"$1\"; PS1='$ ' exec sh"_s, u"sh"_s, text});
    desktop_.run(u"wmctrl"_s,
                 {u"-i"_s, u"-r"_s, QString::number(number), u"-t"_s, QString::number(workspace)});
    const bool moved = desktop_.waitFor([&](const DesktopState& now) {
        const auto* window = now.window(number);
        return window && window->workspace == workspace;
    });
    return moved ? number : 0;
}

std::vector<DemoResult> Demonstration::run() {
    std::vector<DemoResult> results;
    for (const DemoStep& step : demoSteps(windows_)) {
        results.push_back(runStep(step));
        takePicture(QString::number(results.size()) + u' ' + step.gesture);
        if (brimlow_->pid() == 0)
            break; // it has ended, and nothing more will come of it
    }
    return results;
}

DemoResult Demonstration::runStep(const DemoStep& step) {
    focusApplication();
    DemoResult result;
    result.step = step;
    result.before = applicationsState();
    const qsizetype firstLine = brimlow_->lines().size();
    const auto due = static_cast<int>(step.at * 1000) - static_cast<int>(sinceStart_.elapsed());
    const int limit = std::max(due, 0) + patience;
    result.logged = !brimlow_->waitForLine(step.logLine, limit).isEmpty();
    // Nothing else may have been done on the way there.
    const auto said = brimlow_->lines().sliced(firstLine);
    result.logged = result.logged && std::ranges::none_of(said, [&](const QString& line) {
                        return line.contains(u"matched '"_s)
                               && !line.contains(u"matched '%1'"_s.arg(step.gesture));
                    });

    desktop_.waitFor(
        [&](const DesktopState&) {
            result.after = applicationsState();
            result.happened = step.happened(result.before, result.after);
            return result.happened;
        },
        settleLimit);
    return result;
}

// As a user would before going on, should the program's own window have come to the front.
void Demonstration::focusApplication() {
    const auto now = desktop_.state();
    if (!now || !ownWindowInFront(*now))
        return;
    desktop_.run(u"wmctrl"_s, {u"-i"_s, u"-a"_s, QString::number(windows_.shell)});
    desktop_.waitFor(
        [&](const DesktopState& state) { return state.activeWindow == windows_.shell; });
}

bool Demonstration::ownWindowInFront(const DesktopState& now) const {
    const auto* active = now.window(now.activeWindow);
    return active && active->pid == brimlow_->pid();
}

bool Demonstration::showMainWindow() {
    // As a user starts it, not as the desktop does at login.
    if (brimlow_->pid() == 0
        || !desktop_.run(u"env"_s, {u"-u"_s, u"BRIMLOW_AUTOSTART"_s, program_}))
        return false;
    const auto inFront = [this](const DesktopState& now) { return ownWindowInFront(now); };
    if (!desktop_.waitFor(inFront, patience))
        return false;
    brimlow_->readFor(paintLimit);
    takePicture(u"main window"_s);
    return desktop_.run(u"xdotool"_s, {u"key"_s, u"ctrl+w"_s})
           && desktop_.waitFor([&](const DesktopState& now) { return !inFront(now); });
}

DesktopState Demonstration::applicationsState() const {
    auto state = desktop_.state().value_or(DesktopState());
    std::erase_if(state.windows,
                  [&](const DesktopWindow& window) { return window.pid == brimlow_->pid(); });
    return state;
}

void Demonstration::takePicture(const QString& name) {
    const QString file = pictureFolder_ + u'/' + QString(name).replace(u' ', u'-') + u".png"_s;
    say(desktop_.screenshot(file) ? u"  [picture: %1]"_s.arg(file)
                                  : u"  [no picture: maim failed]"_s);
}

bool Demonstration::finish() {
    return brimlow_ && brimlow_->stop();
}

} // namespace brimlow::desktop
