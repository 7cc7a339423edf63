#pragma once

#include <QStringList>

namespace brimlow::platform {

// What this process may do here. Main thread, all of it. Problems are told on standard error, too:
// there may be no screen to prompt on.

/// Whether this process can read every trackpad that exists and control this session's windows.
bool AXIsProcessTrusted();

enum class AXTrustedCheckOptionPrompt { no, yes };

/// The same answer; when it is no and a prompt is asked for, the user is told what is missing and
/// how to get it.
bool AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt prompt);

/// What keeps this process from being trusted and what to do about it, a sentence or two each;
/// empty when it is trusted.
QStringList accessibilityProblems();

/// Whether this session lets us read the titles of other programs' windows. Prompts nobody.
bool CGPreflightScreenCaptureAccess();

/// The same answer; when it is no, the user is told why.
bool CGRequestScreenCaptureAccess();

} // namespace brimlow::platform
