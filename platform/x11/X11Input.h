#pragma once

#include "platform/Session.h"

namespace brimlow::platform {

/// Does what a known shortcut means instead of typing it: applications here do not agree on keys,
/// and typed keys would go astray whenever the focus changes meanwhile.
class X11Input : public Input {
public:
    explicit X11Input(Windows& windows) : windows_(windows) {}

    Outcome post(const KeyEvent& event) override;

private:
    Outcome closeActiveWindow();

    Windows& windows_;
};

} // namespace brimlow::platform
