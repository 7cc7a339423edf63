#include "tools/desktop/DesktopState.h"

#include "tools/desktop/ChildProcess.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

QStringList lines(const QByteArray& output) {
    return QString::fromUtf8(output).split(u'\n', Qt::SkipEmptyParts);
}

// "0  * DG: 1280x800  VP: 0,0  WA: 0,0 1280x800  one"
void readWorkspaces(const QByteArray& output, DesktopState& state) {
    for (const QString& line : lines(output)) {
        const QStringList words = line.simplified().split(u' ');
        if (words.value(1) == u'*')
            state.currentWorkspace = words[0].toInt();
        ++state.workspaces;
    }
}

// "0x0060000c  0 6401   xterm.XTerm           host title ..."
std::vector<DesktopWindow> readWindows(const QByteArray& output) {
    std::vector<DesktopWindow> windows;
    for (const QString& line : lines(output)) {
        const QStringList words = line.simplified().split(u' ');
        if (words.size() < 4)
            continue;
        windows.push_back({.number = words[0].toUInt(nullptr, 16),
                           .pid = words[2].toLongLong(),
                           .workspace = words[1].toInt(),
                           .className = words[3]});
    }
    return windows;
}

// "_NET_ACTIVE_WINDOW(WINDOW): window id # 0x60000c"
std::uint32_t readActiveWindow(const QByteArray& output) {
    static const QRegularExpression number(u"# (0x[0-9a-fA-F]+)"_s);
    return number.match(QString::fromUtf8(output)).captured(1).toUInt(nullptr, 16);
}

bool isHidden(const QProcessEnvironment& environment, std::uint32_t window) {
    const auto output =
        outputOf(u"xprop"_s, {u"-id"_s, QString::number(window), u"_NET_WM_STATE"_s}, environment);
    return output && output->contains("_NET_WM_STATE_HIDDEN");
}

} // namespace

const DesktopWindow* DesktopState::window(std::uint32_t number) const {
    const auto found = std::ranges::find(windows, number, &DesktopWindow::number);
    return found == windows.end() ? nullptr : &*found;
}

int DesktopState::hiddenWindows() const {
    return static_cast<int>(std::ranges::count_if(windows, &DesktopWindow::hidden));
}

std::optional<DesktopState> readDesktopState(const QProcessEnvironment& environment) {
    const auto workspaces = outputOf(u"wmctrl"_s, {u"-d"_s}, environment);
    if (!workspaces)
        return std::nullopt;
    DesktopState state;
    readWorkspaces(*workspaces, state);
    // It fails where a window manager has written no list yet: then there are no windows.
    if (const auto list = outputOf(u"wmctrl"_s, {u"-lpx"_s}, environment))
        state.windows = readWindows(*list);
    for (DesktopWindow& window : state.windows)
        window.hidden = isHidden(environment, window.number);
    if (const auto active =
            outputOf(u"xprop"_s, {u"-root"_s, u"_NET_ACTIVE_WINDOW"_s}, environment))
        state.activeWindow = readActiveWindow(*active);
    return state;
}

} // namespace brimlow::desktop
