#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace brimlow::platform {

/// A program that is run to its end, with our environment and our output streams. The system's
/// "/usr/bin/tccutil" means the auxiliary program "tccutil" of the main bundle; any other path is
/// started as it stands.
class NSTask {
public:
    struct Ending {
        /// Absent when the program could not be started. One that a signal killed has 128 and the
        /// signal's number.
        std::optional<int> terminationStatus;
        QString error; // why it could not be started, one clause
    };

    /// Blocks the calling thread meanwhile. Any thread.
    static Ending run(const QString& launchPath, const QStringList& arguments);
};

} // namespace brimlow::platform
