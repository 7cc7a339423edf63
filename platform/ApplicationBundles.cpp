#include "platform/ApplicationBundles.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

const QString systemFolder = u"/Applications"_s;
const QString suffix = u".app"_s;

QString fileName(const DesktopEntry& entry) {
    return QString(entry.plainName).replace(u'/', u':');
}

} // namespace

ApplicationBundles::ApplicationBundles(const std::vector<DesktopEntry>& entries,
                                       const QString& home) {
    const QString userFolder = home + u"/Applications"_s;
    folders_ = {{systemFolder, {}}, {u"/System/Applications"_s, {}}, {userFolder, {}}};

    QHash<QString, const DesktopEntry*> effective;
    std::vector<const DesktopEntry*> inOrder;
    for (const auto& entry : entries) {
        if (!effective.contains(entry.id))
            effective.insert(entry.id, &entry);
        inOrder.push_back(&entry);
    }
    // Those that menus show get the plain paths.
    std::ranges::stable_sort(inOrder, [](const auto* left, const auto* right) {
        return std::pair(!left->listed, left->id) < std::pair(!right->listed, right->id);
    });
    for (const auto* entry : inOrder)
        add(*entry, *effective.value(entry->id), entry->userOwned ? userFolder : systemFolder);
    for (auto& contents : folders_)
        std::ranges::sort(contents, {},
                          [](const QString& file) { return file.chopped(suffix.size()); });
}

void ApplicationBundles::add(const DesktopEntry& shown, const DesktopEntry& effective,
                             const QString& folder) {
    const std::pair place(folder, shown.id);
    if (&shown != &effective && placed_.contains(place))
        return; // the folder has it already
    placed_.insert(place);
    QString name = fileName(shown);
    while (entries_.contains(folder + u'/' + name + suffix))
        name += u" ("_s + shown.id + u')';
    const QString path = folder + u'/' + name + suffix;
    entries_.insert(path, &effective);
    if (&shown == &effective || !paths_.contains(shown.id))
        paths_.insert(shown.id, path);
    if (effective.listed && shown.listed)
        folders_[folder] << name + suffix;
}

} // namespace brimlow::platform
