#pragma once

#include "platform/Session.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QProcess;

namespace brimlow::platform {

/// Has the udev rule installed by the helper, for which the desktop asks an administrator's
/// password. Needs Qt's event loop. Main thread.
class RuleInstaller {
public:
    using Answer = std::function<void(Outcome)>;

    explicit RuleInstaller(QString helperPath, QString pkexec = QStringLiteral("pkexec"));

    /// Returns at once; `done` is called later, and never once this is destroyed. A failure's
    /// reason is one sentence that tells what is wrong and what to do. While one request is under
    /// way, further ones get its answer.
    void install(Answer done);

private:
    struct Abandon {
        void operator()(QProcess* process) const;
    };

    void start(const QString& program);
    void finish(const Outcome& outcome);

    QString helperPath_;
    QString pkexec_;
    std::unique_ptr<QProcess, Abandon> process_;
    std::vector<Answer> waiting_;
};

} // namespace brimlow::platform
