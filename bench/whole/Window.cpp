#include "bench/whole/DesktopSubject.h"
#include "bench/whole/Process.h"
#include "bench/whole/Subject.h"
#include "bench/whole/Table.h"
#include "bench/whole/WindowWitness.h"

#include <QElapsedTimer>
#include <QPoint>

#include <stdexcept>

namespace brimlow::bench {

using namespace Qt::StringLiterals;
using Launch = DesktopSubject::Launch;

namespace {

constexpr int settling = 2500; // ms, until the program has given back what it does not need
constexpr QPoint tapInSidebar{60, 59};

void demand(bool came, const char* what) {
    if (!came)
        throw std::runtime_error(std::string("it does not come to this: ") + what);
}

} // namespace

void measureFirstPaint(int rounds) {
    DesktopSubject subject;
    WindowWitness witness(subject.desktop().displayName());
    std::vector<double> milliseconds;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer time;
        time.start();
        subject.begin(Launch::byUser);
        demand(witness.waitForPaint(), "a window is painted");
        milliseconds.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6);
        subject.stop();
        demand(witness.waitForNoWindow(), "the window is gone");
    }
    report(u"start by the user to the window's first paint, median of %1"_s.arg(rounds),
           u"%1 ms"_s.arg(percentile(milliseconds, 0.5), 0, 'f', 1), u"at most 350 ms"_s);
}

void measureWindowMemory() {
    DesktopSubject subject;
    subject.giveOwnLibraries();
    WindowWitness witness(subject.desktop().displayName());
    const auto reportNow = [&](const QString& what, const QString& limit) {
        subject.program().readFor(settling);
        reportMemory(what, memoryOf(subject.program().pid()), limit);
    };
    subject.start(Launch::byUser);
    demand(witness.waitForPaint(), "a window is painted");
    reportNow(u"window open, General"_s, u"at most 35 MB"_s);
    const QByteArray general = witness.lines();
    demand(subject.desktop().run(u"xdotool"_s,
                                 {u"mousemove"_s, u"--window"_s, QString::number(witness.window()),
                                  QString::number(tapInSidebar.x()),
                                  QString::number(tapInSidebar.y()), u"click"_s, u"1"_s})
               && witness.waitForChange(general),
           "another page is shown");
    reportNow(u"window open, Tap with ten bindings"_s, u"at most 35 MB"_s);
    demand(subject.desktop().run(u"wmctrl"_s, {u"-F"_s, u"-c"_s, u"Brimlow"_s})
               && witness.waitForNoWindow(),
           "the window is closed");
    reportNow(u"window closed again"_s, u"at most 20 MB"_s);
}

} // namespace brimlow::bench
