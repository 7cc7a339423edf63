#pragma once

#include "ui/style/Role.h"
#include "ui/style/Theme.h"

#include <QWidget>

class QVBoxLayout;

namespace brimlow {

/// A page with little on it: a large symbol, a title and a sentence, and below them more rows, all
/// in a narrow column above the middle.
class CentredPage : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        QString title;
        QString sentence;
        style::Role sentenceRole;
    };

    CentredPage(const QString& symbol, style::Tone tone, const Texts& texts,
                QWidget* parent = nullptr);

protected:
    void addRow(QWidget* row);
    void addSpacing(int pixels);

private:
    QVBoxLayout* rows_;
};

} // namespace brimlow
