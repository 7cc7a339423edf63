#pragma once

#include "platform/DesktopEntry.h"
#include "platform/linux/applications/EntryFiles.h"

#include <optional>

namespace brimlow::platform {

/// What came of reading one file.
struct EntryReading {
    std::optional<DesktopEntry> entry = {}; // absent when the file stands for no application
    QString complaint = {};                 // where it is broken: one clause
    QString missingProgram = {};            // the program, as the file names it, that it waits for
};

/// Reads a desktop entry. Any thread.
EntryReading readEntry(const EntryFile& file);

} // namespace brimlow::platform
