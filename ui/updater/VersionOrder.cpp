#include "ui/updater/VersionOrder.h"

#include <QStringList>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

struct Version {
    QStringList numbers;    // without leading zeros: 0 is empty
    QStringList preRelease; // words in lower case and numbers; none in a release
};

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

QString takeWhile(QStringView& rest, auto belongs) {
    const auto* const end = std::find_if_not(rest.begin(), rest.end(), belongs);
    const QString taken = rest.first(end - rest.begin()).toString();
    rest = rest.sliced(taken.size());
    return taken;
}

QString takeNumber(QStringView& rest) {
    takeWhile(rest, [](QChar character) { return character == u'0'; });
    return takeWhile(rest, isDigit);
}

QStringList preReleaseOf(QStringView rest) {
    QStringList parts;
    while (!rest.isEmpty()) {
        if (isDigit(rest.front()))
            parts << takeNumber(rest);
        else if (rest.front().isLetter())
            parts << takeWhile(rest, [](QChar character) {
                         return character.isLetter();
                     }).toLower();
        else
            rest = rest.sliced(1);
    }
    return parts;
}

Version parse(const QString& text) {
    QStringView rest = QStringView(text).trimmed();
    if (rest.startsWith(u'v', Qt::CaseInsensitive))
        rest = rest.sliced(1);
    if (const qsizetype plus = rest.indexOf(u'+'); plus >= 0)
        rest = rest.first(plus);
    Version version;
    while (!rest.isEmpty() && isDigit(rest.front())) {
        version.numbers << takeNumber(rest);
        if (rest.startsWith(u'.'))
            rest = rest.sliced(1);
    }
    while (!version.numbers.isEmpty() && version.numbers.last().isEmpty())
        version.numbers.removeLast();
    version.preRelease = preReleaseOf(rest);
    return version;
}

bool isNumber(const QString& part) {
    return part.isEmpty() || isDigit(part.front());
}

/// Numbers come before words.
std::weak_ordering compareParts(const QString& first, const QString& second) {
    if (isNumber(first) != isNumber(second))
        return isNumber(second) <=> isNumber(first);
    if (isNumber(first) && first.size() != second.size())
        return first.size() <=> second.size();
    return first.compare(second) <=> 0;
}

std::weak_ordering compareLists(const QStringList& first, const QStringList& second) {
    return std::lexicographical_compare_three_way(first.begin(), first.end(), second.begin(),
                                                  second.end(), compareParts);
}

} // namespace

std::weak_ordering compareVersions(const QString& first, const QString& second) {
    const Version one = parse(first);
    const Version other = parse(second);
    if (const auto order = compareLists(one.numbers, other.numbers); order != 0)
        return order;
    if (one.preRelease.isEmpty() || other.preRelease.isEmpty())
        return one.preRelease.isEmpty() <=> other.preRelease.isEmpty();
    return compareLists(one.preRelease, other.preRelease);
}

} // namespace brimlow
