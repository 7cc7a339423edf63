#pragma once

#include <QString>

namespace brimlow::platform {

/// Where a program is that a desktop entry names, absolute or to be searched in PATH, or below the
/// entry's working folder; empty when there is none that can be run. Any thread.
QString findProgram(const QString& name, const QString& workingFolder);

/// The file that the kernel will name for a process which runs `program`; empty for interpreters
/// and wrappers, which run all sorts of applications. Any thread.
QString tellingProgram(const QString& program);

} // namespace brimlow::platform
