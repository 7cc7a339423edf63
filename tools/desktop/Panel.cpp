#include "tools/desktop/Panel.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace brimlow::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;
const QString menuInterface = u"com.canonical.dbusmenu"_s;
const QString itemPath = u"/StatusNotifierItem"_s;
const QString itemInterface = u"org.kde.StatusNotifierItem"_s;

/// One underscore marks a mnemonic, two are one.
QString written(const QString& label) {
    QString text;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'_' && ++i == label.size())
            break;
        text += label[i];
    }
    return text;
}

PanelMenuItem read(const QDBusArgument& argument) {
    PanelMenuItem item;
    QVariantMap properties;
    QVariantList children;
    argument.beginStructure();
    argument >> item.id >> properties >> children;
    argument.endStructure();
    item.label = written(properties.value(u"label"_s).toString());
    item.enabled = properties.value(u"enabled"_s, true).toBool();
    item.separator = properties.value(u"type"_s) == u"separator"_s;
    if (properties.contains(u"toggle-type"_s))
        item.checked = properties.value(u"toggle-state"_s).toInt() == 1;
    if (properties.contains(u"shortcut"_s)) {
        const auto keys =
            qdbus_cast<QList<QStringList>>(properties.value(u"shortcut"_s).value<QDBusArgument>());
        item.shortcut = keys.value(0).join(u'+');
    }
    return item;
}

} // namespace

void StatusNotifierWatcher::setHost(bool has) {
    hasHost_ = has;
    if (has) // QtDBus hears of it on this object's thread only
        QMetaObject::invokeMethod(this, &StatusNotifierWatcher::StatusNotifierHostRegistered);
}

QStringList StatusNotifierWatcher::items() const {
    const std::scoped_lock lock(mutex_);
    return items_;
}

void StatusNotifierWatcher::forgetItems() {
    const std::scoped_lock lock(mutex_);
    items_.clear();
}

void StatusNotifierWatcher::RegisterStatusNotifierItem(const QString&) {
    {
        const std::scoped_lock lock(mutex_);
        items_ << message().service();
    }
    Q_EMIT StatusNotifierItemRegistered(message().service());
}

void StatusNotifierWatcher::RegisterStatusNotifierHost(const QString&) {
    setHost(true);
}

Panel::Panel(const QString& sessionBus)
    : bus_(QDBusConnection::connectToBus(sessionBus, u"panel"_s)),
      questions_(QDBusConnection::connectToBus(sessionBus, u"panel-questions"_s)),
      watcher_(std::make_unique<StatusNotifierWatcher>()) {
    bus_.registerObject(path, watcher_.get(),
                        QDBusConnection::ExportScriptableSlots
                            | QDBusConnection::ExportScriptableSignals
                            | QDBusConnection::ExportAllProperties);
    watcher_->moveToThread(&thread_); // with what QtDBus has given it
    thread_.start();
}

Panel::~Panel() {
    bus_.unregisterObject(path);
    watcher_.release()->deleteLater(); // on its thread
    thread_.quit();
    thread_.wait();
    QDBusConnection::disconnectFromBus(u"panel"_s);
    QDBusConnection::disconnectFromBus(u"panel-questions"_s);
}

void Panel::appear() {
    bus_.registerService(service);
}

void Panel::disappear() {
    bus_.unregisterService(service);
    watcher_->forgetItems();
}

QVariantList Panel::ask(const QString& at, const QString& interface, const QString& method,
                        const QVariantList& arguments) const {
    auto question =
        QDBusMessage::createMethodCall(items().value(items().size() - 1), at, interface, method);
    question.setArguments(arguments);
    return questions_.call(question).arguments();
}

QVariant Panel::property(const QString& name) const {
    const auto answer =
        ask(itemPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {itemInterface, name});
    return answer.value(0).value<QDBusVariant>().variant();
}

QByteArray Panel::icon() const {
    QByteArray all;
    const auto pictures = property(u"IconPixmap"_s).value<QDBusArgument>();
    pictures.beginArray();
    while (!pictures.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray pixels;
        pictures.beginStructure();
        pictures >> width >> height >> pixels;
        pictures.endStructure();
        all += pixels;
    }
    pictures.endArray();
    return all;
}

std::vector<PanelMenuItem> Panel::menu() const {
    const QString at = property(u"Menu"_s).value<QDBusObjectPath>().path();
    const auto answer = ask(at, menuInterface, u"GetLayout"_s, {0, -1, QStringList()});
    if (answer.size() < 2)
        return {};
    int id = 0;
    QVariantMap properties;
    QVariantList children;
    const auto root = answer[1].value<QDBusArgument>();
    root.beginStructure();
    root >> id >> properties >> children;
    root.endStructure();
    std::vector<PanelMenuItem> items;
    for (const QVariant& child : children)
        items.push_back(read(child.value<QDBusArgument>()));
    return items;
}

bool Panel::choose(const QString& label) const {
    for (const PanelMenuItem& item : menu()) {
        if (item.label != label)
            continue;
        const QString at = property(u"Menu"_s).value<QDBusObjectPath>().path();
        ask(at, menuInterface, u"Event"_s,
            {item.id, u"clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0U});
        return true;
    }
    return false;
}

} // namespace brimlow::desktop
