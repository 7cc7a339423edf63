#pragma once

#include "engine/TapInfo.h"

#include <QFrame>

#include <optional>

class QLabel;

namespace brimlow {

namespace controls {
class SymbolLabel;
}

/// How large the last tap was, and what a threshold makes of it, so that somebody can find theirs
/// by tapping.
class TapReadout : public QFrame {
    Q_OBJECT

public:
    explicit TapReadout(QWidget* parent = nullptr);

    /// `maxAxis`: the largest major axis that is no palm.
    void show(const std::optional<TapInfo>& tap, double maxAxis);
    using QWidget::show;

private:
    QWidget* makeInstruction();
    QWidget* makeVerdict();

    QWidget* instruction_;
    QWidget* result_;
    controls::SymbolLabel* symbol_;
    QLabel* size_;
    QLabel* verdict_;
};

} // namespace brimlow
