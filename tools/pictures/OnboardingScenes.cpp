#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"
#include "tests/support/TestPlatform.h"
#include "tools/pictures/Scenes.h"
#include "ui/onboarding/OnboardingView.h"

namespace brimlow::pictures {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usual{640, 720};
constexpr QSize smallest{540, 560};

/// What is granted.
struct Rights {
    bool accessibility;
    bool screenRecording;
};

/// The guide at one of its steps.
class OnboardingScene : public QWidget {
public:
    OnboardingScene(QSize size, int step, Rights granted) {
        setFixedSize(size);
        if (!granted.accessibility)
            world_.devices.plugIn({u"SynPS/2 Synaptics TouchPad"_s, u"/dev/input/event5"_s,
                                   u"Permission denied"_s, platform::TrackpadRemedy::installRule});
        world_.session.setReadsTitles(granted.screenRecording);
        view_.emplace(
            settings_, permissions_, [] {}, this);
        view_->setGeometry(rect());
        while (view_->currentStep() < step)
            view_->nextStep();
    }

private:
    test::TestPlatform world_;
    AppSettings settings_;
    PermissionsManager permissions_;
    std::optional<OnboardingView> view_;
};

} // namespace

std::unique_ptr<QWidget> makeOnboardingWelcome() {
    return std::make_unique<OnboardingScene>(usual, 0, Rights{false, false});
}

std::unique_ptr<QWidget> makeOnboardingPermissions() {
    return std::make_unique<OnboardingScene>(usual, 1, Rights{false, true});
}

std::unique_ptr<QWidget> makeOnboardingGranted() {
    return std::make_unique<OnboardingScene>(usual, 1, Rights{true, true});
}

std::unique_ptr<QWidget> makeOnboardingSmall() {
    return std::make_unique<OnboardingScene>(smallest, 1, Rights{false, false});
}

std::unique_ptr<QWidget> makeOnboardingSummary() {
    return std::make_unique<OnboardingScene>(usual, 2, Rights{true, false});
}

} // namespace brimlow::pictures
