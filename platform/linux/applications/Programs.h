#pragma once

#include <QString>

namespace brimlow::platform {

/// Where a program is, whose name is absolute or to be searched in PATH; empty when there is none
/// that can be run. Any thread.
QString findProgram(const QString& name);

/// The file that the kernel will name for a process which runs `program`; empty for interpreters
/// and wrappers, which run all sorts of applications. Any thread.
QString tellingProgram(const QString& program);

} // namespace brimlow::platform
