#include "bench/whole/Subject.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace brimlow::bench {

using namespace Qt::StringLiterals;

Subject::Subject() : environment_(QProcessEnvironment::systemEnvironment()) {
    for (const auto& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"BRIMLOW_TOUCH_DEVICE"_s})
        environment_.remove(name);
    environment_.insert(u"HOME"_s, home_.path());
    environment_.insert(u"XDG_CONFIG_HOME"_s, home_.path());
    for (const auto& [name, value] : input_.environment())
        environment_.insert(QString::fromStdString(name), QString::fromStdString(value));
}

double Subject::start() {
    program_ = std::make_unique<desktop::BrimlowProgram>(environment_);
    QElapsedTimer time;
    time.start();
    const QString refusal = program_->start();
    if (!refusal.isEmpty() || program_->waitForLine(u"listening"_s).isNull())
        throw std::runtime_error("the program does not come up: " + refusal.toStdString());
    return static_cast<double>(time.nsecsElapsed()) / 1e9;
}

double percentile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    const auto last = static_cast<double>(values.size() - 1);
    return values.at(static_cast<std::size_t>(std::lround(last * share)));
}

void report(const QString& what, const QString& figure, const QString& limit) {
    std::printf("%-64s %16s   %s\n", qUtf8Printable(what), qUtf8Printable(figure),
                qUtf8Printable(limit));
    std::fflush(stdout);
}

} // namespace brimlow::bench
