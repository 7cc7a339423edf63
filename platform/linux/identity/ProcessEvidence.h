#pragma once

#include "platform/linux/identity/ProcessFolder.h"

#include <QByteArrayList>

#include <optional>

namespace brimlow::platform {

/// What a process tells of the application it is part of. Nothing is read before it is asked for,
/// and each answer is empty where there is none: the process may have ended, belong to somebody
/// else or tell nonsense. What it tells may be inherited or made up, so none of it counts unless
/// such an application is installed.
class ProcessEvidence {
public:
    ProcessEvidence(pid_t pid, const QString& procFolder)
        : pid_(pid), procFolder_(procFolder), process_(pid, procFolder) {}

    /// The desktop file that a GLib program started it by.
    QString launchedDesktopFile();
    /// The id in the name of the systemd unit that was made for it.
    QString unitApplication();
    /// The id of the Flatpak application whose sandbox it runs in.
    QString flatpakApplication() const;
    /// The desktop file that snap's launcher names.
    QString hintedDesktopFile();
    /// The id of the snap that it is confined to.
    QString snapApplication() const;
    /// The program it runs, without links; where an update has replaced it, what is there now.
    QString program() const;

private:
    QByteArray variable(QByteArrayView name);

    pid_t pid_;
    QString procFolder_;
    ProcessFolder process_;
    std::optional<QByteArrayList> environment_;
};

/// "/usr/share/applications/editor.desktop" is of "editor".
QString idOfDesktopFile(const QString& file);

} // namespace brimlow::platform
