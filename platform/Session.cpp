#include "platform/Session.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

QString Abilities::complaint() const {
    if (controlsWindows)
        return {};
    return u"Windows and workspaces cannot be controlled: %1. %2"_s.arg(controlsWindows.reason,
                                                                        remedy);
}

} // namespace brimlow::platform
