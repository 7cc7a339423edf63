#include "platform/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    int number() const { return number_; }
    bool valid() const { return number_ >= 0; }

private:
    int number_;
};

bool writeAll(int descriptor, const QByteArray& contents) {
    qsizetype done = 0;
    while (done < contents.size()) {
        const auto written = ::write(descriptor, contents.constData() + done,
                                     static_cast<std::size_t>(contents.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        done += std::max<qsizetype>(written, 0);
    }
    return true;
}

bool writeNewFile(const QByteArray& name, const QByteArray& contents) {
    if (::unlink(name.constData()) != 0 && errno != ENOENT) // left behind by a crash
        return false;
    const Descriptor file(::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return file.valid() && writeAll(file.number(), contents) && ::fsync(file.number()) == 0;
}

bool synchroniseFolder(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    const Descriptor folder(::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // EINVAL: a file system that cannot synchronise folders, and promises nothing more.
    return folder.valid() && (::fsync(folder.number()) == 0 || errno == EINVAL);
}

QString folderOf(const QString& path) {
    return QFileInfo(path).absolutePath();
}

bool makeFolder(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    if (::access(name.constData(), F_OK) == 0)
        return true; // or no folder: then opening the file in it says so
    if (errno != ENOENT || !makeFolder(folderOf(path)))
        return false;
    return (::mkdir(name.constData(), 0700) == 0 || errno == EEXIST)
           && synchroniseFolder(folderOf(path));
}

bool replace(const QString& path, const QByteArray& contents) {
    const QFileInfo target(symbolicLinkTarget(path));
    const QString folder = target.absolutePath();
    if (!makeFolder(folder))
        return false;
    const QByteArray name = QFile::encodeName(target.absoluteFilePath());
    const QByteArray newName =
        QFile::encodeName(folder + u"/."_s + target.fileName() + u".brimlow-new"_s);
    if (writeNewFile(newName, contents) && ::rename(newName.constData(), name.constData()) == 0)
        return synchroniseFolder(folder);
    const int reason = errno;
    ::unlink(newName.constData());
    errno = reason;
    return false;
}

} // namespace

std::optional<QString> replaceFile(const QString& path, const QByteArray& contents) {
    if (replace(path, contents))
        return std::nullopt;
    return QString::fromStdString(std::generic_category().message(errno));
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
