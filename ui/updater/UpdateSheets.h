#pragma once

#include <QString>

namespace brimlow {

namespace controls {
class Sheet;
}

struct AppcastItem;

// What a check for updates says: windows of their own, not yet shown.

/// The answer takes its time. Rejected when the user no longer wants it.
controls::Sheet* checkingSheet();
/// With its notes. Accepted when the user wants to see its page, if it has one.
controls::Sheet* newerVersionSheet(const AppcastItem& item, const QString& currentVersion);
controls::Sheet* upToDateSheet(const QString& currentVersion);
controls::Sheet* checkFailedSheet(const QString& reason);
/// There is no browser that takes the address.
controls::Sheet* pageNotOpenedSheet(const QString& address);

} // namespace brimlow
