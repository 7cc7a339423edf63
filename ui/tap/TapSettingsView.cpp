#include "ui/tap/TapSettingsView.h"

#include "engine/AppCoordinator.h"
#include "platform/Platform.h"
#include "platform/Streams.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/ScrollPage.h"
#include "ui/controls/Sheet.h"
#include "ui/editor/BindingEditorSheet.h"
#include "ui/tap/BindingsGroup.h"
#include "ui/tap/ProfileGroup.h"
#include "ui/tap/ProfileImport.h"
#include "ui/tap/ProfileNameSheet.h"
#include "ui/tap/TapTexts.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr int defaultLayoutCount = 10;

} // namespace

TapSettingsView::TapSettingsView(AppCoordinator& coordinator, FileDialogs& fileDialogs,
                                 QWidget* parent)
    : QWidget(parent), coordinator_(coordinator), positionMappings_(coordinator.positionMappings),
      fileDialogs_(fileDialogs), profiles_(new ProfileGroup), bindings_(new BindingsGroup),
      changes_(platform::Platform::current().mainQueue, [this] { showStore(); }) {
    connectGroups();
    auto* page = new controls::ScrollPage(u"Tap"_s);
    page->setColumn(makeColumn());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(page);
    showStore();
    changes_.observe(positionMappings_);
}

void TapSettingsView::connectGroups() {
    connect(profiles_, &ProfileGroup::profileChosen, this,
            [this](const QUuid& id) { positionMappings_.switchTo(id); });
    connect(profiles_, &ProfileGroup::newProfileRequested, this, &TapSettingsView::newProfile);
    connect(profiles_, &ProfileGroup::renameRequested, this, &TapSettingsView::renameProfile);
    connect(profiles_, &ProfileGroup::deleteRequested, this,
            &TapSettingsView::confirmDeleteProfile);
    connect(profiles_, &ProfileGroup::exportRequested, this, &TapSettingsView::exportProfile);
    connect(profiles_, &ProfileGroup::importRequested, this, &TapSettingsView::importProfile);
    connect(bindings_, &BindingsGroup::addRequested, this, &TapSettingsView::addBinding);
    connect(bindings_, &BindingsGroup::editRequested, this, &TapSettingsView::editBinding);
    connect(bindings_, &BindingsGroup::defaultLayoutRequested, this,
            &TapSettingsView::useDefaultLayout);
}

QWidget* TapSettingsView::makeColumn() {
    auto* reset = controls::borderedButton(resetText(defaultLayoutCount), u"rectangle.split.2x1"_s);
    connect(reset, &QPushButton::clicked, this, &TapSettingsView::useDefaultLayout);
    auto* clear = controls::destructiveButton(u"Clear All Bindings"_s, u"trash"_s);
    connect(clear, &QPushButton::clicked, this, &TapSettingsView::confirmClearAll);
    auto* buttons = new controls::FlowLayout;
    buttons->addWidget(reset);
    buttons->addWidget(clear);

    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins({});
    rows->setSpacing(20);
    rows->addWidget(profiles_);
    rows->addWidget(bindings_);
    rows->addLayout(buttons);
    rows->addStretch();
    return column;
}

void TapSettingsView::showStore() {
    const auto* active = positionMappings_.activeProfile();
    profiles_->show(positionMappings_.profiles, positionMappings_.activeProfileId);
    bindings_->show(active ? active->bindings : std::vector<TapPositionMapping>(),
                    positionMappings_.hasAnyRecorded());
    if (editingMappingId_ && !editingBinding() && sheet_)
        sheet_->reject(); // another profile is active, or the binding is gone
}

void TapSettingsView::present(QDialog* sheet) {
    sheet_ = sheet;
    sheet->open();
}

void TapSettingsView::presentEditor(BindingDraft draft) {
    auto* sheet = new BindingEditorSheet(
        std::move(draft), positionMappings_, coordinator_.recorder, coordinator_.trackpad,
        [this] {
            editingMappingId_.reset();
            sheet_->hide();
            sheet_->deleteLater();
        },
        this);
    present(sheet);
}

void TapSettingsView::addBinding() {
    presentEditor(BindingDraft::create());
}

