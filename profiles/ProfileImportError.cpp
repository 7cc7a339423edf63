#include "profiles/ProfileImportError.h"

namespace brimlow {

using namespace Qt::StringLiterals;

QString ProfileImportError::errorDescription() const {
    switch (kind_) {
    case Kind::tooNew:
        return u"This profile was exported by a newer version of Brimlow (format v"_s
               + QString::number(version_) + u"). Update Brimlow and try again."_s;
    case Kind::unreadable:
        return u"This file couldn't be read as a Brimlow profile."_s;
    case Kind::notABrimlowProfile:
        return u"This file isn't a Brimlow profile export."_s;
    }
    return {};
}

} // namespace brimlow
