#include "bench/whole/Process.h"

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

} // namespace

qint64 wakeUps(qint64 pid) {
    qint64 sum = 0;
    const QDir threads(u"/proc/%1/task"_s.arg(pid));
    for (const auto& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += sumOf(contentsOf(threads.filePath(thread + u"/status"_s)),
                     u"voluntary_ctxt_switches"_s);
    return sum;
}

Memory memoryOf(qint64 pid) {
    const QString text = contentsOf(u"/proc/%1/smaps_rollup"_s.arg(pid));
    return {.own = sumOf(text, u"Private_Clean"_s) + sumOf(text, u"Private_Dirty"_s),
            .written = sumOf(text, u"Anonymous"_s),
            .resident = sumOf(text, u"Rss"_s)};
}

} // namespace brimlow::bench
