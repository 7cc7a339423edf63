#include "platform/none/NoSession.h"

using namespace Qt::StringLiterals;

namespace brimlow::platform {

Abilities NoSession::abilities() {
    Abilities abilities;
    abilities.sessionName = u"None"_s;
    abilities.missing = u"Windows and workspaces cannot be controlled: "_s + reason_ + u'.';
    return abilities;
}

} // namespace brimlow::platform
