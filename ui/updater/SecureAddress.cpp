#include "ui/updater/SecureAddress.h"

namespace brimlow {

using namespace Qt::StringLiterals;

std::optional<QUrl> secureAddress(const QString& text) {
    // Of the text, because QUrl makes every scheme lower case.
    if (!text.startsWith("https:"_L1))
        return std::nullopt;
    const QUrl address(text, QUrl::StrictMode);
    if (!address.isValid() || address.host().isEmpty())
        return std::nullopt;
    return address;
}

} // namespace brimlow
