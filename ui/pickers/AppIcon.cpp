#include "ui/pickers/AppIcon.h"

#include "ui/style/ApplicationStyle.h"
#include "ui/style/Symbols.h"

#include <QPainter>

namespace brimlow {

using namespace Qt::StringLiterals;

AppIcon::AppIcon(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void AppIcon::set(const QImage& icon) {
    icon_ = icon;
    update();
}

QSize AppIcon::sizeHint() const {
    const int side = style::currentType().scaled(18);
    return {side, side};
}

void AppIcon::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (icon_.isNull())
        painter.drawPixmap(0, 0,
                           style::symbol(u"app.fill"_s, style::currentTheme().greySymbol, width(),
                                         devicePixelRatioF()));
    else
        painter.drawImage(rect(), icon_);
}

} // namespace brimlow
