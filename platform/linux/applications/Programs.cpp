#include "platform/linux/applications/Programs.h"

#include "platform/linux/applications/GioPointers.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

// By their names without a version: "python3.11" is "python".
constexpr QLatin1StringView tellNothing[] = {
    // shells
    "ash"_L1, "bash"_L1, "busybox"_L1, "dash"_L1, "fish"_L1, "ksh"_L1, "sh"_L1, "zsh"_L1,
    // languages
    "electron"_L1, "gjs"_L1, "gjs-console"_L1, "guile"_L1, "java"_L1, "lua"_L1, "luajit"_L1,
    "mono"_L1, "mono-sgen"_L1, "node"_L1, "nodejs"_L1, "perl"_L1, "php"_L1, "python"_L1, "qml"_L1,
    "ruby"_L1, "tclsh"_L1, "wine"_L1, "wine-preloader"_L1, "wine64-preloader"_L1, "wish"_L1,
    // what starts another program
    "dbus-launch"_L1, "dbus-run-session"_L1, "env"_L1, "exo-open"_L1, "firejail"_L1, "flatpak"_L1,
    "gapplication"_L1, "gio"_L1, "gtk-launch"_L1, "nice"_L1, "nohup"_L1, "pkexec"_L1, "setsid"_L1,
    "snap"_L1, "sudo"_L1, "systemd-run"_L1, "xdg-open"_L1};

QStringView withoutVersion(QStringView name) {
    while (!name.isEmpty() && (name.back().isDigit() || name.back() == u'.' || name.back() == u'-'))
        name.chop(1);
    return name;
}

} // namespace

QString findProgram(const QString& name) {
    const TextPointer found(g_find_program_in_path(QFile::encodeName(name).constData()));
    return QFile::decodeName(found.get());
}

QString tellingProgram(const QString& program) {
    const QFileInfo file(QFileInfo(program).canonicalFilePath());
    const QString name = file.fileName();
    const bool silent = std::ranges::any_of(
        tellNothing, [plain = withoutVersion(name)](auto known) { return plain == known; });
    return silent ? QString() : file.filePath();
}

} // namespace brimlow::platform
