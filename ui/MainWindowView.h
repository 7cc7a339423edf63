#pragma once

#include <QWidget>

#include <functional>

class QHBoxLayout;

namespace brimlow {

class AppCoordinator;
class AppSettings;
class FileDialogs;
class PermissionsManager;

/// The content of the main window: the sections in a sidebar, and the page of the selected one,
/// which lives as long as it is shown. Main thread.
class MainWindowView : public QWidget {
public:
    /// In display order.
    enum class NavigationSection { general, tap, permissions };

    /// What the pages show and change; all of it outlives the view. `terminate` asks the
    /// application to end.
    struct Environment {
        AppSettings& settings;
        PermissionsManager& permissions;
        AppCoordinator& coordinator;
        FileDialogs& fileDialogs;
        std::function<void()> terminate;
    };

    explicit MainWindowView(Environment environment, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeRoomForText();
    void select(NavigationSection section);
    QWidget* makeSidebar();
    QWidget* makePage(NavigationSection section);

    Environment environment_;
    NavigationSection selectedSection_ = NavigationSection::general;
    QHBoxLayout* columns_;
    QWidget* sidebar_; // made for the selected section
    QWidget* page_ = nullptr;
};

} // namespace brimlow
