#pragma once

#include "tools/desktop/ChildProcess.h"

#include <memory>

namespace brimlow::desktop {

/// A session bus of its own that starts no service by itself but those it is told of and
/// those of the environment's own data folder, so that what
/// else this machine has installed, such as a portal, changes nothing.
class PrivateBus {
public:
    /// Its socket and its configuration go into `folder`.
    explicit PrivateBus(const QString& folder) : folder_(folder) {}

    /// Services by the names of theirs on the bus; one that is not installed is left out. Empty
    /// when it runs, else why it does not.
    QString start(const QProcessEnvironment& environment, const QStringList& services = {});
    QString address() const { return QStringLiteral("unix:path=%1/session-bus").arg(folder_); }
    void stop() { daemon_.reset(); }

private:
    QString configure(const QProcessEnvironment& environment, const QStringList& services) const;

    QString folder_;
    std::unique_ptr<ChildProcess> daemon_;
};

} // namespace brimlow::desktop
