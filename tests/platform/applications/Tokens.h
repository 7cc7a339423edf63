#pragma once

#include "platform/DesktopEntry.h"
#include "platform/Session.h"

#include <QStringList>

namespace brimlow::test {

/// Gives numbered tokens and remembers those that came back.
class Tokens final : public platform::Startup {
public:
    QString begin(const platform::DesktopEntry& application) override {
        began << application.id;
        return QStringLiteral("token %1").arg(began.size());
    }
    void abandon(const QString& token) override { abandoned << token; }

    QStringList began;
    QStringList abandoned;
};

} // namespace brimlow::test
