#include "platform/NSBundle.h"
#include "tests/support/Printing.h"
#include "tests/ui/pickers/Shown.h"
#include "tools/desktop/ChildProcess.h"
#include "ui/controls/Sheet.h"
#include "ui/updater/SPUStandardUpdaterController.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using controls::Sheet;
using desktop::ChildProcess;
using platform::NSBundle;

constexpr int patience = 10'000; // milliseconds

const QString newer = QStringLiteral("A newer version is available");
const QString upToDate = QStringLiteral("You're up to date");
const QString failed = QStringLiteral("Checking for updates failed");

/// Stands where the browser is.
class Browser : public QObject {
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(u"https"_s, this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(u"https"_s); }

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl& address) { opened << address.toString(); }
};

Sheet* shownSheet() {
    for (auto* window : QApplication::topLevelWidgets()) {
        auto* sheet = qobject_cast<Sheet*>(window);
        if (sheet && sheet->isVisible())
            return sheet;
    }
    return nullptr;
}

/// Waits until a window says something else than that one has to wait.
QStringList answer() {
    QStringList texts;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            texts = shownSheet() ? shownTexts(*shownSheet()) : QStringList();
            return !texts.isEmpty() && texts.front() != u"Checking for updates…"_s;
        },
        patience));
    return texts;
}

void dismiss() {
    QTest::keyClick(shownSheet(), Qt::Key_Escape);
    EXPECT_FALSE(shownSheet());
}

/// A server with the feed of version 1.10, whose certificate this program trusts.
struct UpdateCheck : testing::Test {
    QTemporaryDir folder;
    std::optional<ChildProcess> server;
    QByteArray port;
    QSslConfiguration usual = QSslConfiguration::defaultConfiguration();
    std::optional<SPUUpdater> updater;

    void SetUp() override {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        const auto environment = QProcessEnvironment::systemEnvironment();
        const QString key = folder.filePath(u"key.pem"_s);
        const QString certificate = folder.filePath(u"certificate.pem"_s);
        ASSERT_TRUE(desktop::outputOf(
            u"openssl"_s,
            {u"req"_s, u"-x509"_s, u"-nodes"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
             u"ec_paramgen_curve:prime256v1"_s, u"-subj"_s, u"/CN=feed"_s, u"-addext"_s,
             u"subjectAltName=IP:127.0.0.1"_s, u"-keyout"_s, key, u"-out"_s, certificate},
            environment, patience));
        auto trusting = usual;
        ASSERT_TRUE(trusting.addCaCertificates(certificate));
        QSslConfiguration::setDefaultConfiguration(trusting);

        const QString served = folder.filePath(u"served"_s);
        QDir().mkpath(served);
        QFile feed(served + u"/newer.xml"_s);
        ASSERT_TRUE(feed.open(QIODevice::WriteOnly));
        feed.write("<rss xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
                   "<channel>\n<item>\n<title>Version 1.10</title>\n"
                   "<sparkle:version>1.10</sparkle:version>\n"
                   "<link>https://b.example/page</link>\n"
                   "<description>&lt;b&gt;New&lt;/b&gt; &lt;img src=\"/a.png\"></description>\n"
                   "</item>\n</channel>\n</rss>\n");
        feed.close();
        server.emplace(u"python3"_s,
                       QStringList{QStringLiteral(BRIMLOW_FEED_SERVER), certificate, key, served},
                       environment);
        ASSERT_EQ(server->start(), QString());
        port = server->readFirstLine(patience);
        ASSERT_FALSE(port.isEmpty());
    }
    void TearDown() override { QSslConfiguration::setDefaultConfiguration(usual); }

    void check(const QString& path, const QString& version = u"1.9"_s,
               std::chrono::milliseconds silence = 5s) {
        updater.emplace(QUrl(u"https://127.0.0.1:%1/%2"_s.arg(QString::fromLatin1(port), path)),
                        version, silence);
        updater->startUpdater();
        updater->checkForUpdates();
    }
    /// What the server was asked since the last call.
    QStringList requests() {
        QTest::qWait(50);
        return QString::fromUtf8(server->process().readAllStandardOutput())
            .split(u'\n', Qt::SkipEmptyParts);
    }
};

TEST_F(UpdateCheck, TellsWhatItFound) {
    struct Row {
        QString path;
        QString version;
        QStringList texts;
        std::chrono::milliseconds silence = 5s;
    };
    const QStringList news{newer, u"Brimlow 1.10 is available. You have 1.9."_s, u"Version 1.10"_s,
                           u"New"_s};
    const auto failure = [](const QString& why) { return QStringList{failed, why}; };
    const std::vector<Row> rows{
        {u"to-newer"_s, u"1.9"_s, news},
        {u"slow"_s, u"1.9"_s, news, 1500ms},
        {u"newer.xml"_s, u"1.10"_s, {upToDate, u"Brimlow 1.10 is the newest version."_s}},
        {u"nothing.xml"_s, u"1.9"_s, failure(u"The server answered with error 404."_s)},
        {u""_s, u"1.9"_s, failure(u"What the server sent is no list of versions."_s)},
        {u"endless"_s, u"1.9"_s, failure(u"The list of versions is too long."_s)},
        {u"to-http"_s, u"1.9"_s, failure(u"The server points to an address that is not secure."_s)},
        {u"silent"_s, u"1.9"_s, failure(u"The server did not answer in time."_s), 1s},
    };
    for (const Row& row : rows) {
        check(row.path, row.version, row.silence);
        EXPECT_EQ(answer(), row.texts) << qPrintable(row.path);
        const QString asker = u" Brimlow/%1 None"_s.arg(row.version);
        QStringList expected{u'/' + row.path + asker};
        if (row.path == u"to-newer"_s)
            expected << u"/newer.xml"_s + asker;
        EXPECT_EQ(requests(), expected);
        dismiss();
    }
}

