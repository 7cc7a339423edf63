#pragma once

#include "profiles/TapPositionMapping.h"

#include <QString>

namespace brimlow {

// What the Tap page says about its profiles and bindings. Any thread.

/// How well the binding is recorded.
QString recordedState(const TapPositionMapping& binding);

/// "Reset to Default Layout (10 positions)"
QString resetText(int count);

/// The name that a file with that profile gets.
QString exportFilename(const QString& profileName);

} // namespace brimlow
