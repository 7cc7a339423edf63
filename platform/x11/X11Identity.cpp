#include "platform/x11/X11Identity.h"

namespace brimlow::platform {

QString applicationIdOf(const X11IdentityEvidence& evidence) {
    if (!evidence.gtkApplicationId.isEmpty())
        return evidence.gtkApplicationId;
    return evidence.className.isEmpty() ? evidence.instance : evidence.className;
}

} // namespace brimlow::platform
