#include "tests/support/Printing.h"
#include "ui/updater/AppcastFeed.h"
#include "ui/updater/ReleaseNotes.h"
#include "ui/updater/VersionOrder.h"

#include <QElapsedTimer>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

TEST(Versions, AreOrderedByAge) {
    // Each line is older than the next; what stands on one line is the same.
    const QList<QStringList> ages{{u"0"_s, u"0.0"_s, u""_s},
                                  {u"1.0-1"_s},
                                  {u"1.0-alpha"_s},
                                  {u"1.0-beta.2"_s, u"1.0beta2"_s, u"1.0.0-BETA02"_s},
                                  {u"1.0-beta.10"_s},
                                  {u"1"_s, u"1.0"_s, u"v1.0.0"_s, u" 01.0+build.7"_s},
                                  {u"1.9"_s},
                                  {u"1.10"_s},
                                  {u"99999999999999999998"_s},
                                  {u"99999999999999999999"_s}};
    for (qsizetype i = 0; i < ages.size(); ++i)
        for (qsizetype j = 0; j < ages.size(); ++j)
            for (const QString& first : ages[i])
                for (const QString& second : ages[j])
                    EXPECT_TRUE(compareVersions(first, second) == (i <=> j))
                        << qPrintable(first) << " and " << qPrintable(second);
    EXPECT_TRUE(compareVersions(u"nonsense"_s, u"0.1"_s) < 0);
}

QByteArray feedOf(const QByteArray& items) {
    return "<?xml version=\"1.0\"?><rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">"
           "<channel><title>Brimlow</title><link>https://b.example</link>"
           + items + "</channel></rss>";
}

QByteArray versioned(const QByteArray& version, const QByteArray& more = {}) {
    return "<item><sparkle:version>" + version + "</sparkle:version>" + more + "</item>";
}

TEST(Appcast, OffersItsNewestVersion) {
    struct Row {
        QByteArray items;
        QString version;
        QString page = {};
    };
    const std::vector<Row> rows{
        {versioned("1.9") + versioned("1.10") + versioned("1.2"), u"1.10"_s},
        {"<item><enclosure url=\"https://b.example/b.deb\" sparkle:version=\"7\" "
         "sparkle:shortVersionString=\"1.3\" type=\"x\"/></item>",
         u"1.3"_s, u"https://b.example/b.deb"_s},
        {versioned("2", "<enclosure url=\"https://b.example/b.deb\" sparkle:os=\"linux\"/><link>\n "
                        "https://b.example/page </link>"),
         u"2"_s, u"https://b.example/page"_s},
        {versioned("2", "<link>http://b.example</link><enclosure url=\"file:///b.deb\"/>"), u"2"_s},
        {versioned("1") + versioned("2", "<sparkle:channel>beta</sparkle:channel>")
             + versioned("3", "<enclosure url=\"https://b.example/b.dmg\" sparkle:os=\"macos\"/>")
             + versioned(QByteArray(41, '9')) + "<item><version>9</version></item>",
         u"1"_s},
    };
    for (const Row& row : rows) {
        const AppcastFeed feed = readAppcast(feedOf(row.items));
        ASSERT_TRUE(feed.newest) << qPrintable(feed.error) << row.items.toStdString();
        EXPECT_EQ(feed.newest->version, row.version);
        EXPECT_EQ(feed.newest->page.toString(), row.page);
    }
}

TEST(Appcast, ThatIsNoneSaysSo) {
    const QString none = u"What the server sent is no list of versions."_s;
    const QByteArray good = feedOf(versioned("1"));
    const QByteArray nested = QByteArray("<a>").repeated(300'000);
    const std::vector<std::pair<QByteArray, QString>> rows{
        {{}, none},
        {"<html><body>Please log in</body></html>", none},
        {good.chopped(1), none},
        {good + "<more/>", none},
        {QByteArray(good).insert(21, "<!DOCTYPE rss [<!ENTITY a \"aa\"><!ENTITY b \"&a;&a;\">]>"),
         none},
        {feedOf(versioned("\xff\xfe")), none},
        {feedOf(versioned("1", "<description>" + nested)), none},
        {feedOf(nested), none},
        {feedOf({}), u"The server names no version for this system."_s},
        {good + QByteArray(largestFeed - good.size(), ' '), {}},
        {good + QByteArray(largestFeed - good.size() + 1, ' '),
         u"The list of versions is too long."_s},
    };
    for (const auto& [bytes, error] : rows) {
        const AppcastFeed feed = readAppcast(bytes);
        EXPECT_EQ(feed.error, error) << bytes.left(300).toStdString();
        EXPECT_EQ(feed.newest.has_value(), error.isEmpty());
    }
}

TEST(ReleaseNotes, ArePlainText) {
    const std::vector<std::pair<QString, QString>> rows{
        {u"<h2>New &amp;</h2><ul><li>One</li><li>Two</li></ul><p>And<br>more</p>"_s,
         u"New &\n• One\n• Two\n\nAnd\nmore"_s},
        {u"<script>alert(1)</script><style>p {}</style>1 &lt; 2<img src=\"file:///etc/passwd\">"_s,
         u"1 < 2"_s},
    };
    for (const auto& [html, notes] : rows)
        EXPECT_EQ(plainNotes(html), notes);
}

TEST(ReleaseNotes, LoadNothing) {
    QTemporaryFile style;
    ASSERT_TRUE(style.open());
    style.write("p { white-space: pre }");
    style.flush();
    const QString html = u"<head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\"></head>"
                         u"<style>@import url(%1);</style><p>A  b</p>"_s;
    for (const QString& scheme : {u""_s, u"file://"_s})
        EXPECT_EQ(plainNotes(html.arg(scheme + style.fileName())), u"A b"_s);
}

TEST(ReleaseNotes, AreShortWhateverCame) {
    for (const auto& piece : {u"<ul><li>"_s, u"<table><tr><td>x"_s, u"<p>word"_s}) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_LE(plainNotes(piece.repeated(1'000'000 / piece.size())).size(), 8'001);
        EXPECT_LT(timer.elapsed(), 5'000) << qPrintable(piece);
    }
}

} // namespace
} // namespace brimlow::test
