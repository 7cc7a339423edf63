#pragma once

#include <QFrame>

class QBoxLayout;

namespace brimlow::controls {

/// A framed surface of rows below each other. The rows are padded, the dividers between them are
/// not.
class Card : public QFrame {
    Q_OBJECT

public:
    static constexpr int sidePadding = 14;
    static constexpr int padding = 12; // above and below

    explicit Card(QWidget* parent = nullptr);

    void add(QWidget* row);
    void add(QLayout* row);
    /// From edge to edge: it is padded itself.
    void addFlush(QWidget* row);
    /// From edge to edge; with an indent up to the padding on the right.
    void addDivider(int indent = 0);
    /// A row below a divider, which are hidden and shown together.
    QWidget* addPart(QLayout* row);

private:
    static QBoxLayout* padded(QBoxLayout* rows);
    static void addDivider(QBoxLayout* rows, int indent);

    QBoxLayout* rows_;
};

/// A card under a heading, which may have a small button at its right.
class Section : public QWidget {
    Q_OBJECT

public:
    explicit Section(const QString& title, QWidget* trailing = nullptr, QWidget* parent = nullptr);

    Card& card() { return *card_; }

private:
    Card* card_;
};

/// A heading with something at the right end of its line.
QLayout* headingLine(const QString& title, QWidget* trailing = nullptr);

} // namespace brimlow::controls
