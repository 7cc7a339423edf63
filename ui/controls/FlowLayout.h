#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace brimlow::controls {

/// Lays things out as words of a text: side by side, and below each other where the width ends.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    explicit FlowLayout(int spacing = 8);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// What comes of one pass over all items; the height is that of the lines without margins.
    int flow(const QRect& area, bool place) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

} // namespace brimlow::controls
