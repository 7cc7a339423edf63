#pragma once

#include "actions/InstalledAppsProvider.h"
#include "ui/Refresh.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QLineEdit;
class QPushButton;

namespace brimlow {

class AppChip;
class RowList;

/// Chooses an installed application: a chip with the chosen one, or a list to search. Main thread.
class AppPickerView : public QWidget {
    Q_OBJECT

public:
    explicit AppPickerView(QWidget* parent = nullptr);

    /// The bundle identifier of the chosen application. Setting it tells nobody.
    const std::optional<QString>& selectedBundleId() const { return selected_; }
    void setSelectedBundleId(const std::optional<QString>& bundleId);

Q_SIGNALS:
    /// The user has chosen another one, or none.
    void selectedBundleIdChanged(const std::optional<QString>& bundleId);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeSearch();
    QWidget* makeScanning();
    void refresh();
    void refreshChip();
    void refreshList();

    void expand();
    void collapse();
    void choose(int row);
    void clear();
    bool handlesEscape() const;

    std::shared_ptr<InstalledAppsProvider> provider_ = InstalledAppsProvider::make();
    std::optional<QString> selected_;
    bool isExpanded_ = true;
    std::vector<InstalledApp> found_; // what the list shows

    AppChip* chip_;
    QLineEdit* query_;
    QPushButton* cancel_;
    QWidget* scanning_;
    RowList* list_;
    QWidget* search_; // all of it but the chip

    Refresh refresh_;
};

} // namespace brimlow
