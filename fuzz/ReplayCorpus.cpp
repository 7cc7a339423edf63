// A fuzzer without the fuzzing: runs it once on each file of a folder.

#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int argc, char** argv) {
    const QString folder = argc == 2 ? QFile::decodeName(argv[1]) : QString();
    const auto names = QDir(folder).entryList(QDir::Files);
    if (folder.isEmpty() || names.isEmpty()) {
        std::fprintf(stderr, "usage: %s FOLDER, which holds files\n", argv[0]);
        return 2;
    }
    for (const QString& name : names) {
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout); // before it may abort
        QFile file(folder + QChar(u'/') + name);
        if (!file.open(QIODevice::ReadOnly))
            return 1;
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    return 0;
}
