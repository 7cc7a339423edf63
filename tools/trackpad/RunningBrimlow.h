#pragma once

#include "tools/desktop/ChildProcess.h"

#include <QObject>

namespace brimlow::trackpad {

/// Brimlow beside this program, its log on this program's standard output. It is asked to end when
/// this is destroyed.
class RunningBrimlow : public QObject {
    Q_OBJECT

public:
    explicit RunningBrimlow(const QProcessEnvironment& environment);

    /// Empty when it runs, else why it does not.
    QString start() { return process_.start(); }

Q_SIGNALS:
    /// It does its work from now on. Never said by one that found another running.
    void up();
    /// By itself; `status` is not 0 when it failed or was killed.
    void ended(int status);

private:
    void readLog();

    desktop::ChildProcess process_;
};

} // namespace brimlow::trackpad
