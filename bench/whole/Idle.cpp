#include "bench/whole/DesktopSubject.h"
#include "bench/whole/Process.h"
#include "bench/whole/Subject.h"
#include "bench/whole/Table.h"

namespace brimlow::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int settling = 2500; // ms until everything of the start is over, a first poll included

qint64 wakeUpsIn(int seconds, desktop::BrimlowProgram& program) {
    program.readFor(settling);
    const qint64 before = wakeUps(program.pid());
    program.readFor(seconds * 1000);
    return wakeUps(program.pid()) - before;
}

void reportIdle(const QString& where, int seconds, desktop::BrimlowProgram& program) {
    const qint64 count = wakeUpsIn(seconds, program);
    report(u"wake-ups of all threads, idle for %1 s (%2 polls), %3"_s.arg(seconds)
               .arg(seconds / 2)
               .arg(where),
           QString::number(count), u"the 2.0 s poll only"_s);
    reportMemory(u"idle, "_s + where, memoryOf(program.pid()), u"at most 20 MB"_s);
}

} // namespace

void measureIdle(int seconds) {
    Subject subject;
    subject.start();
    reportIdle(u"no display"_s, seconds, subject.program());
}

void measureIdleInTray(int seconds) {
    DesktopSubject subject;
    subject.start(DesktopSubject::Launch::atLogin);
    reportIdle(u"in the tray"_s, seconds, subject.program());
    subject.stop();
    subject.giveOwnLibraries();
    subject.start(DesktopSubject::Launch::atLogin);
    subject.program().readFor(settling);
    reportMemory(u"idle, in the tray, the only Qt program"_s, memoryOf(subject.program().pid()),
                 u"at most 20 MB"_s);
}

} // namespace brimlow::bench
