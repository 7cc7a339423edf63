#include "tests/support/TestPlatform.h"
#include "tools/pictures/Scenes.h"
#include "ui/pickers/AppPickerView.h"
#include "ui/pickers/FocusWindowPicker.h"
#include "ui/style/Role.h"

#include <QLineEdit>
#include <QPushButton>
#include <QThreadPool>
#include <QVBoxLayout>

namespace brimlow::pictures {

using namespace Qt::StringLiterals;

namespace {

const QString browser = u"org.mozilla.firefox"_s;

/// A picker on a page as wide as the binding editor, and the described world that it tells of.
template<typename Picker>
class PickerScene : public QFrame {
public:
    template<typename... Arguments>
    explicit PickerScene(const std::function<void(test::TestPlatform&)>& describe,
                         Arguments... arguments) {
        style::setRole(this, style::Role::page);
        setFixedWidth(520);
        describe(world_);
        picker_ = new Picker(arguments...);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(20, 20, 20, 20);
        layout->addWidget(picker_);
    }
    ~PickerScene() override { delete picker_; }

    Picker& picker() { return *picker_; }
    test::TestPlatform& world() { return world_; }

private:
    test::TestPlatform world_;
    Picker* picker_;
};

void installApplications(test::TestPlatform& world) {
    using Row = std::pair<QString, QString>;
    for (const auto& [id, name] :
         {Row{u"org.gnome.Calculator"_s, u"Calculator"_s}, Row{browser, u"Firefox"_s},
          Row{u"org.gnome.Terminal"_s, u"Terminal"_s}, Row{u"org.gnome.Nautilus"_s, u"Files"_s},
          Row{u"org.example.notes"_s, u"Notes & <b>Thoughts</b>"_s},
          Row{u"org.example.calendar"_s, u"لوحة المفاتيح"_s},
          Row{u"org.example.accounts"_s, u"Accounts"_s},
          Row{u"com.example.an.application.with.a.very.long.identifier.indeed.and.more.of.it"_s,
              u"The Application That Everybody Calls by Its Full and Rather Unwieldy Name"_s}})
        world.applications.install(
            {.id = id, .plainName = name, .icon = name == u"Terminal" ? QString() : name});
}

struct AppScene {
    std::optional<QString> selected = {};
    bool expanded = false;
    QString query = {};
    bool scanning = false;
};

std::unique_ptr<QWidget> makeAppScene(const AppScene& scene) {
    auto made = std::make_unique<PickerScene<AppPickerView>>(installApplications);
    made->picker().setSelectedBundleId(scene.selected);
    made->show();
    if (!scene.scanning) {
        QThreadPool::globalInstance()->waitForDone();
        made->world().time.run();
    }
    if (scene.expanded)
        made->picker().findChild<QPushButton*>()->click(); // "Change app", the first
    auto* query = made->picker().findChild<QLineEdit*>();
    query->setText(scene.query);
    if (!scene.query.isEmpty())
        setPose(query, Pose::focused);
    return made;
}

std::unique_ptr<QWidget> makeWindowScene(const std::function<void(test::TestPlatform&)>& describe,
                                         const WindowBinding& binding = {},
                                         const QString& bundleId = browser) {
    auto made = std::make_unique<PickerScene<FocusWindowPicker>>(
        [&](test::TestPlatform& world) {
            installApplications(world);
            describe(world);
        },
        !binding.windowTitle.isEmpty());
    made->picker().setBundleId(bundleId);
    made->picker().setBinding(binding);
    return made;
}

void openWindows(test::TestPlatform& world) {
    for (const auto& title : {u"Notes for Thursday — Firefox"_s, u"Build log — Firefox"_s,
                              u"Inbox (3) — Firefox"_s, u"Dashboard — Firefox"_s})
        world.session.openWindow(browser, 4711, title);
}

constexpr std::uint32_t firstWindow = 0x1400001;

} // namespace

std::unique_ptr<QWidget> makeAppsScanning() {
    return makeAppScene({.scanning = true});
}
std::unique_ptr<QWidget> makeAppsList() {
    return makeAppScene({});
}
std::unique_ptr<QWidget> makeAppsSelected() {
    return makeAppScene({.selected = browser, .expanded = true});
}
std::unique_ptr<QWidget> makeAppsSearch() {
    return makeAppScene({.query = u"calc"_s});
}
std::unique_ptr<QWidget> makeAppsNothing() {
    return makeAppScene({.query = u"zebra"_s});
}
std::unique_ptr<QWidget> makeAppChip() {
    return makeAppScene({.selected = browser});
}
std::unique_ptr<QWidget> makeAppChipUnknown() {
    return makeAppScene({.selected = u"com.example.removed"_s});
}

std::unique_ptr<QWidget> makeWindows() {
    return makeWindowScene(openWindows);
}
std::unique_ptr<QWidget> makeWindowsBound() {
    return makeWindowScene(openWindows, {firstWindow, u"Firefox"_s});
}
std::unique_ptr<QWidget> makeWindowsListedBound() {
    return makeWindowScene(openWindows, {firstWindow + 3, {}});
}
std::unique_ptr<QWidget> makeWindowsAlreadyBound() {
    return makeWindowScene(
        [](test::TestPlatform& world) { world.session.openWindow(browser, 4711, u"Inbox"_s); },
        {firstWindow, u"Inbox"_s});
}
std::unique_ptr<QWidget> makeWindowsNotRunning() {
    return makeWindowScene([](test::TestPlatform&) {});
}
std::unique_ptr<QWidget> makeWindowsUnreadable() {
    return makeWindowScene([](test::TestPlatform& world) {
        openWindows(world);
        world.session.setReadsTitles(false);
    });
}
std::unique_ptr<QWidget> makeWindowsUntitled() {
    return makeWindowScene(
        [](test::TestPlatform& world) { world.session.openWindow(browser, 4711, {}); });
}
std::unique_ptr<QWidget> makeWindowsNoApp() {
    return makeWindowScene(openWindows, {}, {});
}

} // namespace brimlow::pictures
