#pragma once

#include <QStringList>

namespace brimlow::platform {

/// Whether this process can read every trackpad that exists and control this session's windows.
/// Main thread, like all of this file.
bool AXIsProcessTrusted();

enum class AXTrustedCheckOptionPrompt { no, yes };

/// The same answer; when it is no and a prompt is asked for, the user is told what is missing and
/// how to get it.
bool AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt prompt);

/// Whether this session lets us read the titles of other programs' windows. Prompts nobody.
bool CGPreflightScreenCaptureAccess();

/// What keeps this process from being trusted and what to do about it, one sentence each; empty
/// when it is trusted.
QStringList accessibilityProblems();

} // namespace brimlow::platform
