#pragma once

#include "ui/pickers/WindowScan.h"

#include <QWidget>

#include <optional>

class QPushButton;
class QVBoxLayout;

namespace brimlow {

namespace controls {
class Banner;
class Caption;
} // namespace controls
class BoundWindow;
class RowList;

/// What of a binding says which window is meant.
struct WindowBinding {
    std::optional<std::uint32_t> targetWindowID;
    QString windowTitle; // the part that stays

    bool operator==(const WindowBinding&) const = default;
};

/// Binds one of the windows that an application has open, or none. Main thread.
class FocusWindowPicker : public QWidget {
    Q_OBJECT

public:
    explicit FocusWindowPicker(bool hideAlreadyBound, QWidget* parent = nullptr);

    /// The application whose windows are listed. Another one is scanned at once, if this is shown.
    void setBundleId(const std::optional<QString>& bundleId);

    /// Setting it tells nobody.
    const WindowBinding& binding() const { return binding_; }
    void setBinding(const WindowBinding& binding);

Q_SIGNALS:
    /// The user has chosen another window, or none.
    void bindingChanged(const WindowBinding& binding);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLayout* makeHeader();
    void scanUnlessHidden();
    void showScan(const WindowScan& scan);
    void bind(const WindowBinding& binding);
    void refresh();
    QString hint() const;

    const bool hideAlreadyBound_;
    std::optional<QString> bundleId_;
    WindowBinding binding_;
    WindowScan scan_;
    std::vector<PickableWindow> visible_; // what the list shows

    controls::Caption* count_;
    QPushButton* rescan_;
    controls::Caption* unbound_;
    BoundWindow* bound_;
    controls::Caption* hint_;
    RowList* list_;
    controls::Banner* error_ = nullptr; // none where all is well
    QVBoxLayout* rows_;
};

} // namespace brimlow
