#pragma once

#include "ui/files/FileDialogs.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QVariantMap>
#include <QWidget>

namespace brimlow {

enum class FileTask { open, save };

/// One file dialog of the desktop's portal, for one request; main thread. The dialog is another
/// process', so this stands in for it: a window that is never seen, a child of the request's parent
/// window, which waits for it. Emits one signal, once, and has let the parent go on by then.
/// Destroying this closes the dialog.
class PortalFileChooser final : public QWidget {
    Q_OBJECT

public:
    PortalFileChooser(QDBusConnection bus, FileTask task, const FileDialogs::Request& request);
    ~PortalFileChooser() override;

Q_SIGNALS:
    void answered(const brimlow::FileDialogs::Answer& answer);
    /// No portal of this bus shows file dialogs, or none in time.
    void unavailable();

private Q_SLOTS:
    void takeResponse(uint code, const QVariantMap& results);
    /// The portal, or the bus, is gone.
    void lose();

private:
    void ask(FileTask task, const FileDialogs::Request& request);
    void takeReply(const QDBusMessage& reply);
    void closeDialog();
    void listenTo(const QString& requestPath);
    /// False where it is over already.
    bool finish();

    QDBusConnection bus_;
    QDBusServiceWatcher portal_;
    QString requestPath_; // the dialog's object in the portal
    bool shown_ = false;
    bool finished_ = false;
};

} // namespace brimlow
