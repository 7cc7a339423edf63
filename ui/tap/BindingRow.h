#pragma once

#include "profiles/TapPositionMapping.h"

#include <QWidget>

class QPushButton;

namespace brimlow {

/// One binding in the list: its colour on the map, its action, its name and how it is recorded. All
/// but the button is painted, so that a list of hundreds opens at once.
class BindingRow : public QWidget {
    Q_OBJECT

public:
    explicit BindingRow(QWidget* parent = nullptr);

    /// `position`: in the profile, counted from 0; it decides the colour.
    void show(const TapPositionMapping& binding, std::size_t position);
    using QWidget::show;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void editRequested(const QUuid& id);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Line;
    struct Places;

    std::vector<Line> lines() const;
    int textWidth() const;
    void describe();

    TapPositionMapping binding_;
    std::size_t position_ = 0;
    QString state_;
    QPushButton* edit_;
};

} // namespace brimlow
