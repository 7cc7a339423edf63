#include "ui/pickers/AppFilter.h"

#include "profiles/BlankTrimming.h"

#include <QLocale>

#include <algorithm>
#include <iterator>

namespace brimlow {

namespace {

// Capitals, because small letters depend on their neighbours (σ, ς) and some have no single one
// that is greater (ß). An accent may be part of its letter or stand behind it.
QString withoutCase(const QString& text, const QLocale& language) {
    return language.toUpper(text.normalized(QString::NormalizationForm_C));
}

} // namespace

std::vector<InstalledApp> filteredApps(const std::vector<InstalledApp>& apps,
                                       const QString& query) {
    const QLocale language;
    const QString wanted = withoutCase(trimmedBlanks(query).toString(), language);
    if (wanted.isEmpty())
        return apps;
    const auto matches = [&](const InstalledApp& app) {
        return withoutCase(app.name, language).contains(wanted)
               || withoutCase(app.id, language).contains(wanted);
    };
    std::vector<InstalledApp> found;
    std::ranges::copy_if(apps, std::back_inserter(found), matches);
    return found;
}

} // namespace brimlow
