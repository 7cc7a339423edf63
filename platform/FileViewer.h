#pragma once

#include <QString>

namespace brimlow::platform {

/// Shows files to the user. Main thread.
class FileViewer {
public:
    virtual ~FileViewer() = default;

    /// Opens the folder of the file at `path` with that file selected. Returns at once; a failure
    /// is told on standard error.
    virtual void reveal(const QString& path) = 0;
};

} // namespace brimlow::platform
