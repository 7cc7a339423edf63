#include "platform/none/NoSession.h"

using namespace Qt::StringLiterals;

namespace brimlow::platform {

Abilities NoSession::abilities() {
    return {.sessionName = u"None that Brimlow knows"_s,
            .controlsWindows = refusal(),
            .readsTitles = refusal(),
            .switchesWorkspaces = refusal(),
            .remedy = remedy_};
}

} // namespace brimlow::platform
