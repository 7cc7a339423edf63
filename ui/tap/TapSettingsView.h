#pragma once

#include "profiles/ProfileJSONDocument.h"
#include "ui/Refresh.h"
#include "ui/files/FileDialogs.h"

#include <QPointer>
#include <QUuid>
#include <QWidget>

#include <optional>

class QDialog;

namespace brimlow {

class AppCoordinator;
class BindingDraft;
class BindingsGroup;
class ProfileGroup;
class TapPositionMappings;
struct TapPositionMapping;

/// The page on which profiles and their bindings are managed. It holds none of them: every change
/// goes to the store, and what the store says is shown on the next turn. Main thread.
class TapSettingsView : public QWidget {
public:
    /// Both outlive it.
    TapSettingsView(AppCoordinator& coordinator, FileDialogs& fileDialogs,
                    QWidget* parent = nullptr);

private:
    void connectGroups();
    QWidget* makeColumn();
    void showStore();

    void present(QDialog* sheet);
    void presentEditor(BindingDraft draft);
    void addBinding();
    void editBinding(const QUuid& id);
    const TapPositionMapping* editingBinding() const;
    void newProfile();
    void renameProfile();
    void confirmDeleteProfile();
    void confirmClearAll();
    void useDefaultLayout();

    void exportProfile();
    void importProfile();
    void showImportError(const QString& message);

    AppCoordinator& coordinator_;
    TapPositionMappings& positionMappings_;
    FileDialogs& fileDialogs_;
    ProfileGroup* profiles_;
    BindingsGroup* bindings_;

    QPointer<QDialog> sheet_; // at most one is open
    std::optional<QUuid> editingMappingId_;
    std::optional<ProfileJSONDocument> exportDocument_; // on its way to a file
    bool showingImporter_ = false;

    Refresh changes_;
};

} // namespace brimlow
