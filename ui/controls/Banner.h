#pragma once

#include <QFrame>

class QPushButton;
class QVBoxLayout;

namespace brimlow::controls {

class Caption;
class FlowLayout;

/// An orange panel about something that needs attention, with what can be done about it. The
/// heading may be empty.
class Banner : public QFrame {
    Q_OBJECT

public:
    Banner(const QString& heading, const QString& text, QWidget* parent = nullptr);

    void setText(const QString& text);
    void addButton(QPushButton* button);
    /// Below the buttons.
    void add(QWidget* row);

private:
    Caption* text_;
    FlowLayout* buttons_;
    QVBoxLayout* rows_;
};

} // namespace brimlow::controls
