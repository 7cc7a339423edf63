#include "bench/whole/DesktopSubject.h"
#include "bench/whole/Subject.h"
#include "bench/whole/Table.h"

namespace brimlow::bench {

using namespace Qt::StringLiterals;

void measureStart(int rounds) {
    Subject subject;
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        seconds.push_back(subject.start());
        subject.stop();
    }
    report(u"start to \"listening\", median of %1"_s.arg(rounds),
           u"%1 ms"_s.arg(percentile(seconds, 0.5) * 1000, 0, 'f', 1), u"at most 150 ms"_s);
}

void measureStartInTray(int rounds) {
    DesktopSubject subject;
    std::vector<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        seconds.push_back(subject.start(DesktopSubject::Launch::atLogin));
        subject.stop();
    }
    report(u"start to tray icon, taps and clicks, median of %1"_s.arg(rounds),
           u"%1 ms"_s.arg(percentile(seconds, 0.5) * 1000, 0, 'f', 1), u"at most 250 ms"_s);
}

} // namespace brimlow::bench
