#pragma once

#include <QScrollArea>

namespace brimlow::controls {

/// A window's page: one column, centred and no wider than is pleasant to read, that scrolls where
/// it is higher than the window. The scroll bar comes and goes inside of the padding at the right,
/// so that nothing shifts.
class ScrollPage : public QScrollArea {
    Q_OBJECT

public:
    static constexpr int padding = 20;
    static constexpr int widest = 720; // grows with the desktop's text

    /// The name is what a screen reader says when the keyboard comes to scroll it.
    explicit ScrollPage(const QString& accessibleName, QWidget* parent = nullptr);

    /// Takes the place of the column before, at the same scroll position. Belongs to this.
    void setColumn(QWidget* column);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeRoom();
};

} // namespace brimlow::controls
