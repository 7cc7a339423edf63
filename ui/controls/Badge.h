#pragma once

#include <QLabel>

namespace brimlow::controls {

/// A capsule with a word on how something stands.
class Badge : public QLabel {
    Q_OBJECT

public:
    enum class Kind { green, orange, red, grey };

    explicit Badge(const QString& text, Kind kind, QWidget* parent = nullptr);

    void set(const QString& text, Kind kind);
};

} // namespace brimlow::controls
