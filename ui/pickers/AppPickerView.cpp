#include "ui/pickers/AppPickerView.h"

#include "platform/Platform.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/Spinner.h"
#include "ui/pickers/AppChip.h"
#include "ui/pickers/AppFilter.h"
#include "ui/pickers/RowList.h"
#include "ui/style/Symbols.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using style::Theme;

namespace {
constexpr int listHeight = 280; // at most
} // namespace

AppPickerView::AppPickerView(QWidget* parent)
    : QWidget(parent), chip_(new AppChip), query_(new QLineEdit),
      cancel_(controls::borderedButton(u"Cancel"_s)), scanning_(makeScanning()),
      list_(new RowList(u"Applications"_s, listHeight)), search_(makeSearch()),
      refresh_(platform::Platform::current().mainQueue, [this] { refresh(); }) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(chip_);
    layout->addWidget(search_);
    connect(chip_, &AppChip::changeRequested, this, &AppPickerView::expand);
    connect(chip_, &AppChip::clearRequested, this, &AppPickerView::clear);
    connect(cancel_, &QPushButton::clicked, this, &AppPickerView::collapse);
    connect(list_, &RowList::chosen, this, &AppPickerView::choose);
    connect(query_, &QLineEdit::textChanged, this, [this] {
        refreshList();
        list_->scrollToTop();
    });
    refresh_.observe(*provider_);
    refresh();
}

QWidget* AppPickerView::makeScanning() {
    auto* scanning = new QWidget;
    auto* line = new QHBoxLayout(scanning);
    line->setContentsMargins(2, 4, 0, 4);
    line->setSpacing(8);
    line->addWidget(new controls::Spinner);
    line->addWidget(new controls::Caption(u"Scanning Applications…"_s), 1);
    return scanning;
}

QWidget* AppPickerView::makeSearch() {
    query_->setPlaceholderText(u"Search apps…"_s);
    query_->setAccessibleName(u"Search apps"_s);
    query_->addAction(style::symbolIcon(u"magnifyingglass"_s, &Theme::secondaryText),
                      QLineEdit::LeadingPosition);
    list_->setPlaceholder(u"No applications found"_s);
    auto* search = new QWidget;
    auto* rows = new QVBoxLayout(search);
    rows->setContentsMargins({});
    rows->setSpacing(8);
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(query_, 1);
    line->addWidget(cancel_);
    rows->addLayout(line);
    rows->addWidget(scanning_);
    rows->addWidget(list_);
    return search;
}

void AppPickerView::setSelectedBundleId(const std::optional<QString>& bundleId) {
    selected_ = bundleId;
    refresh();
}

void AppPickerView::refresh() {
    const bool showsChip = selected_ && !isExpanded_;
    if (showsChip)
        refreshChip();
    cancel_->setVisible(selected_.has_value());
    scanning_->setVisible(provider_->isLoading);
    list_->setVisible(!provider_->isLoading);
    chip_->setVisible(showsChip);
    search_->setVisible(!showsChip);
    refreshList();
}

void AppPickerView::refreshChip() {
    const auto& apps = provider_->apps.get();
    const auto app = std::ranges::find(apps, *selected_, &InstalledApp::id);
    if (app == apps.end())
        chip_->set(*selected_, {});
    else
        chip_->set(app->name, app->icon.value_or(QImage()));
}

void AppPickerView::refreshList() {
    found_ = filteredApps(provider_->apps, query_->text());
    std::vector<ListRow> rows;
    rows.reserve(found_.size());
    for (const InstalledApp& app : found_) {
        const bool isSelected = app.id == selected_;
        rows.push_back({.title = app.name,
                        .detail = app.id,
                        .icon = app.icon.value_or(QImage()),
                        .symbol = u"app.fill"_s,
                        .symbolTone = &Theme::greySymbol,
                        .isTinted = isSelected,
                        .hasCheck = isSelected});
    }
    list_->setRows(std::move(rows));
}

void AppPickerView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) // un-minimised
        return;
    provider_->reload();
    isExpanded_ = !selected_;
    refresh();
}

void AppPickerView::expand() {
    isExpanded_ = true;
    refresh();
    query_->setFocus();
}

void AppPickerView::collapse() {
    isExpanded_ = false;
    query_->clear();
    refresh();
    chip_->changeButton()->setFocus();
}

void AppPickerView::choose(int row) {
    selected_ = found_[static_cast<std::size_t>(row)].id;
    collapse();
    Q_EMIT selectedBundleIdChanged(selected_);
}

void AppPickerView::clear() {
    selected_.reset();
    expand();
    Q_EMIT selectedBundleIdChanged(selected_);
}

bool AppPickerView::handlesEscape() const {
    return !search_->isHidden() && (selected_ || list_->hasFocus());
}

// Escape is the window's shortcut, too, unless it has a meaning here.
bool AppPickerView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && handlesEscape()) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

// What field and list have no use for arrives here.
void AppPickerView::keyPressEvent(QKeyEvent* event) {
    const auto key = event->key();
    const bool inField = query_->hasFocus();
    const bool hasRows = !list_->isHidden() && !found_.empty();
    if (key == Qt::Key_Down && inField) {
        if (hasRows)
            list_->enter();
    } else if (key == Qt::Key_Up && list_->hasFocus()) {
        query_->setFocus();
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && inField) {
        if (hasRows && !query_->text().isEmpty())
            choose(0);
    } else if (key == Qt::Key_Escape && handlesEscape()) {
        selected_ ? collapse() : query_->setFocus();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace brimlow
