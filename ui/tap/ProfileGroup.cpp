#include "ui/tap/ProfileGroup.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/ComboBox.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

QPushButton* newProfileButton() {
    auto* button = controls::prominentButton(u"New Profile"_s, u"plus"_s);
    button->setToolTip(u"Create a new profile"_s);
    style::setSmall(button);
    return button;
}

bool lists(const QComboBox& picker, const std::vector<TapProfile>& profiles) {
    if (picker.count() != static_cast<int>(profiles.size()))
        return false;
    int position = 0;
    return std::ranges::all_of(profiles, [&](const TapProfile& profile) {
        const int at = position++;
        return picker.itemText(at) == profile.name && picker.itemData(at).toUuid() == profile.id;
    });
}

} // namespace

ProfileGroup::ProfileGroup(QWidget* parent) : ProfileGroup(newProfileButton(), parent) {}

ProfileGroup::ProfileGroup(QPushButton* newProfile, QWidget* parent)
    : Section(u"Profile"_s, newProfile, parent), picker_(new controls::ComboBox(u"Profile"_s)),
      ofActive_(new QWidget) {
    connect(newProfile, &QPushButton::clicked, this, &ProfileGroup::newProfileRequested);
    connect(picker_, &QComboBox::activated, this,
            [this](int position) { Q_EMIT profileChosen(picker_->itemData(position).toUuid()); });
    auto* rows = new QVBoxLayout;
    rows->setSpacing(8);
    rows->addLayout(makeControls());
    rows->addWidget(new controls::Caption(
        u"Each profile has its own bindings. Switch via the menu bar (Brimlow icon) or ⌘1/⌘2/⌘3 "
        u"for the first three profiles."_s));
    card().add(rows);
}

QLayout* ProfileGroup::makeControls() {
    auto* line = new QHBoxLayout;
    line->setSpacing(6);
    line->addWidget(picker_, 1);
    auto* own = new QHBoxLayout(ofActive_);
    own->setContentsMargins({});
    own->setSpacing(6);
    const auto add = [this](QHBoxLayout* to, QPushButton* button,
                            void (ProfileGroup::*requested)()) {
        connect(button, &QPushButton::clicked, this, requested);
        to->addWidget(button);
    };
    add(own, controls::iconButton(u"Rename profile"_s, u"pencil"_s),
        &ProfileGroup::renameRequested);
    add(own, controls::destructiveIconButton(u"Delete profile"_s, u"trash"_s),
        &ProfileGroup::deleteRequested);
    add(own,
        controls::iconButton(u"Export this profile to a file you can share"_s,
                             u"square.and.arrow.up"_s),
        &ProfileGroup::exportRequested);
    line->addWidget(ofActive_);
    add(line,
        controls::iconButton(u"Import a profile from a shared file"_s, u"square.and.arrow.down"_s),
        &ProfileGroup::importRequested);
    return line;
}

void ProfileGroup::show(const std::vector<TapProfile>& profiles, const QUuid& activeId) {
    const QSignalBlocker blocker(picker_);
    if (!lists(*picker_, profiles)) { // filling it anew would close its menu
        picker_->clear();
        for (const TapProfile& profile : profiles)
            picker_->addItem(profile.name, profile.id);
    }
    const auto active = std::ranges::find(profiles, activeId, &TapProfile::id);
    const bool exists = active != profiles.end();
    picker_->setCurrentIndex(exists ? static_cast<int>(active - profiles.begin()) : -1);
    ofActive_->setVisible(exists);
}

} // namespace brimlow
