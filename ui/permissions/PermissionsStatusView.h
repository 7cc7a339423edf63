#pragma once

#include "permissions/PermissionsManager.h"
#include "ui/Refresh.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace brimlow {

class PermissionRow;

namespace controls {
class Banner;
}

/// The page on the permissions that Brimlow needs: whether they are granted, how to get them, and
/// how to start all over. Accessibility follows the manager; Screen Recording is read by this page
/// only. What a press has begun goes on without the page.
class PermissionsStatusView : public QWidget {
    Q_OBJECT

public:
    /// `terminate` asks the application to end; it may be called after this is gone.
    PermissionsStatusView(PermissionsManager& permissions, std::function<void()> terminate,
                          QWidget* parent = nullptr);

    /// Reads all that can be read. Also whenever the page is shown.
    void recheck();
    /// Forgets all permissions without asking, then ends the application; tells when that failed.
    void runReset();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeColumn();
    controls::Banner* makeStuckBanner();
    QWidget* makeTroubleshooting();
    QWidget* makeHelp();
    PermissionRow* permissionRow(const QString& icon, const QString& title,
                                 const QString& description, std::optional<bool> granted,
                                 const QString& settingsURL,
                                 const std::function<void()>& grantAction);

    void grant(const QString& settingsURL, const std::function<void()>& grantAction);
    void confirmReset();
    void tellResetFailed();
    void showState();

    PermissionsManager& permissions_;
    std::function<void()> terminate_;
    bool screenRecordingGranted_;
    bool stuck_ = false; // at the last re-check
    // A dialog is open.
    bool confirmingReset_ = false;
    bool resetFailedAlert_ = false;

    controls::Banner* stuckBanner_;
    PermissionRow* accessibility_;
    PermissionRow* screenRecording_;
    Refresh refresh_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
