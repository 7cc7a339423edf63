#include "bench/whole/Subject.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <exception>

using namespace brimlow::bench;

/// Measures the built program from outside: whole-process-benchmark [TAPS]
int main(int argc, char* argv[]) {
    const int taps = argc > 1 ? std::atoi(argv[1]) : 1000; // NOLINT(cert-err34-c)
    if (argc > 2 || taps < 1) {
        std::fprintf(stderr, "usage: %s [TAPS]\n", argv[0]);
        return 2;
    }
    const QCoreApplication application(argc, argv);
    try {
        measureStart(20);
        measureStartInTray(20);
        measureFirstPaint(20);
        measureIdle(20);
        measureIdleInTray(20);
        measureWindowMemory();
        measureReplay(10'000);
        measureLatency(taps);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}
