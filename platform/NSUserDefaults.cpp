#include "platform/NSUserDefaults.h"

#include "platform/AtomicFile.h"
#include "platform/DamagedFile.h"
#include "platform/JsonText.h"
#include "platform/RegularFile.h"

#include <QStandardPaths>

#include <cerrno>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

const QString dataMember = u"data"_s;
constexpr double secondsBetweenRetries = 60; // by then somebody may have made room on the disk

void logLine(LogSink& log, const QString& text) {
    log.write(Stream::error, QString(u"NSUserDefaults: "_s + text + u'\n').toUtf8());
}

QJsonValue packed(const QByteArray& data) {
    return QJsonObject{{dataMember, QString::fromLatin1(data.toBase64())}};
}

} // namespace

NSUserDefaults::NSUserDefaults(QString path, LogSink& log, MainQueue* retries)
    : path_(std::move(path)), log_(log), retries_(retries) {
    load();
}

NSUserDefaults::~NSUserDefaults() {
    if (unsaved_)
        save();
}

QString NSUserDefaults::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + u"/brimlow/preferences.json"_s;
}

void NSUserDefaults::load() {
    const auto [bytes, error] = readRegularFile(path_);
    if (error == ENOENT || error == ENOTDIR)
        return;
    if (error != 0)
        return withhold(u"cannot read %1: %2"_s.arg(path_, messageOf(error)));
    const auto document = parsedJson(bytes);
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
    const QByteArray base64 = text.toString().toUtf8();
    const auto data = QByteArray::fromBase64(base64);
    return data.toBase64() == base64 ? std::optional(data) : std::nullopt;
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
    const QString kept = keepAsDamaged(
        path_ + u'.' + key, data ? *data : jsonText(QJsonDocument(alone), QJsonDocument::Indented));
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
    const auto [done, complaint] =
        replaceFile(path_, jsonText(QJsonDocument(values_), QJsonDocument::Indented));
    unsaved_ = !done;
    bool& told = done ? toldInsecure_ : toldUnwritten_;
    if (complaint && !told)
        logLine(log_,
                (done ? u"wrote %1, but %2"_s : u"cannot write %1: %2"_s).arg(path_, *complaint));
    told = complaint.has_value();
    if (done)
        toldUnwritten_ = false;
    if (unsaved_)
        tryAgainLater();
}

void NSUserDefaults::tryAgainLater() {
    if (!retries_ || waiting_)
        return;
    waiting_ = true;
    retries_->after(secondsBetweenRetries, lifetime_.guard([this] {
        waiting_ = false;
        if (unsaved_)
            save();
    }));
}

} // namespace brimlow::platform
