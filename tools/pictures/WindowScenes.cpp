#include "engine/AppCoordinator.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "tools/pictures/Scenes.h"
#include "ui/MainWindowView.h"
#include "ui/files/FileDialogs.h"
#include "ui/style/ApplicationStyle.h"

#include <QDialog>

namespace brimlow::pictures {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usual{760, 560};
constexpr QSize smallest{600, 400};

/// Offers a file that is no profile.
class BadFile final : public FileDialogs {
public:
    void save(const Request&, Done) override {}
    void open(const Request&, Done done) override { done({.path = u"/dev/null"_s, .error = {}}); }
};

/// The main window over a described world.
class WindowScene : public QWidget {
public:
    using Act = std::function<void(WindowScene&)>;

    WindowScene(QSize size, const Act& act) {
        setFixedSize(style::currentType().scaled(size.width()), size.height());
        view.emplace(MainWindowView::Environment{.settings = settings,
                                                 .permissions = permissions,
                                                 .coordinator = coordinator,
                                                 .fileDialogs = files,
                                                 .terminate = [] {}},
                     this);
        view->setGeometry(rect());
        show();
        act(*this);
        world.time.run();
    }

    void press(const QString& button) { test::shownButton(*this, button)->click(); }
    void tapped(double majorAxis) {
        coordinator.lastTap = TapInfo{.x = 0.5, .y = 0.5, .maxMajorAxis = majorAxis};
    }

    test::TestPlatform world;
    AppSettings settings;
    PermissionsManager permissions;
    AppCoordinator coordinator{settings, permissions, 10};
    BadFile files;
    std::optional<MainWindowView> view;
};

std::unique_ptr<QWidget> scene(QSize size, const WindowScene::Act& act) {
    return std::make_unique<WindowScene>(size, act);
}

/// What is open in front of the Tap page.
std::unique_ptr<QWidget> sheet(const QString& button) {
    WindowScene scene(usual, [&](WindowScene& window) {
        window.press(u"Tap"_s);
        window.press(button);
    });
    auto* dialog = scene.findChild<QDialog*>();
    dialog->setParent(nullptr);
    return std::unique_ptr<QWidget>(dialog);
}

std::vector<TapPositionMapping> workBindings() {
    struct Spot {
        QString name;
        double x;
        double y;
        double radius;
        TapAction action;
        std::optional<QString> app = {};
    };
    const std::vector<Spot> spots{
        {u"Top left corner"_s, 0.06, 0.91, 0.1, TapAction::switchDesktopLeft},
        {u"Left 2"_s, 0, 0.7, 0.1, TapAction::none},
        {u"Browser"_s, 0.145, 0.52, 0.08, TapAction::focusWindow, u"org.mozilla.firefox"_s},
        {u"Left 4"_s, 0, 0.3, 0.1, TapAction::none},
        {u"Left palm rest"_s, 0.1, 0.08, 0.1, TapAction::hideAll},
        {u"Top right corner"_s, 0.94, 0.91, 0.1, TapAction::switchDesktopRight},
        {u"Terminal"_s, 0.8, 0.66, 0.075, TapAction::openApp, u"org.gnome.Terminal"_s},
        {u"Mail"_s, 0.915, 0.6, 0.075, TapAction::openApp, u"org.mozilla.Thunderbird"_s},
        {u"Right 4"_s, 1, 0.3, 0.1, TapAction::none},
        {u"Off switch"_s, 0.93, 0.08, 0.06, TapAction::toggleBrimlow},
    };
    std::vector<TapPositionMapping> bindings;
    bindings.reserve(spots.size());
    for (const Spot& spot : spots) {
        bindings.push_back({.id = QUuid::createUuid(),
                            .name = spot.name,
                            .action = spot.action,
                            .appName = spot.app,
                            .samples = {{spot.x, spot.y}},
                            .explicitMatchRadius = spot.radius});
    }
    return bindings;
}

void fill(WindowScene& window, const QString& profile,
          const std::vector<TapPositionMapping>& bindings) {
    auto& store = window.coordinator.positionMappings;
    store.renameProfile(store.activeProfileId, profile);
    store.clearAllBindings();
    for (const TapPositionMapping& binding : bindings)
        store.add(binding);
    window.press(u"Tap"_s);
}

WindowScene::Act withWork() {
    return [](WindowScene& window) { fill(window, u"Work"_s, workBindings()); };
}

} // namespace

std::unique_ptr<QWidget> makeGeneral() {
    return scene(usual, [](WindowScene& window) { window.tapped(9.4); });
}

std::unique_ptr<QWidget> makeGeneralPalm() {
    return scene(usual, [](WindowScene& window) { window.tapped(17.25); });
}

std::unique_ptr<QWidget> makeGeneralSmall() {
    return scene(smallest, [](WindowScene&) {});
}

std::unique_ptr<QWidget> makeGeneralOff() {
    return scene(smallest, [](WindowScene& window) {
        window.settings.setTapEnabled(false);
        window.settings.setPalmRejection(false);
    });
}

std::unique_ptr<QWidget> makeTap() {
    return scene(usual, withWork());
}

std::unique_ptr<QWidget> makeTapWhole() {
    return scene({usual.width(), 1330}, withWork());
}

std::unique_ptr<QWidget> makeTapSmall() {
    return scene(smallest, withWork());
}

std::unique_ptr<QWidget> makeTapLarge() {
    return scene({1400, 900}, withWork());
}

std::unique_ptr<QWidget> makeTapEmpty() {
    return scene(usual, [](WindowScene& window) { fill(window, u"Travel"_s, {}); });
}

std::unique_ptr<QWidget> makeTapUnrecorded() {
    return scene({smallest.width(), 860}, [](WindowScene& window) {
        auto bindings = workBindings();
        bindings.resize(3);
        for (auto& binding : bindings)
            binding.samples.clear();
        bindings[1].name =
            u"A name that goes on and on, with <b>marks</b> && signs in it — "_s.repeated(3);
        bindings[2].appName = u"org.example."_s + u"VeryLongApplicationIdentifier"_s.repeated(4);
        fill(window, u"A profile for the days on which nothing is recorded yet, %1 & all"_s,
             bindings);
    });
}

std::unique_ptr<QWidget> makeNewProfile() {
    return sheet(u"New Profile"_s);
}

std::unique_ptr<QWidget> makeRenameProfile() {
    return sheet(u"Rename profile"_s);
}

std::unique_ptr<QWidget> makeDeleteProfile() {
    return sheet(u"Delete profile"_s);
}

std::unique_ptr<QWidget> makeClearAll() {
    return sheet(u"Clear All Bindings"_s);
}

std::unique_ptr<QWidget> makeImportFailed() {
    return sheet(u"Import a profile from a shared file"_s);
}

} // namespace brimlow::pictures
