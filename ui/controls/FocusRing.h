#pragma once

#include <QPointer>
#include <QWidget>

namespace brimlow::controls {

/// A ring around one widget, just outside of it. Scrolls and disappears with what it surrounds.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    /// A widget whose corners are rounder than a button's says how round.
    static constexpr auto radiusProperty = "cornerRadius";
    static constexpr int pill = 1000; // round ends, however high

    FocusRing();

    /// No widget: the ring disappears.
    void surround(QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void watchRoad(bool watch);
    void follow();

    QPointer<QWidget> widget_;
    QPointer<QWidget> surface_; // what the ring is drawn on
};

/// Keeps one ring around whatever the keyboard brought the focus to. Fields show their focus
/// themselves.
class KeyboardFocus : public QObject {
    Q_OBJECT

public:
    explicit KeyboardFocus(QObject* parent = nullptr);
    ~KeyboardFocus() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void move(QWidget* widget);

    QPointer<FocusRing> ring_; // belongs to the window that it is in
    bool byKeyboard_ = false;
};

} // namespace brimlow::controls
