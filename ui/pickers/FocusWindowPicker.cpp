#include "ui/pickers/FocusWindowPicker.h"

#include "platform/NSWorkspace.h"
#include "ui/controls/Banner.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/pickers/BoundWindow.h"
#include "ui/pickers/RowList.h"
#include "ui/pickers/StableTitle.h"
#include "ui/pickers/WindowChoice.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShowEvent>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Banner;
using controls::Caption;
using style::Role;
using style::Theme;

namespace {

constexpr int listHeight = 130; // at most

ListRow rowOf(const PickableWindow& window, bool isBound) {
    return {.title = u"Window ID "_s + QString::number(window.id),
            .detail = u"current: "_s + window.title,
            .icon = {},
            .symbol = isBound ? u"macwindow.badge.plus"_s : u"macwindow"_s,
            .symbolTone = isBound ? &Theme::blue : &Theme::secondaryText,
            .isTinted = isBound};
}

Banner* makeError(const QString& text) {
    auto* banner = new Banner({}, text);
    if (const auto link = settingsLink(text)) {
        auto* open = controls::borderedButton(QString(link->text).replace(u"&"_s, u"&&"_s));
        open->setAccessibleName(link->text);
        QObject::connect(open, &QPushButton::clicked, banner,
                         [address = link->address] { platform::NSWorkspace::openURL(address); });
        banner->addButton(open);
    }
    return banner;
}

} // namespace

FocusWindowPicker::FocusWindowPicker(bool hideAlreadyBound, QWidget* parent)
    : QWidget(parent), hideAlreadyBound_(hideAlreadyBound), count_(new Caption),
      rescan_(controls::flatIconButton(u"Refresh"_s, u"arrow.clockwise"_s)),
      unbound_(new Caption(u"Optional — pick a specific window for surgical targeting, or leave "
                           "unset to just focus / launch the app on tap."_s)),
      bound_(new BoundWindow), hint_(new Caption),
      list_(new RowList(u"Open windows"_s, listHeight)), rows_(new QVBoxLayout(this)) {
    rows_->setContentsMargins({});
    rows_->setSpacing(8);
    rows_->addLayout(makeHeader());
    rows_->addWidget(unbound_);
    rows_->addWidget(bound_);
    rows_->addWidget(hint_);
    rows_->addWidget(list_);
    connect(rescan_, &QPushButton::clicked, this, [this] { showScan(scanWindows(bundleId_)); });
    connect(bound_, &BoundWindow::clearRequested, this, [this] { bind({}); });
    connect(list_, &RowList::chosen, this, [this](int row) {
        const PickableWindow& window = visible_[static_cast<std::size_t>(row)];
        bind({window.id, extractStableTitle(window.title)});
    });
    refresh();
}

QLayout* FocusWindowPicker::makeHeader() {
    rescan_->setToolTip(u"Re-scan currently-open windows of this app"_s);
    auto* heading = new QLabel(u"Target Window"_s);
    style::setRole(heading, Role::heading);
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(heading);
    line->addWidget(count_, 0, Qt::AlignVCenter);
    line->addStretch();
    line->addWidget(rescan_);
    line->setContentsMargins(0, 0, 5, 0); // in line with the buttons of chips
    return line;
}

void FocusWindowPicker::setBundleId(const std::optional<QString>& bundleId) {
    if (bundleId == bundleId_)
        return;
    bundleId_ = bundleId;
    showScan({});
    scanUnlessHidden();
}

void FocusWindowPicker::setBinding(const WindowBinding& binding) {
    binding_ = binding;
    refresh();
}

void FocusWindowPicker::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) // un-minimised
        scanUnlessHidden();
}

void FocusWindowPicker::scanUnlessHidden() {
    if (isVisible() && bundleId_ && !bundleId_->isEmpty())
        showScan(scanWindows(bundleId_));
}

void FocusWindowPicker::showScan(const WindowScan& scan) {
    scan_ = scan;
    delete error_;
    error_ = scan.refreshError ? makeError(*scan.refreshError) : nullptr;
    if (error_)
        rows_->addWidget(error_);
    refresh();
}

void FocusWindowPicker::bind(const WindowBinding& binding) {
    binding_ = binding;
    // What had the focus may be about to disappear.
    const bool hadFocus = isAncestorOf(focusWidget());
    refresh();
    if (hadFocus && !list_->hasFocus())
        rescan_->setFocus();
    Q_EMIT bindingChanged(binding_);
}

QString FocusWindowPicker::hint() const {
    if (scan_.windows.empty())
        return u"Click the refresh icon to list this app's currently-open windows."_s;
    if (visible_.empty())
        return u"This window is already bound. Use Refresh to scan again."_s;
    return u"Click a window to bind (optional). Brimlow tracks it by its system window ID — "
           "survives tab switches but resets when the app restarts; on restart we fall back to a "
           "title substring match, then to focusing / launching the app."_s;
}

void FocusWindowPicker::refresh() {
    visible_ = visibleWindows(scan_.windows, binding_.targetWindowID, hideAlreadyBound_);
    count_->setText(windowCount(visible_.size()));
    count_->setVisible(!visible_.empty());

    const bool isBound = binding_.targetWindowID.has_value();
    if (isBound)
        bound_->set(*binding_.targetWindowID, binding_.windowTitle);
    unbound_->setVisible(!isBound);
    bound_->setVisible(isBound);

    hint_->setText(hint());
    hint_->setVisible(!scan_.refreshError);
    std::vector<ListRow> rows;
    for (const PickableWindow& window : visible_)
        rows.push_back(rowOf(window, window.id == binding_.targetWindowID));
    list_->setRows(std::move(rows));
    list_->setVisible(!visible_.empty());
}

} // namespace brimlow
