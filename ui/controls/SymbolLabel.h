#pragma once

#include "ui/style/Theme.h"

#include <QWidget>

namespace brimlow::controls {

/// A symbol on its own. One that says something gets a tool tip, which is also its accessible
/// name; one without only decorates the text beside it.
class SymbolLabel : public QWidget {
    Q_OBJECT

public:
    SymbolLabel(const QString& symbol, int size, style::Tone tone = &style::Theme::text,
                QWidget* parent = nullptr);

    void set(const QString& symbol, style::Tone tone);
    void setMeaning(const QString& meaning);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol_;
    int size_;
    style::Tone tone_;
};

} // namespace brimlow::controls
