#include "ui/updater/AppcastFeed.h"

#include "ui/updater/SecureAddress.h"
#include "ui/updater/VersionOrder.h"

#include <QXmlStreamReader>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr auto sparkle = "http://www.andymatuschak.org/xml-namespaces/sparkle"_L1;
constexpr qsizetype longestVersion = 40; // it has to fit into a sentence

/// What an item says, whether in elements or in the attributes of its enclosure.
struct RawItem {
    QString title = {};
    QString link = {};
    QString description = {};
    QString enclosure = {};
    QString version = {};
    QString shortVersion = {};
    QString channel = {};
    QString system = {};
};

/// The first one counts.
void keep(QString& field, const QString& value) {
    if (field.isEmpty())
        field = value.trimmed();
}

QString RawItem::*fieldFor(const QXmlStreamReader& xml) {
    struct Row {
        QLatin1StringView space;
        QLatin1StringView name;
        QString RawItem::*field;
    };
    for (const Row& row : {Row{""_L1, "title"_L1, &RawItem::title},
                           {""_L1, "link"_L1, &RawItem::link},
                           {""_L1, "description"_L1, &RawItem::description},
                           {sparkle, "version"_L1, &RawItem::version},
                           {sparkle, "shortVersionString"_L1, &RawItem::shortVersion},
                           {sparkle, "channel"_L1, &RawItem::channel}}) {
        if (xml.namespaceUri() == row.space && xml.name() == row.name)
            return row.field;
    }
    return nullptr;
}

void readEnclosure(const QXmlStreamAttributes& attributes, RawItem& item) {
    keep(item.enclosure, attributes.value("url"_L1).toString());
    keep(item.version, attributes.value(sparkle, "version"_L1).toString());
    keep(item.shortVersion, attributes.value(sparkle, "shortVersionString"_L1).toString());
    keep(item.system, attributes.value(sparkle, "os"_L1).toString());
}

RawItem readItem(QXmlStreamReader& xml) {
    RawItem item;
    while (xml.readNextStartElement()) {
        if (const auto field = fieldFor(xml)) {
            // Not with its children, which Qt would follow down as deep as they are nested.
            keep(item.*field, xml.readElementText(QXmlStreamReader::SkipChildElements));
            continue;
        }
        if (xml.namespaceUri().isEmpty() && xml.name() == "enclosure"_L1)
            readEnclosure(xml.attributes(), item);
        xml.skipCurrentElement();
    }
    return item;
}

/// Absent when it is for other systems, for those who asked for early versions, or has no version.
std::optional<AppcastItem> offered(const RawItem& raw) {
    const QString version = raw.shortVersion.isEmpty() ? raw.version : raw.shortVersion;
    if (version.isEmpty() || version.size() > longestVersion || !raw.channel.isEmpty()
        || (!raw.system.isEmpty() && raw.system != "linux"_L1))
        return std::nullopt;
    auto page = secureAddress(raw.link);
    if (!page)
        page = secureAddress(raw.enclosure);
    return AppcastItem{.title = raw.title,
                       .version = version,
                       .page = page.value_or(QUrl()),
                       .description = raw.description};
}

void readChannel(QXmlStreamReader& xml, std::optional<AppcastItem>& newest) {
    while (xml.readNextStartElement()) {
        if (xml.name() != "item"_L1) {
            xml.skipCurrentElement();
            continue;
        }
        auto item = offered(readItem(xml));
        if (item && (!newest || compareVersions(item->version, newest->version) > 0))
            newest = std::move(item);
    }
}

/// To the start of the root element.
void readProlog(QXmlStreamReader& xml) {
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::StartElement) {
        if (xml.isDTD())
            xml.raiseError();
    }
    if (!xml.hasError() && xml.name() != "rss"_L1)
        xml.raiseError();
}

} // namespace

AppcastFeed readAppcast(const QByteArray& bytes) {
    if (bytes.size() > largestFeed)
        return {.error = u"The list of versions is too long."_s};
    QXmlStreamReader xml(bytes);
    AppcastFeed feed;
    readProlog(xml);
    while (xml.readNextStartElement()) {
        if (xml.name() == "channel"_L1)
            readChannel(xml, feed.newest);
        else
            xml.skipCurrentElement();
    }
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        return {.error = u"What the server sent is no list of versions."_s};
    if (!feed.newest)
        feed.error = u"The server names no version for this system."_s;
    return feed;
}

} // namespace brimlow
