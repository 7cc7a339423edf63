#pragma once

#include "profiles/TapPositionMapping.h"
#include "ui/controls/Card.h"

#include <vector>

class QPushButton;
class QVBoxLayout;

namespace brimlow {

class BindingRow;
class TrackpadBindingsMap;

/// The bindings of a profile on the map and as a list, or the offer to begin with the default
/// layout. Shows what it is given.
class BindingsGroup : public controls::Section {
    Q_OBJECT

public:
    explicit BindingsGroup(QWidget* parent = nullptr);

    /// `hasAnyRecorded`: whether a tap can trigger anything.
    void show(const std::vector<TapPositionMapping>& bindings, bool hasAnyRecorded);
    using QWidget::show;

Q_SIGNALS:
    void addRequested();
    void editRequested(const QUuid& id);
    void defaultLayoutRequested();

private:
    BindingsGroup(QPushButton* add, QWidget* parent);

    QWidget* makeEmptyState();
    void showRows(const std::vector<TapPositionMapping>& bindings);

    TrackpadBindingsMap* map_;
    QWidget* filled_;
    QVBoxLayout* list_;
    std::vector<BindingRow*> rows_;
    QWidget* notice_;
    QWidget* empty_;
};

} // namespace brimlow
