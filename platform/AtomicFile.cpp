#include "platform/AtomicFile.h"

#include "platform/FileDescriptor.h"
#include "platform/RegularFile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

/// No file system takes a name of more than 255 bytes; this many characters are at most 180.
constexpr qsizetype longestStem = 60;

/// One replacement. Its steps give an errno, or 0.
class Writing {
public:
    /// The first errno of a synchronisation that failed where going on loses nothing, or 0.
    int refusal() const { return refusal_; }

    int makeFolder(const QString& path) {
        const QByteArray name = QFile::encodeName(path);
        if (::access(name.constData(), F_OK) == 0)
            return 0; // or no folder: then opening the file in it says so
        if (errno != ENOENT)
            return errno;
        const QString parent = QFileInfo(path).absolutePath();
        if (const int error = makeFolder(parent))
            return error;
        if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST)
            return errno;
        synchroniseFolder(parent);
        return 0;
    }

    int writeNewFile(const QByteArray& name, const QByteArray& contents, unsigned permissions) {
        if (::unlink(name.constData()) != 0 && errno != ENOENT) // left behind by a crash
            return errno;
        const FileDescriptor file(
            ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
        if (!file)
            return errno;
        if (const int error = writeAll(file, contents))
            return error;
        const int error = ::fsync(file.get()) == 0 ? 0 : errno;
        if (error != EINVAL && error != ENOSYS && error != ENOTSUP)
            return error;
        refuse(error); // a file system that cannot
        return 0;
    }

    void synchroniseFolder(const QString& path) {
        const FileDescriptor folder(
            ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!folder || ::fsync(folder.get()) != 0)
            refuse(errno);
    }

private:
    static int writeAll(const FileDescriptor& file, const QByteArray& contents) {
        qsizetype done = 0;
        while (done < contents.size()) {
            const auto written = ::write(file.get(), contents.constData() + done,
                                         static_cast<std::size_t>(contents.size() - done));
            if (written < 0 && errno != EINTR)
                return errno;
            done += std::max<qsizetype>(written, 0);
        }
        return 0;
    }

    void refuse(int error) {
        if (refusal_ == 0)
            refusal_ = error;
    }

    int refusal_ = 0;
};

} // namespace

Replacement replaceFile(const QString& path, const QByteArray& contents, unsigned permissions) {
    const QFileInfo target(symbolicLinkTarget(path));
    const QString folder = target.absolutePath();
    Writing writing;
    if (const int error = writing.makeFolder(folder))
        return {false, messageOf(error)};
    const QByteArray name = QFile::encodeName(target.absoluteFilePath());
    const QByteArray newName = QFile::encodeName(
        folder + u"/."_s + target.fileName().left(longestStem) + u".brimlow-new"_s);
    int error = writing.writeNewFile(newName, contents, permissions);
    if (error == 0 && ::rename(newName.constData(), name.constData()) != 0)
        error = errno;
    if (error != 0) {
        ::unlink(newName.constData());
        return {false, messageOf(error)};
    }
    writing.synchroniseFolder(folder);
    if (writing.refusal() != 0)
        return {true,
                u"it cannot be secured against a power cut: "_s + messageOf(writing.refusal())};
    return {true, std::nullopt};
}

QString symbolicLinkTarget(const QString& path) {
    constexpr int mostLinks = 40; // as many as the kernel follows
    std::filesystem::path target = QFile::encodeName(path).toStdString();
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code error;
        const auto next = std::filesystem::read_symlink(target, error);
        if (error)
            break;
        target = target.parent_path() / next; // an absolute `next` stands alone
    }
    return QFile::decodeName(target.c_str());
}

} // namespace brimlow::platform
