#pragma once

#include "platform/SystemSettings.h"
#include "ui/access/AccessReport.h"

#include <QTimer>
#include <QWidget>

#include <map>

namespace brimlow {

namespace controls {
class ScrollPage;
}

/// Says plainly what Brimlow may and can do on this desktop, what keeps it from more, and what to
/// do about it. Up to date while it is visible.
class AccessWindow : public QWidget {
    Q_OBJECT

public:
    AccessWindow();

    /// Scrolls to what the pane is about; to the top where something is wrong, which stands there.
    void showPane(platform::SettingsPane pane);
    /// Looks at once whether something has changed.
    void refresh();

    /// The user is being asked for a password elsewhere; until then nothing more can be allowed.
    void setAllowing();
    /// That is over. `failure` tells in one sentence why it was in vain; empty when it was not.
    void setAllowed(const QString& failure);

Q_SIGNALS:
    /// The user wants the rule to be installed.
    void allowRequested();
    void closedByUser();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void rebuild();
    QWidget* makeColumn();
    QWidget* makeProblem(const AccessProblem& problem);

    controls::ScrollPage* scroll_;
    std::map<platform::SettingsPane, QWidget*> panes_; // of the page that is shown
    QTimer watch_;
    AccessReport report_;
    bool allowing_ = false;
    QString allowFailure_;
};

} // namespace brimlow
