#pragma once

#include "ui/files/FileDialogs.h"
#include "ui/files/PortalFileChooser.h"

#include <QDBusConnection>
#include <QObject>

namespace brimlow {

/// The portal's dialogs where that bus has a portal for files, else Qt's, which are the desktop's
/// own where Qt has a theme for it. Never waits for the bus.
class DesktopFileDialogs final : public FileDialogs {
public:
    explicit DesktopFileDialogs(QDBusConnection bus) : bus_(std::move(bus)) {}

    void save(const Request& request, Done done) override;
    void open(const Request& request, Done done) override;

private:
    void ask(FileTask task, Request request, const Done& done);
    void askWithQt(FileTask task, const Request& request, const Done& done);
    /// The dialog does not outlive this.
    void tie(QWidget* dialog);

    QDBusConnection bus_;
    QObject lifetime_;
};

} // namespace brimlow
