#include "bench/whole/Table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace brimlow::bench {

using namespace Qt::StringLiterals;

namespace {

QString megabytes(qint64 kilobytes) {
    return u"%1 MB"_s.arg(static_cast<double>(kilobytes) / 1024, 0, 'f', 1);
}

} // namespace

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

void reportMemory(const QString& when, const Memory& memory, const QString& limit) {
    report(u"private memory, "_s + when, megabytes(memory.own), limit);
    report(u"  of it written to"_s, megabytes(memory.written), {});
    // What another program maps as well counts as private in neither.
    report(u"  resident memory, shared libraries included"_s, megabytes(memory.resident), {});
}

} // namespace brimlow::bench
