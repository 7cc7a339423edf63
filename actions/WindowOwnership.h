#pragma once

#include "platform/CGWindow.h"
#include "platform/NSRunningApplication.h"

namespace brimlow {

/// Whether a window of the window list belongs to the application: its owner is that application or
/// a helper of it ("<bundleId>.…"), or its process is the application's first running instance
/// (absent when none runs) and the window is no other installed application's.
bool belongsTo(const platform::CGWindowInfo& window, const QString& bundleId,
               const std::optional<platform::NSRunningApplication>& firstInstance);

/// The first running instance; absent when there is none. Main thread.
std::optional<platform::NSRunningApplication> firstInstanceOf(const QString& bundleId);

} // namespace brimlow
