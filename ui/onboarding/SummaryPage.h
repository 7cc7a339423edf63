#pragma once

#include "ui/onboarding/CentredPage.h"

namespace brimlow {

class PermissionsManager;
class SummaryRow;

/// What is granted, and what comes next.
class SummaryPage : public CentredPage {
    Q_OBJECT

public:
    explicit SummaryPage(QWidget* parent = nullptr);

    void show(const PermissionsManager& permissions);
    using QWidget::show;

private:
    SummaryRow* addSummary(const QString& title);

    SummaryRow* accessibility_;
    SummaryRow* screenRecording_;
};

} // namespace brimlow
