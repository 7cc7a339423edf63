#pragma once

#include "bench/whole/Process.h"

#include <QString>

#include <vector>

namespace brimlow::bench {

/// The value below which `share` (0…1) of the values lie.
double percentile(std::vector<double> values, double share);

/// One line of the table: what was measured, the figure, the limit.
void report(const QString& what, const QString& figure, const QString& limit);

/// The lines on the private memory of a process.
void reportMemory(const QString& when, const Memory& memory, const QString& limit);

} // namespace brimlow::bench
