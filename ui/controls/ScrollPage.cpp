#include "ui/controls/ScrollPage.h"

#include "ui/style/ApplicationStyle.h"
#include "ui/style/Role.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollBar>

namespace brimlow::controls {

ScrollPage::ScrollPage(const QString& accessibleName, QWidget* parent) : QScrollArea(parent) {
    setAccessibleName(accessibleName);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->installEventFilter(this);
}

void ScrollPage::setColumn(QWidget* column) {
    auto* page = new QFrame;
    style::setRole(page, style::Role::page);
    auto* layout = new QHBoxLayout(page);
    column->setMaximumWidth(style::currentType().scaled(widest));
    layout->addWidget(column);
    const int position = verticalScrollBar()->value();
    if (QWidget* old = takeWidget())
        old->deleteLater(); // one of its buttons may be what brought us here
    setWidget(page);
    makeRoom();
    verticalScrollBar()->setValue(position);
}

bool ScrollPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == verticalScrollBar()
        && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        makeRoom();
    return QScrollArea::eventFilter(watched, event);
}

void ScrollPage::makeRoom() {
    const QScrollBar* bar = verticalScrollBar();
    const int taken = bar->isVisibleTo(this) ? bar->sizeHint().width() : 0;
    if (widget())
        widget()->layout()->setContentsMargins(padding, padding, padding - taken, padding);
}

} // namespace brimlow::controls
