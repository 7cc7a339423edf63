#pragma once

#include <QDialog>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace brimlow::controls {

/// A small dialog in front of the window that it belongs to, which has to wait for it: a title, a
/// sentence (may be empty), what is asked for, and buttons. Escape rejects it. Show it with open();
/// it goes away by itself once it is closed.
class Sheet : public QDialog {
    Q_OBJECT

public:
    Sheet(const QString& title, const QString& text, QWidget* parent);

    /// Between the text and the buttons.
    void add(QWidget* row);
    // To the right of those before.
    QPushButton* addCancel();
    void addConfirm(QPushButton* button);

    QSize sizeHint() const override;

private:
    QVBoxLayout* rows_;
    QHBoxLayout* buttons_;
};

/// Asks before something that cannot be undone. Return and Escape both leave everything as it is;
/// accepted once the user has pressed the button called `destructiveText`.
Sheet* confirmation(const QString& title, const QString& message, const QString& destructiveText,
                    QWidget* parent);

/// Tells something that has to be taken note of.
Sheet* alert(const QString& title, const QString& message, QWidget* parent,
             const QString& button = QStringLiteral("OK"));

} // namespace brimlow::controls
