#pragma once

#include <QFrame>
#include <QString>

#include <cstdint>

namespace brimlow {

namespace controls {
class ElidedLabel;
}

/// The window that is bound, with a button to let it go.
class BoundWindow : public QFrame {
    Q_OBJECT

public:
    explicit BoundWindow(QWidget* parent = nullptr);

    void set(std::uint32_t number, const QString& fallbackTitle);

Q_SIGNALS:
    void clearRequested();

private:
    controls::ElidedLabel* number_;
    controls::ElidedLabel* fallback_;
};

} // namespace brimlow
