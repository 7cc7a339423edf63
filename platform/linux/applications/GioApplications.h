#pragma once

#include "platform/Applications.h"

namespace brimlow::platform {

/// The desktop entries of this machine, read and started by way of GIO.
class GioApplications final : public Applications {
public:
    std::shared_ptr<const ApplicationCatalogue> catalogue() override;
    Outcome launch(const QString& id, Startup& startup) override;
};

} // namespace brimlow::platform
