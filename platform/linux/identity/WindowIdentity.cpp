#include "platform/linux/identity/WindowIdentity.h"

namespace brimlow::platform {

QString applicationIdOf(const WindowEvidence& evidence, const ApplicationCatalogue&) {
    if (!evidence.statedId.isEmpty())
        return evidence.statedId;
    return evidence.className.isEmpty() ? evidence.instance : evidence.className;
}

} // namespace brimlow::platform
