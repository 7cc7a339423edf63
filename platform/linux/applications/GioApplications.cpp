#include "platform/linux/applications/GioApplications.h"

#include <QDir>

namespace brimlow::platform {

std::shared_ptr<const ApplicationCatalogue> GioApplications::catalogue() {
    return std::make_shared<const ApplicationCatalogue>(std::vector<DesktopEntry>(),
                                                        QDir::homePath());
}

Outcome GioApplications::launch(const QString&, Startup&) {
    return Outcome::failure(QStringLiteral("not yet"));
}

} // namespace brimlow::platform
