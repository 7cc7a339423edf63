#include "platform/linux/access/RuleInstaller.h"

#include "access-helper/ExitStatus.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <utility>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

// pkexec's own exit codes
constexpr int dismissed = 126;
constexpr int notRun = 127;

Outcome useTerminal(const QString& why) {
    return Outcome::failure(why + u": run the commands below in a terminal instead."_s);
}

Outcome answerOfPkexec(const QString& complaint) {
    if (complaint.contains("No authentication agent found"_L1))
        return useTerminal(u"This desktop has nothing that asks for an administrator's password"_s);
    if (complaint.contains("Not authorized"_L1))
        return useTerminal(u"The administrator's permission was not given"_s);
    if (complaint.contains("Error getting authority"_L1)
        || complaint.contains("Error checking for authorization"_L1))
        return useTerminal(u"The service that asks for permission, polkit, does not run"_s);
    return useTerminal(u"No administrator can be asked (pkexec says \"%1\")"_s.arg(
        complaint.section(u'\n', 0, 0, QString::SectionSkipEmpty).trimmed()));
}

Outcome answerOfHelper(int exitCode, const QString& complaint) {
    constexpr auto mark = "Brimlow: "_L1;
    const auto sentence = complaint.lastIndexOf(mark);
    if (sentence < 0)
        return useTerminal(u"Brimlow's helper failed with code %1"_s.arg(exitCode));
    return Outcome::failure(complaint.mid(sentence + mark.size()).section(u'\n', 0, 0));
}

Outcome outcomeOf(int exitCode, const QString& complaint) {
    switch (exitCode) {
    case access::done:
        return Outcome::success();
    case dismissed:
        return Outcome::failure(u"The question for the password was closed, so nothing was "
                                "changed: try again, or run the commands below in a terminal."_s);
    case notRun:
        return answerOfPkexec(complaint);
    default:
        return answerOfHelper(exitCode, complaint);
    }
}

// pkexec refuses to run with a SHELL that it does not know and with odd values of some other
// variables, so it gets none of ours. Its complaints are read in English.
QProcessEnvironment plainEnvironment() {
    QProcessEnvironment environment;
    environment.insert(u"LC_ALL"_s, u"C"_s);
    return environment;
}

} // namespace

RuleInstaller::RuleInstaller(QString helperPath, QString pkexec)
    : helperPath_(std::move(helperPath)), pkexec_(std::move(pkexec)) {}

void RuleInstaller::install(Answer done) {
    waiting_.push_back(std::move(done));
    if (process_)
        return;
    process_.reset(new QProcess);
    const QString program = QStandardPaths::findExecutable(pkexec_);
    QString missing;
    if (!QFileInfo(helperPath_).isExecutable())
        missing = u"Brimlow's helper is missing from this installation"_s;
    else if (program.isEmpty())
        missing = u"pkexec, which asks for an administrator's password, is not installed"_s;
    if (missing.isEmpty())
        start(program);
    else
        QMetaObject::invokeMethod(
            process_.get(), [this, missing] { finish(useTerminal(missing)); },
            Qt::QueuedConnection);
}

void RuleInstaller::start(const QString& program) {
    QProcess* process = process_.get();
    process->setProcessEnvironment(plainEnvironment());
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    QObject::connect(
        process, &QProcess::finished, [this, process](int exitCode, QProcess::ExitStatus status) {
            const auto complaint = QString::fromUtf8(process->readAllStandardError());
            finish(status == QProcess::NormalExit ? outcomeOf(exitCode, complaint)
                                                  : useTerminal(u"pkexec was stopped"_s));
        });
    QObject::connect(process, &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finish(useTerminal(u"pkexec cannot be started"_s));
    });
    process->start(program, {u"--disable-internal-agent"_s, helperPath_, u"install"_s});
}

void RuleInstaller::finish(const Outcome& outcome) {
    process_.release()->deleteLater(); // which is telling us right now
    for (const Answer& done : std::exchange(waiting_, {}))
        done(outcome);
}

/// Ends what still asks for the password. A helper that is root by now ends by itself, and to wait
/// for it could hold up the program's end.
void RuleInstaller::Abandon::operator()(QProcess* process) const {
    if (process->state() == QProcess::NotRunning) {
        delete process;
        return;
    }
    process->disconnect();
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->kill();
}

} // namespace brimlow::platform
