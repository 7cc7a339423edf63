#include "platform/linux/icons/IconTheme.h"

#include "platform/RegularFile.h"

#include <QFile>
#include <QFileInfo>

#include <glib.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace brimlow::platform {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr qint64 largestIndex = 4 << 20; // bytes; the largest themes' have a tenth of it
constexpr int largestSize = 4096;        // pixels

/// A theme's index, which has the syntax of a key file.
class Index {
public:
    explicit Index(const QByteArray& text) : file_(g_key_file_new(), g_key_file_unref) {
        g_key_file_set_list_separator(file_.get(), ',');
        g_key_file_load_from_data(file_.get(), text.constData(), static_cast<gsize>(text.size()),
                                  G_KEY_FILE_NONE, nullptr);
    }

    QStringList list(const char* key) const {
        const std::unique_ptr<gchar*, decltype(&g_strfreev)> values(
            g_key_file_get_string_list(file_.get(), "Icon Theme", key, nullptr, nullptr),
            g_strfreev);
        QStringList result;
        for (gchar** value = values.get(); value && *value; ++value)
            result << QString::fromUtf8(*value).trimmed();
        return result;
    }
    QString text(const QString& group, const char* key) const {
        const std::unique_ptr<gchar, decltype(&g_free)> value(
            g_key_file_get_string(file_.get(), group.toUtf8().constData(), key, nullptr), g_free);
        return QString::fromUtf8(value.get());
    }
    int number(const QString& group, const char* key, int absent) const {
        bool valid = false;
        const int value = text(group, key).trimmed().toInt(&valid);
        return valid ? std::clamp(value, 0, largestSize) : absent;
    }

private:
    std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> file_;
};

enum class Worth { nearImage, drawing, smallDrawing, largeImage, smallImage };

struct Candidate {
    Worth worth;
    int distance; // pixels
    QString path;
};

std::pair<Worth, int> worthOfImage(int nominal, int pixels) {
    // Shrinking an image of this much still costs less than most drawings do.
    constexpr int timesPixels = 4;
    if (nominal < pixels)
        return {Worth::smallImage, pixels - nominal};
    return {nominal <= timesPixels * pixels ? Worth::nearImage : Worth::largeImage,
            nominal - pixels};
}

std::pair<Worth, int> worthOfDrawing(int least, int most, int pixels) {
    if (most < pixels)
        return {Worth::smallDrawing, pixels - most};
    return {Worth::drawing, std::max(least - pixels, 0)};
}

} // namespace

IconFileNames::IconFileNames(const QString& icon) {
    for (const auto& suffix : {u".png"_s, u".svg"_s, u".xpm"_s}) {
        const QString name = icon + suffix;
        files.push_back(
            {name, IconFolder::hash(QFile::encodeName(name).toStdString()), suffix == ".svg"_L1});
    }
}

IconTheme::IconTheme(const QString& name, const QStringList& bases) : name_(name) {
    for (const auto& base : bases)
        places_ << base + u'/' + name;
    stamps_ = stamps();
    for (const auto& place : places_) {
        const QByteArray text = readRegularFile(place + u"/index.theme"_s, largestIndex).bytes;
        if (!text.isEmpty()) {
            readIndex(text);
            break;
        }
    }
}

void IconTheme::readIndex(const QByteArray& text) {
    const Index index(text);
    parents_ = index.list("Inherits");
    for (const auto& folder : index.list("Directories") + index.list("ScaledDirectories")) {
        const int nominal = index.number(folder, "Size", 0);
        const int scale = index.number(folder, "Scale", 1);
        if (nominal == 0 || scale == 0)
            continue;
        Size size{nominal, nominal, nominal, {}};
        const QString type = index.text(folder, "Type");
        if (type == "Scalable"_L1) {
            size.least = index.number(folder, "MinSize", nominal);
            size.most = index.number(folder, "MaxSize", nominal);
        } else if (type != "Fixed"_L1) {
            const int threshold = index.number(folder, "Threshold", 2);
            size.least -= threshold;
            size.most += threshold;
        }
        for (int* pixels : {&size.nominal, &size.least, &size.most})
            *pixels *= scale;
        for (const auto& place : places_) {
            if (QFileInfo(place).isDir())
                size.folders.emplace_back(place + u'/' + folder);
        }
        sizes_.push_back(std::move(size));
    }
}

IconTheme::Stamps IconTheme::stamps() const {
    Stamps stamps;
    for (const auto& place : places_) {
        for (const auto& path : {place, QString(place + u"/index.theme"_s)}) {
            std::error_code absent; // leaves the smallest time
            stamps.push_back(
                fs::last_write_time(fs::path(QFile::encodeName(path).toStdString()), absent));
        }
    }
    return stamps;
}

void IconTheme::refreshFolders() {
    for (auto& size : sizes_) {
        for (auto& folder : size.folders)
            folder.refresh();
    }
}

void IconTheme::find(const IconFileNames& icon, int pixels, QStringList& paths) const {
    std::vector<Candidate> found;
    for (const auto& size : sizes_) {
        for (const auto& folder : size.folders) {
            for (const auto& file : icon.files) {
                if (!folder.mayHold(file.hash))
                    continue;
                const auto [worth, distance] = file.drawing
                                                   ? worthOfDrawing(size.least, size.most, pixels)
                                                   : worthOfImage(size.nominal, pixels);
                found.push_back({worth, distance, folder.path() + u'/' + file.name});
            }
        }
    }
    std::ranges::stable_sort(found, {}, [](const Candidate& candidate) {
        return std::pair(candidate.worth, candidate.distance);
    });
    for (auto& candidate : found)
        paths << std::move(candidate.path);
}

} // namespace brimlow::platform
