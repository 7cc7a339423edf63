#pragma once

#include "ui/onboarding/CentredPage.h"

namespace brimlow {

/// What Brimlow is.
class WelcomePage : public CentredPage {
    Q_OBJECT

public:
    explicit WelcomePage(QWidget* parent = nullptr);
};

} // namespace brimlow
