#include "ui/onboarding/OnboardingView.h"

#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"
#include "platform/Platform.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/ScrollPage.h"
#include "ui/onboarding/GrantPage.h"
#include "ui/onboarding/StepDots.h"
#include "ui/onboarding/SummaryPage.h"
#include "ui/onboarding/WelcomePage.h"
#include "ui/style/Role.h"

#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::ScrollPage;

namespace {

constexpr QSize smallest{540, 480};
constexpr int pagePadding = 24;
constexpr int footerPadding = 16;
constexpr int buttonSpacing = 8;
constexpr int lastStep = OnboardingView::totalSteps - 1;

QWidget* makeDivider() {
    auto* divider = new QFrame;
    style::setRole(divider, style::Role::divider);
    divider->setFixedHeight(1);
    return divider;
}

} // namespace

OnboardingView::OnboardingView(AppSettings& settings, PermissionsManager& permissions,
                               std::function<void()> onComplete, QWidget* parent)
    : QWidget(parent), settings_(settings), permissions_(permissions),
      onComplete_(std::move(onComplete)), grants_(new GrantPage(permissions)),
      summary_(new SummaryPage), pages_{new WelcomePage, grants_, summary_},
      scroller_(new ScrollPage({})), dots_(new StepDots(totalSteps)),
      back_(controls::borderedButton(u"Back"_s)), skip_(controls::borderedButton(u"Skip"_s)),
      main_(controls::prominentButton(u"Next"_s)),
      refresh_(platform::Platform::current().mainQueue, [this] { showState(); }) {
    setMinimumSize(smallest);
    setAutoFillBackground(true);
    scroller_->setColumn(makePages());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(scroller_, 1);
    layout->addWidget(makeDivider());
    layout->addWidget(makeFooter());

    connect(grants_, &GrantPage::recheckRequested, this, &OnboardingView::recheck);
    connect(back_, &QPushButton::clicked, this, &OnboardingView::previousStep);
    for (QPushButton* forward : {skip_, main_})
        connect(forward, &QPushButton::clicked, this, &OnboardingView::nextStep);
    // Wherever the focus is. A key that is held down must not rush through to the end.
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, main_, &QPushButton::click);
    }
    refresh_.observe(permissions_);
    main_->setFocus();
    showStep();
    showState();
}

// All of them live as long as the view, hidden or not: so the keyboard reaches their buttons before
// those of the footer.
QWidget* OnboardingView::makePages() {
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    constexpr int more = pagePadding - ScrollPage::padding;
    rows->setContentsMargins(more, more, more, more);
    rows->setSpacing(0);
    for (QWidget* page : pages_)
        rows->addWidget(page);
    return column;
}

QWidget* OnboardingView::makeFooter() {
    auto* footer = new QWidget;
    auto* line = new QHBoxLayout(footer);
    line->setContentsMargins(footerPadding, footerPadding, footerPadding, footerPadding);
    line->setSpacing(buttonSpacing);
    line->addWidget(dots_);
    line->addStretch();
    for (QPushButton* button : {back_, skip_, main_})
        line->addWidget(button);
    return footer;
}

void OnboardingView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        recheck();
}

void OnboardingView::previousStep() {
    if (currentStep_ >= 1)
        go(currentStep_ - 1);
}

void OnboardingView::nextStep() {
    if (currentStep_ == lastStep)
        complete();
    else
        go(currentStep_ + 1);
}

void OnboardingView::go(int step) {
    currentStep_ = step;
    recheck();
    showStep();
}

void OnboardingView::showStep() {
    const bool hasBack = currentStep_ >= 1;
    const bool hasSkip = currentStep_ < lastStep;
    const QWidget* focused = focusWidget();
    const bool stays =
        focused == scroller_ || (focused == back_ && hasBack) || (focused == skip_ && hasSkip);
    if (focused && !stays)
        main_->setFocus(); // before Qt chooses another

    for (QWidget* page : pages_)
        page->setVisible(page == pages_.at(currentStep_));
    scroller_->setAccessibleName(pages_.at(currentStep_)->accessibleName());
    scroller_->verticalScrollBar()->setValue(0);
    dots_->setCurrent(currentStep_);
    back_->setVisible(hasBack);
    skip_->setVisible(hasSkip);
    main_->setText(hasSkip ? u"Next"_s : u"Get Started"_s);
}

void OnboardingView::complete() {
    settings_.setHasCompletedOnboarding(true);
    // Taken first, for this may be gone when it returns.
    if (const auto onComplete = std::exchange(onComplete_, {}))
        onComplete();
}

void OnboardingView::recheck() {
    permissions_.checkAccessibility();
    permissions_.checkScreenRecording();
    showState();
}

void OnboardingView::showState() {
    grants_->showState();
    summary_->show(permissions_);
}

} // namespace brimlow
