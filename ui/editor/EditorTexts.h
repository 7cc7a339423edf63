#pragma once

#include "profiles/TapAction.h"
#include "profiles/TapSample.h"

#include <QString>

#include <vector>

namespace brimlow {

// What the binding editor says about the values that it shows. Any thread.

/// "any touch" to "very firm".
QString pressureLabel(double minimumPressure);
QString pressureReadout(double minimumPressure);
QString matchRadiusReadout(double matchRadius);

/// Where the first sample is; there must be one.
QString recordedText(const std::vector<TapSample>& samples);
/// Empty unless there are several samples.
QString legacyText(const std::vector<TapSample>& samples);

/// How long it takes until recording starts.
QString countdownText(int seconds);

/// What the click switch means as it stands.
QString clickText(bool requireClick);
/// A warning; empty where there is nothing to warn of.
QString clickWarning(TapAction action, bool requireClick);

} // namespace brimlow
