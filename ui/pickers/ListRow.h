#pragma once

#include "ui/style/Theme.h"

#include <QImage>
#include <QString>

namespace brimlow {

/// A row of a picker's list: a picture and two lines of text.
struct ListRow {
    QString title;
    QString detail;
    QImage icon; // null: the symbol takes its place
    QString symbol;
    style::Tone symbolTone = &style::Theme::secondaryText;
    bool isTinted = false; // what is chosen
    bool hasCheck = false;
};

} // namespace brimlow
