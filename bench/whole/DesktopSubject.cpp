#include "bench/whole/DesktopSubject.h"

#include "tools/desktop/ScratchPreferences.h"

#include <QElapsedTimer>

#include <stdexcept>
#include <thread>

namespace brimlow::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 5000; // ms

std::vector<TapPositionMapping> tenBindings() {
    std::vector<TapPositionMapping> bindings;
    for (const double x : {0.05, 0.95}) {
        for (const double y : {0.1, 0.3, 0.5, 0.7, 0.9})
            bindings.push_back(desktop::bindingAt(u"Spot %1"_s.arg(bindings.size() + 1), x, y,
                                                  TapAction::switchDesktopRight));
    }
    return bindings;
}

} // namespace

DesktopSubject::DesktopSubject() {
    if (!desktop_.start())
        throw std::runtime_error("no desktop to measure on: " + desktop_.error().toStdString());
    desktop::writePreferences(desktop_.environment(), tenBindings());
    panel_.emplace(desktop_.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    panel_->appear();
    panel_->setHost(true);
}

void DesktopSubject::begin(Launch launch) {
    auto environment = desktop_.environment();
    if (launch == Launch::byUser)
        environment.remove(u"BRIMLOW_AUTOSTART"_s);
    for (const auto& [name, value] : input_.environment())
        environment.insert(QString::fromStdString(name), QString::fromStdString(value));
    if (libraries_)
        libraries_->addTo(environment);
    program_ = std::make_unique<desktop::BrimlowProgram>(environment);
    if (const QString refusal = program_->start(); !refusal.isEmpty())
        throw std::runtime_error("the program does not start: " + refusal.toStdString());
}

double DesktopSubject::start(Launch launch) {
    using namespace std::chrono_literals;
    const auto before = panel_->items().size();
    QElapsedTimer time;
    time.start();
    begin(launch);
    for (const auto& line :
         {u"listening"_s, u"tap detection ENABLED"_s, u"click detection active"_s})
        if (program_->waitForLine(line, patience).isNull())
            throw std::runtime_error("the program does not say: " + line.toStdString());
    while (panel_->items().size() == before) {
        if (time.hasExpired(patience))
            throw std::runtime_error("the program puts no icon into the panel");
        std::this_thread::sleep_for(1ms);
    }
    return static_cast<double>(time.nsecsElapsed()) / 1e9;
}

} // namespace brimlow::bench
