#pragma once

#include "ui/controls/ValueSlider.h"
#include "ui/style/Role.h"

class QLabel;

namespace brimlow::controls {

/// A slider under its heading and a readout of its value, over what its ends mean.
class LabelledSlider : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        QString heading;
        QString smallEnd;
        QString largeEnd;
    };

    LabelledSlider(const Texts& texts, const ValueSlider::Range& range,
                   style::Role headingRole = style::Role::heading, QWidget* parent = nullptr);

    /// Tells nobody.
    void show(double value, const QString& readout);
    using QWidget::show;

Q_SIGNALS:
    /// The user has moved the slider.
    void chosen(double value);

private:
    ValueSlider* slider_;
    QLabel* readout_;
};

} // namespace brimlow::controls