TEST_F(UpdateCheck, RefusesAServerThatNobodyVouchesFor) {
    QSslConfiguration::setDefaultConfiguration(usual);
    check(u"newer.xml"_s);
    EXPECT_EQ(answer(),
              (QStringList{failed, u"The server could not prove that it is the right one."_s}));
    EXPECT_EQ(requests(), QStringList());
    server->stop();
    check(u"newer.xml"_s);
    EXPECT_EQ(answer(), (QStringList{failed, u"The server could not be reached."_s}));
}

TEST_F(UpdateCheck, AsksOnceAtATimeAndShowsOneWindow) {
    check(u"newer.xml"_s);
    updater->checkForUpdates();
    answer();
    Sheet* const first = shownSheet();
    first->showMinimized();
    updater->checkForUpdates();
    EXPECT_EQ(shownSheet(), first);
    EXPECT_FALSE(first->isMinimized());
    EXPECT_EQ(requests().size(), 1);
    dismiss();
    updater->checkForUpdates();
    EXPECT_EQ(answer().front(), newer);
    EXPECT_EQ(requests().size(), 1);
    EXPECT_TRUE(updater->children().isEmpty());
}

TEST_F(UpdateCheck, CanBeCalledOff) {
    check(u"silent"_s, u"1.9"_s, 1500ms);
    ASSERT_TRUE(QTest::qWaitFor([] { return shownSheet(); }, patience));
    EXPECT_EQ(shownTexts(*shownSheet()).front(), u"Checking for updates…"_s);
    QTest::keyClick(shownSheet(), Qt::Key_Return);
    EXPECT_FALSE(shownSheet());
    QTest::qWait(1500);
    EXPECT_FALSE(shownSheet()) << "it no longer waits";
}

TEST_F(UpdateCheck, OpensThePageInTheBrowserOrShowsItsAddress) {
    check(u"newer.xml"_s);
    answer();
    QTest::keyClick(shownSheet(), Qt::Key_Return); // there is no browser
    EXPECT_EQ(answer(), (QStringList{u"The download page could not be opened"_s,
                                     u"Its address is https://b.example/page"_s}));
    dismiss();
    Browser browser;
    updater->checkForUpdates();
    answer();
    EXPECT_EQ(QApplication::focusWidget(), shownButton(*shownSheet(), u"Open Download Page"_s));
    dismiss();
    EXPECT_EQ(browser.opened, QStringList());
    updater->checkForUpdates();
    answer();
    QTest::keyClick(shownSheet(), Qt::Key_Return);
    EXPECT_EQ(browser.opened, QStringList(u"https://b.example/page"_s));
    EXPECT_FALSE(shownSheet());
}

TEST(UpdaterController, ExistsForSecureFeedsOnly) {
    const std::vector<std::pair<QJsonValue, bool>> rows{
        {u"https://b.example:8443"_s, true},
        {QJsonValue::Undefined, false},
        {u"http://b.example/appcast.xml"_s, false},
        {u"HTTPS://b.example/appcast.xml"_s, false},
        {u"httpsx://b.example/appcast.xml"_s, false},
        {u"https:///appcast.xml"_s, false},
        {u"https://b.example/app cast.xml"_s, false},
        {u"https://b.example/YOUR-DOMAIN.xml"_s, false},
        {u"https://your-domain/appcast.xml"_s, true},
    };
    for (const auto& [feed, eligible] : rows) {
        const NSBundle bundle(u"/usr/bin/brimlow"_s, {{u"SUFeedURL"_s, feed}});
        EXPECT_EQ(makeUpdaterControllerIfEligible(bundle) != nullptr, eligible)
            << qPrintable(feed.toString());
    }
}

TEST_F(UpdateCheck, ComparesWithTheBundlesVersion) {
    const QString feed = u"https://127.0.0.1:%1/newer.xml"_s.arg(QString::fromLatin1(port));
    const std::vector<std::pair<QJsonObject, QString>> rows{
        {{{u"CFBundleShortVersionString"_s, u"1.10"_s}, {u"CFBundleVersion"_s, u"1"_s}}, upToDate},
        {{{u"CFBundleVersion"_s, u"1.10"_s}}, upToDate},
        {{}, newer},
    };
    for (auto [info, title] : rows) {
        info.insert(u"SUFeedURL"_s, feed);
        const auto controller = makeUpdaterControllerIfEligible(NSBundle(u"/brimlow"_s, info));
        ASSERT_TRUE(controller);
        controller->updater().checkForUpdates();
        EXPECT_EQ(answer().front(), title);
    }
}

} // namespace
} // namespace brimlow::test

#include "UpdateCheckTest.moc"
