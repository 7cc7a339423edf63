#pragma once

#include "profiles/TapPositionMapping.h"

#include <QProcessEnvironment>

#include <vector>

namespace brimlow::desktop {

/// A binding that answers to taps within a tenth of the pad around (x, y).
TapPositionMapping bindingAt(const QString& name, double x, double y, TapAction action);

/// Writes the preferences that a program in that environment will read: one active profile of these
/// bindings, the introduction done. The environment must have a scratch XDG_CONFIG_HOME.
void writePreferences(const QProcessEnvironment& environment,
                      const std::vector<TapPositionMapping>& bindings,
                      const QString& profileName = QStringLiteral("Scratch"));

} // namespace brimlow::desktop
