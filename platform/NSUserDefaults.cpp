#include "platform/NSUserDefaults.h"

#include "platform/AtomicFile.h"
#include "platform/DamagedFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QStandardPaths>

#include <fcntl.h>

#include <cerrno>
#include <system_error>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

const QString dataMember = u"data"_s;

void logLine(LogSink& log, const QString& text) {
    log.write(Stream::error, QString(u"NSUserDefaults: "_s + text + u'\n').toUtf8());
}

QString messageOf(int error) {
    return QString::fromStdString(std::generic_category().message(error));
}

QJsonValue packed(const QByteArray& data) {
    return QJsonObject{{dataMember, QString::fromLatin1(data.toBase64())}};
}

} // namespace

NSUserDefaults::NSUserDefaults(QString path, LogSink& log) : path_(std::move(path)), log_(log) {
    load();
}

QString NSUserDefaults::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + u"/brimlow/preferences.json"_s;
}

void NSUserDefaults::load() {
    // Opened by hand: of an absent file and one that may not be read, QFile tells no difference.
    const int descriptor = ::open(QFile::encodeName(path_).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        if (errno != ENOENT && errno != ENOTDIR)
            withhold(u"cannot read %1: %2"_s.arg(path_, messageOf(errno)));
        return;
    }
    QFile file;
    QByteArray bytes;
    if (file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return withhold(u"cannot read %1: %2"_s.arg(path_, file.errorString()));
    const auto document = QJsonDocument::fromJson(bytes);
    if (document.isObject())
        values_ = document.object();
    else
        moveDamagedFileAside();
}

void NSUserDefaults::moveDamagedFileAside() {
    const QString kept = moveAsideAsDamaged(path_);
    if (kept.isNull())
        return withhold(u"%1 is damaged and cannot be moved aside"_s.arg(path_));
    logLine(log_, u"%1 is damaged; moved to %2"_s.arg(path_, kept));
}

void NSUserDefaults::withhold(const QString& complaint) {
    withheld_ = true;
    logLine(log_, complaint + u"; nothing is saved until the next start"_s);
}

std::optional<bool> NSUserDefaults::boolForKey(const QString& key) const {
    const auto value = values_.value(key);
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<double> NSUserDefaults::doubleForKey(const QString& key) const {
    const auto value = values_.value(key);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<QString> NSUserDefaults::stringForKey(const QString& key) const {
    const auto value = values_.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QByteArray> NSUserDefaults::dataForKey(const QString& key) const {
    const auto object = values_.value(key).toObject();
    const auto text = object.value(dataMember);
    if (object.size() != 1 || !text.isString())
        return std::nullopt;
    // Qt's decoder lets missing padding and stray bits pass; what it reads must write back alike.
    const auto data = QByteArray::fromBase64(text.toString().toUtf8());
    return packed(data) == object ? std::optional(data) : std::nullopt;
}

std::optional<QJsonArray> NSUserDefaults::arrayForKey(const QString& key) const {
    const auto value = values_.value(key);
    return value.isArray() ? std::optional(value.toArray()) : std::nullopt;
}

void NSUserDefaults::setBool(bool value, const QString& key) {
    set(key, value);
}

void NSUserDefaults::setDouble(double value, const QString& key) {
    set(key, value);
}

void NSUserDefaults::setString(const QString& value, const QString& key) {
    set(key, value);
}

void NSUserDefaults::setData(const QByteArray& value, const QString& key) {
    set(key, packed(value));
}

void NSUserDefaults::setArray(const QJsonArray& value, const QString& key) {
    set(key, value);
}

void NSUserDefaults::removeObjectForKey(const QString& key) {
    set(key, QJsonValue(QJsonValue::Undefined));
}

void NSUserDefaults::keepDamagedValueForKey(const QString& key) {
    if (!values_.contains(key))
        return;
    const auto data = dataForKey(key);
    const QJsonObject alone{{key, values_.value(key)}};
    const QString kept =
        keepAsDamaged(path_ + u'.' + key, data ? *data : QJsonDocument(alone).toJson());
    if (kept.isNull())
        return withhold(u"%1 in %2 is damaged and cannot be copied"_s.arg(key, path_));
    logLine(log_, u"%1 is damaged; kept in %2"_s.arg(key, kept));
}

void NSUserDefaults::set(const QString& key, const QJsonValue& value) {
    willChange();
    values_.insert(key, value); // an undefined value removes the key
    save();
}

void NSUserDefaults::save() {
    if (withheld_)
        return;
    const auto failure = replaceFile(path_, QJsonDocument(values_).toJson());
    if (failure && !complained_)
        logLine(log_, u"cannot write %1: %2"_s.arg(path_, *failure));
    complained_ = failure.has_value();
}

} // namespace brimlow::platform
