#include "platform/linux/applications/DesktopEntryReader.h"

#include "platform/linux/applications/GioPointers.h"
#include "platform/linux/applications/Programs.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>
#include <sys/stat.h>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr off_t sizeLimit = 1 << 20; // bytes; entries in a hundred languages have some 30 000

EntryReading broken(QString complaint) {
    return {.complaint = std::move(complaint)};
}

EntryReading noApplication() {
    return {};
}

/// The keys of a file's group "Desktop Entry".
class EntryKeys {
public:
    /// Empty when they are there, else why not.
    QString load(const EntryFile& file) {
        GError* error = nullptr;
        const bool loaded =
            g_key_file_load_from_file(keys_.get(), file.path.constData(), G_KEY_FILE_NONE, &error);
        const ErrorPointer failure(error);
        if (!loaded && failure->domain == G_FILE_ERROR)
            return u"it cannot be read"_s;
        const TextPointer group(g_key_file_get_start_group(keys_.get()));
        if (!loaded || qstrcmp(group.get(), G_KEY_FILE_DESKTOP_GROUP) != 0)
            return u"it is no desktop entry"_s;
        return {};
    }

    /// Empty when the key is missing or is no text.
    QString text(const char* key) const {
        const TextPointer value(
            g_key_file_get_string(keys_.get(), G_KEY_FILE_DESKTOP_GROUP, key, nullptr));
        return QString::fromUtf8(value.get());
    }
    QString translated(const char* key) const {
        const TextPointer value(g_key_file_get_locale_string(keys_.get(), G_KEY_FILE_DESKTOP_GROUP,
                                                             key, nullptr, nullptr));
        return QString::fromUtf8(value.get());
    }
    bool flag(const char* key) const {
        return g_key_file_get_boolean(keys_.get(), G_KEY_FILE_DESKTOP_GROUP, key, nullptr);
    }
    ObjectPointer<GDesktopAppInfo> appInfo() const {
        return ObjectPointer<GDesktopAppInfo>(g_desktop_app_info_new_from_keyfile(keys_.get()));
    }

private:
    KeyFilePointer keys_{g_key_file_new()};
};

QString whyNoFile(const EntryFile& file) {
    if (S_ISLNK(file.stamp.mode))
        return u"the link leads nowhere"_s;
    if (!S_ISREG(file.stamp.mode))
        return u"it is no file"_s;
    if (file.stamp.size > sizeLimit)
        return u"it is larger than 1 MB"_s;
    if (QFile::encodeName(QFile::decodeName(file.path)) != file.path)
        return u"its file name is not valid UTF-8"_s;
    return {};
}

/// Started by its name on the session bus, which is the file's.
bool busActivated(const EntryKeys& keys, const EntryFile& file) {
    const QFileInfo info(QFile::decodeName(file.path));
    return keys.flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE)
           && g_dbus_is_name(info.completeBaseName().toUtf8().constData());
}

DesktopEntry describe(const EntryKeys& keys, const EntryFile& file) {
    DesktopEntry entry;
    entry.id = file.id;
    entry.plainName = keys.text(G_KEY_FILE_DESKTOP_KEY_NAME);
    entry.name = keys.translated(G_KEY_FILE_DESKTOP_KEY_NAME);
    if (entry.name.isEmpty())
        entry.name = entry.plainName;
    entry.startupWmClass = keys.text(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
    entry.icon = keys.text(G_KEY_FILE_DESKTOP_KEY_ICON);
    entry.file = QFile::decodeName(file.path);
    entry.userOwned = file.userOwned;
    return entry;
}

/// Why GIO takes the file for no application.
EntryReading refused(const EntryKeys& keys) {
    const QString tryExec = keys.text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    if (!tryExec.isEmpty() && findProgram(tryExec).isEmpty())
        return {.missingProgram = tryExec};
    const QString exec = keys.text(G_KEY_FILE_DESKTOP_KEY_EXEC);
    char** list = nullptr;
    if (!g_shell_parse_argv(exec.toUtf8().constData(), nullptr, &list, nullptr))
        return broken(u"its Exec line cannot be understood"_s);
    const TextListPointer arguments(list);
    const QString program = QFile::decodeName(arguments.get()[0]);
    if (findProgram(program).isEmpty())
        return {.complaint = u"there is no program \"%1\""_s.arg(program),
                .missingProgram = program};
    return broken(u"GIO does not accept it"_s);
}

EntryReading readApplication(const EntryKeys& keys, const EntryFile& file) {
    const auto info = keys.appInfo();
    if (!info)
        return refused(keys);
    DesktopEntry entry = describe(keys, file);
    if (entry.plainName.isEmpty())
        return broken(u"it has no name"_s);
    const QString program = QFile::decodeName(g_app_info_get_executable(G_APP_INFO(info.get())));
    if (program.isEmpty() && !busActivated(keys, file))
        return broken(u"it has no Exec line"_s);
    entry.executable = QFileInfo(program).fileName();
    entry.program = tellingProgram(findProgram(program));
    entry.listed = g_app_info_should_show(G_APP_INFO(info.get()));
    return {.entry = std::move(entry)};
}

} // namespace

EntryReading readEntry(const EntryFile& file) {
    if (QString reason = whyNoFile(file); !reason.isEmpty())
        return broken(std::move(reason));
    EntryKeys keys;
    if (QString reason = keys.load(file); !reason.isEmpty())
        return broken(std::move(reason));
    if (keys.flag(G_KEY_FILE_DESKTOP_KEY_HIDDEN)) // the user has deleted it
        return noApplication();
    const QString type = keys.text(G_KEY_FILE_DESKTOP_KEY_TYPE);
    if (type.isEmpty())
        return broken(u"it has no type"_s);
    if (type != QLatin1StringView(G_KEY_FILE_DESKTOP_TYPE_APPLICATION))
        return noApplication();
    return readApplication(keys, file);
}

} // namespace brimlow::platform
