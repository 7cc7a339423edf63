#include "bench/whole/Subject.h"

#include <QElapsedTimer>

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

} // namespace brimlow::bench
