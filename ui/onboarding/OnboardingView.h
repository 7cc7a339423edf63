#pragma once

#include "ui/Refresh.h"

#include <QWidget>

#include <array>
#include <functional>

class QPushButton;

namespace brimlow {

class AppSettings;
class GrantPage;
class PermissionsManager;
class StepDots;
class SummaryPage;

namespace controls {
class ScrollPage;
}

/// The first-run guide: a welcome, the permissions, and a summary, one page at a time over the
/// buttons that lead through them. Main thread.
class OnboardingView : public QWidget {
    Q_OBJECT

public:
    static constexpr int totalSteps = 3;

    /// The models outlive it. `onComplete` may be empty; it is called once, when the user has
    /// finished, and may destroy the view.
    OnboardingView(AppSettings& settings, PermissionsManager& permissions,
                   std::function<void()> onComplete, QWidget* parent = nullptr);

    /// From 0.
    int currentStep() const { return currentStep_; }
    /// Does nothing on the first step.
    void previousStep();
    /// On the last step notes that the guide is completed, and says so.
    void nextStep();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makePages();
    QWidget* makeFooter();
    void go(int step);
    void showStep();
    void complete();
    void recheck();
    void showState();

    AppSettings& settings_;
    PermissionsManager& permissions_;
    std::function<void()> onComplete_;
    int currentStep_ = 0;

    GrantPage* grants_;
    SummaryPage* summary_;
    std::array<QWidget*, totalSteps> pages_;
    controls::ScrollPage* scroller_;
    StepDots* dots_;
    QPushButton* back_;
    QPushButton* skip_;
    QPushButton* main_;
    Refresh refresh_;
};

} // namespace brimlow