void TapSettingsView::editBinding(const QUuid& id) {
    editingMappingId_ = id;
    if (const auto* binding = editingBinding())
        presentEditor(BindingDraft::edit(*binding));
}

const TapPositionMapping* TapSettingsView::editingBinding() const {
    const auto* active = positionMappings_.activeProfile();
    if (!active || !editingMappingId_)
        return nullptr;
    const auto found =
        std::ranges::find(active->bindings, *editingMappingId_, &TapPositionMapping::id);
    return found == active->bindings.end() ? nullptr : &*found;
}

void TapSettingsView::newProfile() {
    auto* sheet = new ProfileNameSheet(
        {.title = u"New Profile"_s,
         .caption = u"Name your profile. It will start with 10 default seed positions you can "
                    u"record into."_s,
         .placeholder = u"e.g. Work, Personal, Gaming"_s,
         .confirm = u"Create"_s},
        {}, this);
    connect(sheet, &QDialog::accepted, this,
            [this, sheet] { positionMappings_.createProfile(sheet->name()); });
    present(sheet);
}

void TapSettingsView::renameProfile() {
    const auto* active = positionMappings_.activeProfile();
    if (!active)
        return;
    auto* sheet = new ProfileNameSheet({.title = u"Rename Profile"_s,
                                        .caption = {},
                                        .placeholder = u"Profile name"_s,
                                        .confirm = u"Save"_s},
                                       active->name, this);
    connect(sheet, &QDialog::accepted, this, [this, sheet, renamingProfileId = active->id] {
        positionMappings_.renameProfile(renamingProfileId, sheet->name());
    });
    present(sheet);
}

void TapSettingsView::confirmDeleteProfile() {
    const auto* active = positionMappings_.activeProfile();
    if (!active)
        return;
    auto* sheet = controls::confirmation(
        u"Delete this profile?"_s,
        u"All bindings in this profile will be deleted. This cannot be undone."_s,
        u"Delete Profile"_s, this);
    connect(sheet, &QDialog::accepted, this, [this, confirmingDeleteProfileId = active->id] {
        positionMappings_.removeProfile(confirmingDeleteProfileId);
    });
    present(sheet);
}

void TapSettingsView::confirmClearAll() {
    auto* sheet = controls::confirmation(
        u"Clear all bindings in this profile?"_s,
        u"Every binding in the active profile will be removed. This can't be undone."_s,
        u"Delete All"_s, this);
    connect(sheet, &QDialog::accepted, this, [this] { positionMappings_.clearAllBindings(); });
    present(sheet);
}

void TapSettingsView::useDefaultLayout() {
    positionMappings_.resetToDefaultLayout(defaultLayoutCount);
}

void TapSettingsView::exportProfile() {
    if (exportDocument_)
        return; // its dialog is still open
    const auto bytes = positionMappings_.exportActiveProfileData();
    if (!bytes)
        return;
    const auto* active = positionMappings_.activeProfile();
    exportDocument_ = ProfileJSONDocument{*bytes};
    fileDialogs_.save({.parent = this,
                       .title = u"Export Profile"_s,
                       .contentType = ProfileJSONDocument::writableContentType.toString(),
                       .proposedName = exportFilename(active ? active->name : u"Profile"_s)},
                      [this](const FileDialogs::Answer& answer) {
                          const auto document = std::exchange(exportDocument_, std::nullopt);
                          if (answer.path.isEmpty())
                              return;
                          if (const auto failure = document->write(answer.path))
                              platform::printErrorLine(u"Brimlow: the profile was not exported: "_s
                                                       + *failure);
                      });
}

void TapSettingsView::importProfile() {
    if (std::exchange(showingImporter_, true))
        return; // it is still open
    fileDialogs_.open({.parent = this,
                       .title = u"Import Profile"_s,
                       .contentType = ProfileJSONDocument::readableContentType.toString()},
                      [this](const FileDialogs::Answer& answer) {
                          showingImporter_ = false;
                          if (!answer.error.isEmpty())
                              return showImportError(answer.error);
                          if (answer.path.isEmpty())
                              return;
                          if (const auto error = importProfileFile(positionMappings_, answer.path))
                              showImportError(*error);
                      });
}

void TapSettingsView::showImportError(const QString& message) {
    present(controls::alert(u"Import failed"_s, message, this));
}

} // namespace brimlow
