#pragma once

#include <QWidget>

namespace brimlow {

class GrantRow;
class PermissionsManager;

/// The permissions one below the other, each with a button that first asks for it and, pressed
/// again, also opens the place where the user grants it.
class GrantPage : public QWidget {
    Q_OBJECT

public:
    /// `permissions` outlives it.
    explicit GrantPage(PermissionsManager& permissions, QWidget* parent = nullptr);

    void showState();

Q_SIGNALS:
    void recheckRequested();

private:
    QLayout* makeButtons();
    void grantAccessibility();
    void grantAutomation();
    void grantScreenRecording();

    PermissionsManager& permissions_;
    GrantRow* accessibility_;
    GrantRow* screenRecording_;
};

} // namespace brimlow
