#pragma once

#include "ui/permissions/PageSection.h"

#include <optional>

class QPushButton;

namespace brimlow {

/// One permission: what it is for, whether it is granted, and a button to get it.
class GrantRow : public PageSection {
    Q_OBJECT

public:
    struct Texts {
        QString icon;
        style::Tone color;
        QString title;
        QString tag; // while it is not granted
        QString description;
    };

    /// Nobody can say whether it is granted, until somebody does.
    explicit GrantRow(const Texts& texts, QWidget* parent = nullptr);

    void setGranted(std::optional<bool> granted);

Q_SIGNALS:
    void grantPressed();

private:
    QString title_;
    QString tag_;
    controls::Badge* statusTag_;
    QPushButton* grant_;
};

} // namespace brimlow
