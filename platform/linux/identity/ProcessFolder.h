#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace brimlow::platform {

/// What the kernel shows of one process as files. The process may end at any moment, belong to
/// somebody else, and write what it likes into some of them.
class ProcessFolder {
public:
    ProcessFolder(pid_t pid, const QString& procFolder)
        : path_(procFolder + u'/' + QString::number(pid) + u'/') {}

    /// The first 128 kB; empty where it cannot be read. Never blocks on what is no plain file.
    QByteArray read(QStringView name) const;
    /// Where a link points to, unresolved; empty where that cannot be told.
    QString linkTarget(QStringView name) const;
    /// 0 where it cannot be told, or the parent is outside of what we see.
    pid_t parent() const;

private:
    QString path_;
};

} // namespace brimlow::platform
