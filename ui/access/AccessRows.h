#pragma once

#include "ui/access/AccessReport.h"

class QWidget;

namespace brimlow {

/// What is said of something that works and of something that does not.
struct AccessVerdicts {
    QString yes;
    QString no;
};

/// Items below each other in a card under a heading.
QWidget* accessSection(const QString& title, const std::vector<AccessItem>& items,
                       const AccessVerdicts& verdicts);
/// The same without verdicts, for what is only told.
QWidget* accessNote(const QString& title, const QString& symbol, const QString& text);

/// Commands to copy into a terminal, with a button that copies them.
QWidget* commandsToCopy(const QString& commands);

} // namespace brimlow
