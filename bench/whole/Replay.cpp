#include "bench/whole/Subject.h"
#include "bench/whole/Table.h"

#include <QFile>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace brimlow::bench {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

/// User time of a running process, in seconds.
double userTime(qint64 pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
    std::string text((std::istreambuf_iterator<char>(file)), {});
    std::istringstream fields(text.substr(text.rfind(')') + 2)); // the name may hold anything
    std::string skipped;
    for (int field = 3; field < 14; ++field)
        fields >> skipped;
    long ticks = 0;
    fields >> ticks;
    return static_cast<double>(ticks) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// Five fingers that move: every frame changes all of them.
std::vector<input_event> fiveFingers(int frames) {
    PadScript script;
    const double duration = frames * 0.008;
    for (int finger = 0; finger < 5; ++finger)
        script.drag({0.1 + 0.15 * finger, 0.2}, {0.2 + 0.15 * finger, 0.8}, 0.1, duration);
    return script.events();
}

/// Plays the frames, faster than real time, to whoever reads the pad.
void play(MockedPad& pad, const std::vector<input_event>& events) {
    using namespace std::chrono_literals;
    auto frame = events.begin();
    for (auto event = events.begin(); event != events.end(); ++event) {
        if (event->type != EV_SYN || event->code != SYN_REPORT)
            continue;
        pad.write(std::span(frame, event + 1));
        frame = event + 1;
        std::this_thread::sleep_for(3ms);
    }
    std::this_thread::sleep_for(200ms);
}

/// libinput compares the open node's device number with udev's, and wants udev's data base; both
/// are given to it here, in a mount name space of its own.
QString libinputScript(const MockedInput& input, const std::string& node) {
    const std::filesystem::path root = input.root();
    struct stat status {};
    if (stat((root.string() + node).c_str(), &status) != 0)
        throw std::runtime_error("the mocked node is not there");
    const auto number =
        std::to_string(major(status.st_rdev)) + ':' + std::to_string(minor(status.st_rdev));
    const auto name = std::filesystem::path(node).filename();
    const auto links = root / "sys/dev/char";
    const auto device = std::filesystem::canonical(root / "sys/class/input" / name);
    std::filesystem::create_directories(links);
    std::filesystem::create_directory_symlink(std::filesystem::relative(device, links),
                                              links / number);
    std::ofstream(device / "dev") << number << '\n';
    std::ofstream(device / "uevent")
        << "DEVNAME=" << node.substr(5) << "\nMAJOR=" << major(status.st_rdev)
        << "\nMINOR=" << minor(status.st_rdev) << "\nID_INPUT=1\nID_INPUT_TOUCHPAD=1\n";
    return u"mount -t tmpfs none /run && mkdir -p /run/udev/data && "
           u"printf 'I:1000\\nE:ID_INPUT=1\\nE:ID_INPUT_TOUCHPAD=1\\nE:ID_INPUT_WIDTH_MM=100\\n"
           u"E:ID_INPUT_HEIGHT_MM=62\\nE:ID_SEAT=seat0\\nG:seat\\n' > /run/udev/data/c%1 && "
           u"touch /run/udev/control && "
           u"LD_PRELOAD=libumockdev-preload.so.0 exec libinput debug-events --quiet"_s.arg(
               QString::fromStdString(number));
}

double libinputUserTime(Subject& subject, const std::vector<input_event>& events) {
    auto environment = subject.environment();
    environment.remove(u"LD_PRELOAD"_s); // for libinput alone
    const QString flags = geteuid() == 0 ? u"-m"_s : u"-rm"_s;
    desktop::ChildProcess libinput(
        u"unshare"_s,
        {flags, u"sh"_s, u"-c"_s, libinputScript(subject.input(), subject.pad().node())},
        environment);
    libinput.process().setProcessChannelMode(QProcess::ForwardedErrorChannel);
    if (const QString refusal = libinput.start(); !refusal.isEmpty())
        throw std::runtime_error(refusal.toStdString());
    if (libinput.process().waitForFinished(1000)) // nobody would read what is played
        throw std::runtime_error("libinput does not run on the mocked pad");
    play(subject.pad(), events);
    return userTime(libinput.pid());
}

} // namespace

void measureReplay(int frames) {
    Subject subject;
    const auto events = fiveFingers(frames);
    subject.start();
    subject.program().readFor(500);
    play(subject.pad(), events);
    const double ours = userTime(subject.program().pid());
    subject.stop();
    const double theirs = libinputUserTime(subject, events);
    report(u"user time of a replay of %1 frames of five contacts"_s.arg(frames),
           u"%1 s"_s.arg(ours, 0, 'f', 2), u"at most libinput's"_s);
    report(u"  libinput debug-events --quiet on the same pad"_s, u"%1 s"_s.arg(theirs, 0, 'f', 2),
           {});
}

} // namespace brimlow::bench
