#pragma once

#include <QWidget>

namespace brimlow::controls {

class Switch;

/// A switch at the right end of the line that says what it is for; the words may be clicked too.
class ToggleRow : public QWidget {
    Q_OBJECT

public:
    /// `explanation` stands below the text, unless it is empty.
    explicit ToggleRow(const QString& text, const QString& explanation = {},
                       QWidget* parent = nullptr);

    /// Tells nobody.
    void setOn(bool on);

Q_SIGNALS:
    /// The user has moved the switch.
    void chosen(bool on);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Switch* switch_;
};

} // namespace brimlow::controls
