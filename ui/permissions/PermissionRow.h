#pragma once

#include "ui/permissions/PageSection.h"

#include <optional>

namespace brimlow {

/// One permission: what it is needed for, whether it is granted, and two buttons that help to get
/// it, always there.
class PermissionRow : public PageSection {
    Q_OBJECT

public:
    using Granted = std::optional<bool>; // none: nobody can say

    PermissionRow(const QString& icon, const QString& title, const QString& description,
                  Granted granted, QWidget* parent = nullptr);

    void setGranted(Granted granted);

Q_SIGNALS:
    void grantPressed();

private:
    void showGranted();

    QString title_;
    Granted granted_;
    controls::Badge* badge_;
};

} // namespace brimlow
