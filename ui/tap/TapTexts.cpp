#include "ui/tap/TapTexts.h"

#include "platform/Format.h"

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

QString plural(qsizetype count) {
    return count == 1 ? QString() : u"s"_s;
}

} // namespace

QString recordedState(const TapPositionMapping& binding) {
    const auto count = static_cast<qsizetype>(binding.samples.size());
    if (count == 0)
        return u"Not recorded — won't trigger"_s;
    return QString::number(count) + u" sample"_s + plural(count) + u"  •  match radius ≈ "_s
           + platform::fixed(binding.matchRadius(), 5);
}

QString resetText(int count) {
    return u"Reset to Default Layout ("_s + QString::number(count) + u" position"_s + plural(count)
           + u')';
}

QString exportFilename(const QString& profileName) {
    QString name = profileName;
    for (QChar& character : name)
        if (character == u'/' || character == u':' || character == u'\\')
            character = u'-';
    return u"Brimlow-"_s + name + u".json"_s;
}

} // namespace brimlow
