#include "bench/whole/Subject.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace brimlow::bench {

using namespace Qt::StringLiterals;

namespace {

QString contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The sum of the numbers behind `label` in a file of /proc.
qint64 sumOf(const QString& text, const QString& label) {
    qint64 sum = 0;
    const QRegularExpression line(u"^%1:?\\s+(\\d+)"_s.arg(label),
                                  QRegularExpression::MultilineOption);
    for (const auto& match : line.globalMatch(text))
        sum += match.captured(1).toLongLong();
    return sum;
}

/// How often the threads of a process went to sleep by themselves: once for each time they woke.
qint64 wakeUps(qint64 pid) {
    qint64 sum = 0;
    const QDir threads(u"/proc/%1/task"_s.arg(pid));
    for (const auto& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += sumOf(contentsOf(threads.filePath(thread + u"/status"_s)),
                     u"voluntary_ctxt_switches"_s);
    return sum;
}

} // namespace

void measureIdle(int seconds) {
    Subject subject;
    subject.start();
    subject.program().readFor(2500);
    const qint64 pid = subject.program().pid();
    const qint64 before = wakeUps(pid);
    subject.program().readFor(seconds * 1000);
    const qint64 after = wakeUps(pid);
    report(u"wake-ups of all threads, idle for %1 s (%2 polls)"_s.arg(seconds).arg(seconds / 2),
           QString::number(after - before), u"the 2.0 s poll only"_s);

    const QString memory = contentsOf(u"/proc/%1/smaps_rollup"_s.arg(pid));
    const qint64 kilobytes = sumOf(memory, u"Private_Clean"_s) + sumOf(memory, u"Private_Dirty"_s);
    report(u"private memory, idle"_s,
           u"%1 MB"_s.arg(static_cast<double>(kilobytes) / 1024, 0, 'f', 1), u"at most 20 MB"_s);
    // What another program maps as well counts as private in neither.
    report(u"  resident memory, shared libraries included"_s,
           u"%1 MB"_s.arg(static_cast<double>(sumOf(memory, u"Rss"_s)) / 1024, 0, 'f', 1), {});
}

} // namespace brimlow::bench
