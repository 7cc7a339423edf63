#pragma once

#include <QFrame>

class QPushButton;

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

private:
    Caption* text_;
    FlowLayout* buttons_;
};

} // namespace brimlow::controls
