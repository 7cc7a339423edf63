#pragma once

#include "profiles/TapProfile.h"
#include "ui/controls/Card.h"

#include <vector>

class QComboBox;
class QPushButton;

namespace brimlow {

/// The profiles: which one is active, and what can be done with it. Shows what it is given.
class ProfileGroup : public controls::Section {
    Q_OBJECT

public:
    explicit ProfileGroup(QWidget* parent = nullptr);

    void show(const std::vector<TapProfile>& profiles, const QUuid& activeId);
    using QWidget::show;

Q_SIGNALS:
    void newProfileRequested();
    void profileChosen(const QUuid& id);
    void renameRequested();
    void deleteRequested();
    void exportRequested();
    void importRequested();

private:
    ProfileGroup(QPushButton* newProfile, QWidget* parent);

    QLayout* makeControls();

    QComboBox* picker_;
    QWidget* ofActive_; // what is done with the active profile
};

} // namespace brimlow
