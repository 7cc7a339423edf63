#pragma once

#include "ui/controls/Sheet.h"

class QLineEdit;

namespace brimlow {

/// Asks for a profile's name; a blank one is none. Accepted, it has a name().
class ProfileNameSheet : public controls::Sheet {
    Q_OBJECT

public:
    struct Texts {
        QString title;
        QString caption;
        QString placeholder;
        QString confirm;
    };

    ProfileNameSheet(const Texts& texts, const QString& name, QWidget* parent);

    QString name() const;

private:
    QLineEdit* name_;
};

} // namespace brimlow
