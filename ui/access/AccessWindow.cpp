#include "ui/access/AccessWindow.h"

#include "platform/linux/access/CommandsByHand.h"
#include "ui/access/AccessRows.h"
#include "ui/controls/Banner.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/ScrollPage.h"
#include "ui/style/Role.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using controls::Banner;
using controls::Caption;
using platform::SettingsPane;
using style::Role;

namespace {

constexpr QSize usualSize{520, 640};

} // namespace

AccessWindow::AccessWindow() : scroll_(new controls::ScrollPage(u"Access"_s)) {
    setWindowTitle(u"Brimlow Access"_s);
    resize(usualSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(scroll_);
    for (const auto& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
    watch_.setInterval(1s);
    connect(&watch_, &QTimer::timeout, this, &AccessWindow::refresh);
    report_ = accessReport();
    rebuild();
}

void AccessWindow::showPane(SettingsPane pane) {
    const auto found = panes_.find(pane);
    if (!report_.problems.empty() || found == panes_.end())
        scroll_->verticalScrollBar()->setValue(0);
    else
        scroll_->ensureWidgetVisible(found->second, 0, controls::ScrollPage::padding);
}

void AccessWindow::refresh() {
    auto report = accessReport();
    if (report == report_)
        return;
    report_ = std::move(report);
    rebuild();
}

void AccessWindow::setAllowing() {
    allowing_ = true;
    allowFailure_.clear();
    rebuild();
}

void AccessWindow::setAllowed(const QString& failure) {
    allowing_ = false;
    allowFailure_ = failure;
    report_ = accessReport();
    rebuild();
}

void AccessWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    refresh();
    watch_.start();
}

void AccessWindow::hideEvent(QHideEvent* event) {
    watch_.stop();
    QWidget::hideEvent(event);
}

void AccessWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    Q_EMIT closedByUser();
}

void AccessWindow::rebuild() {
    panes_.clear();
    scroll_->setColumn(makeColumn());
}

QWidget* AccessWindow::makeColumn() {
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    rows->setSpacing(16);
    auto* title = new QVBoxLayout;
    title->setSpacing(4);
    auto* heading = new QLabel(u"Access"_s);
    style::setRole(heading, Role::pageHeading);
    title->addWidget(heading);
    title->addWidget(new Caption(u"What Brimlow may and can do on this desktop."_s));
    rows->addLayout(title);
    for (const AccessProblem& problem : report_.problems)
        rows->addWidget(makeProblem(problem));
    const auto add = [rows](QWidget* section) {
        rows->addWidget(section);
        return section;
    };
    add(accessNote(u"Session"_s, u"display"_s, report_.session));
    add(report_.trackpads.empty()
            ? accessNote(u"Trackpads"_s, u"trackpad"_s,
                         u"No trackpad was found. One that is plugged in is noticed at once."_s)
            : accessSection(u"Trackpads"_s, report_.trackpads,
                            {.yes = u"Readable"_s, .no = u"Not Readable"_s}));
    auto* permissions = add(accessSection(u"Permissions"_s, report_.permissions,
                                          {.yes = u"Granted"_s, .no = u"Not Granted"_s}));
    add(accessSection(u"Actions"_s, report_.actions,
                      {.yes = u"Works"_s, .no = u"Does Not Work"_s}));
    rows->addStretch();
    for (const auto pane : {SettingsPane::accessibility, SettingsPane::screenRecording,
                            SettingsPane::automation, SettingsPane::keyboardShortcuts})
        panes_[pane] = permissions;
    return column;
}

QWidget* AccessWindow::makeProblem(const AccessProblem& problem) {
    auto* banner = new Banner(problem.heading, problem.text);
    if (!problem.ruleHelps)
        return banner;
    auto* allow =
        controls::prominentButton(allowing_ ? u"Waiting for the Password…"_s : u"Allow…"_s);
    allow->setEnabled(!allowing_);
    connect(allow, &QPushButton::clicked, this, &AccessWindow::allowRequested);
    banner->addButton(allow);
    if (!allowFailure_.isEmpty())
        banner->add(new Caption(allowFailure_, Role::noticeText));
    banner->add(commandsToCopy(platform::commandsToInstall().join(u'\n')));
    return banner;
}

} // namespace brimlow
