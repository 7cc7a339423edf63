#include "tests/access-helper/Namespace.h"

#include <QFile>
#include <QProcess>

#include <unistd.h>

namespace brimlow::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 30'000; // milliseconds

std::string outputOf(const QStringList& command) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(command.first(), command.mid(1), QIODevice::ReadOnly);
    if (!process.waitForFinished(patience))
        return "(does not end)";
    return process.readAll().toStdString();
}

QStringList unshare() {
    return isRoot() ? QStringList{u"unshare"_s, u"-m"_s} : QStringList{u"unshare"_s, u"-rm"_s};
}

} // namespace

bool isRoot() {
    return geteuid() == 0;
}

std::string missingForNamespace() {
    if (!QFile::exists(u"/etc/udev"_s) || !QFile::exists(u"/usr/bin/udevadm"_s))
        return "there is no udev here";
    const std::string complaint = outputOf(unshare() << u"true"_s);
    return complaint.empty() ? complaint : "no mount namespace for this user: " + complaint;
}

std::string outputInNamespace(const std::string& script) {
    return outputOf(unshare() << u"sh"_s << QStringLiteral(BRIMLOW_TEST_FOLDER "/namespace.sh")
                              << QStringLiteral(BRIMLOW_ACCESS_HELPER)
                              << QStringLiteral(BRIMLOW_UDEV_RULE)
                              << QString::fromStdString(script));
}

std::string outputAsOrdinaryUser(const std::string& verb) {
    if (isRoot())
        return outputInNamespace("chmod 755 /run; setpriv --reuid=65534 --regid=65534 "
                                 "--clear-groups /run/helper "
                                 + verb + "; echo exit $?");
    return outputOf({u"sh"_s, u"-c"_s, u"\"$0\" \"$1\"; echo exit $?"_s,
                     QStringLiteral(BRIMLOW_ACCESS_HELPER), QString::fromStdString(verb)});
}

} // namespace brimlow::test
