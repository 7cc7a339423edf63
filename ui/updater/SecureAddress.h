#pragma once

#include <QUrl>

#include <optional>

namespace brimlow {

/// `text` as an address whose scheme is exactly "https" and which names a host; absent where it is
/// none, and where it is no address at all.
std::optional<QUrl> secureAddress(const QString& text);

} // namespace brimlow
