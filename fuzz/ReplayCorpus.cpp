// A fuzzer without the fuzzing: runs it once on each file of a folder.

#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

bool replay(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout); // before it may abort
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const auto files = QDir(QFile::decodeName(argv[1])).entryInfoList(QDir::Files);
    bool good = !files.isEmpty();
    if (!good)
        std::fprintf(stderr, "no file in %s\n", argv[1]);
    for (const auto& file : files)
        good = replay(file.filePath()) && good;
    return good ? 0 : 1;
}
