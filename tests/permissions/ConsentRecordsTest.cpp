#include "platform/ConsentRecords.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::ConsentRecords;
using platform::Date;

const QString tool = QString::fromUtf8(BRIMLOW_TCCUTIL);

struct Records : testing::Test {
    QTemporaryDir state;
    QString path = state.filePath(u"brimlow/consent.json"_s);
    ConsentRecords records{path};
    Date now{1767355200};

    bool declined(const QString& service) { return records.isDeclined(service, u"a pad"_s, now); }
    void declineAll() {
        for (const auto& service : {u"Accessibility"_s, u"AppleEvents"_s})
            records.decline(service, u"a pad"_s, now);
    }
    /// The tool's exit status; what it wrote on standard error is in `complaint`.
    int run(const QStringList& arguments) {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_STATE_HOME"_s, state.path());
        process.setProcessEnvironment(environment);
        process.start(tool, arguments);
        process.waitForFinished(-1);
        complaint = QString::fromUtf8(process.readAllStandardError());
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    QString complaint;
};

TEST_F(Records, HoldForADayAndForWhatTheyAreAbout) {
    EXPECT_FALSE(declined(u"Accessibility"_s));
    records.decline(u"Accessibility"_s, u"a pad"_s, now);
    EXPECT_TRUE(declined(u"Accessibility"_s));
    EXPECT_FALSE(declined(u"AppleEvents"_s));
    EXPECT_FALSE(records.isDeclined(u"Accessibility"_s, u"two pads"_s, now));
    now.secondsSince1970 += ConsentRecords::validity - 1;
    EXPECT_TRUE(declined(u"Accessibility"_s));
    now.secondsSince1970 += 1;
    EXPECT_FALSE(declined(u"Accessibility"_s));
    now.secondsSince1970 -= 3 * ConsentRecords::validity; // the clock was wrong back then
    EXPECT_FALSE(declined(u"Accessibility"_s));
}

TEST_F(Records, AreResetByTheToolAlone) {
    declineAll();
    const QString id = u"org.brimlow.Brimlow"_s;
    for (const QStringList& arguments : {QStringList{},
                                         {u"reset"_s, u"All"_s},
                                         {u"reset"_s, u"Camera"_s, id},
                                         {u"list"_s, u"All"_s, id},
                                         {u"reset"_s, u"All"_s, u"org.example.Other"_s},
                                         {u"reset"_s, u"All"_s, id, id}}) {
        EXPECT_EQ(run(arguments), 1);
        EXPECT_EQ(complaint, u"usage: tccutil reset All|AppleEvents org.brimlow.Brimlow\n"_s);
    }
    EXPECT_TRUE(declined(u"AppleEvents"_s));
    EXPECT_EQ(run({u"reset"_s, u"AppleEvents"_s, id}), 0);
    EXPECT_TRUE(declined(u"Accessibility"_s));
    EXPECT_FALSE(declined(u"AppleEvents"_s));
    for (const char* what : {"all of it", "nothing"}) {
        EXPECT_EQ(run({u"reset"_s, u"All"_s, id}), 0) << what;
        EXPECT_FALSE(QFile::exists(path));
    }
}

TEST_F(Records, ADamagedFileIsNoRecordAndGoesAway) {
    declineAll();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"Accessibility\": {\"about\": \"a pad\"");
    file.close();
    EXPECT_FALSE(declined(u"Accessibility"_s));
    EXPECT_EQ(run({u"reset"_s, u"AppleEvents"_s, u"org.brimlow.Brimlow"_s}), 0);
    EXPECT_FALSE(file.exists());
    ASSERT_TRUE(QDir(state.path()).mkpath(u"brimlow/consent.json/x"_s));
    EXPECT_EQ(run({u"reset"_s, u"All"_s, u"org.brimlow.Brimlow"_s}), 1);
    EXPECT_TRUE(complaint.startsWith(u"tccutil: "_s + path + u": "_s));
}

} // namespace
} // namespace brimlow::test
