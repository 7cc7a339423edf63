#include "tools/desktop/ScreenReader.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDeadlineTimer>
#include <QThread>

namespace brimlow::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr auto accessibleInterface = "org.a11y.atspi.Accessible";
constexpr auto componentInterface = "org.a11y.atspi.Component";
constexpr int patience = 2000;    // ms for one answer
constexpr int startLimit = 10000; // ms
constexpr uint screenCoordinates = 0;
const QString registry = u"org.a11y.atspi.Registry"_s;
const QString busName = u"brimlow-screen-reader"_s;

/// Positions in the set of states.
enum State { checked = 4, enabled = 8, focusable = 11, focused = 12, showing = 25 };

bool has(quint64 states, State state) {
    return (states >> state) & 1;
}

/// The address of the bus on which accessible programs answer; it comes up a little later than its
/// launcher.
QString addressOn(const QString& sessionBus) {
    const QString name = busName + u"-launcher"_s;
    auto bus = QDBusConnection::connectToBus(sessionBus, name);
    const QDeadlineTimer deadline(startLimit);
    QString address;
    while (address.isEmpty() && !deadline.hasExpired()) {
        const auto answer = bus.call(QDBusMessage::createMethodCall(
            u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s));
        if (answer.type() == QDBusMessage::ReplyMessage)
            address = answer.arguments().value(0).toString();
        else
            QThread::msleep(20);
    }
    QDBusConnection::disconnectFromBus(name);
    return address;
}

} // namespace

struct ScreenReader::Reference {
    QString service;
    QString path;

    static Reference root() { return {registry, u"/org/a11y/atspi/accessible/root"_s}; }
};

ScreenReader::~ScreenReader() {
    QDBusConnection::disconnectFromBus(busName);
}

QString ScreenReader::start(QProcessEnvironment& environment) {
    environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    launcher_ = std::make_unique<ChildProcess>(
        u"/usr/libexec/at-spi-bus-launcher"_s,
        QStringList{u"--launch-immediately"_s, u"--a11y=1"_s}, environment);
    if (const QString why = launcher_->start(); !why.isEmpty())
        return why;
    const QString address = addressOn(environment.value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    if (address.isEmpty())
        return u"there is no bus for assistive technology"_s;
    bus_ = QDBusConnection::connectToBus(address, busName);
    return bus_.isConnected() ? QString() : bus_.lastError().message();
}

QVariant ScreenReader::ask(const Reference& about, const char* interface, const char* method,
                           const QVariantList& arguments) const {
    auto question = QDBusMessage::createMethodCall(
        about.service, about.path, QLatin1StringView(interface), QLatin1StringView(method));
    question.setArguments(arguments);
    const auto answer = bus_.call(question, QDBus::Block, patience);
    return answer.arguments().value(0);
}

Accessible ScreenReader::describe(const Reference& about, quint64 states) const {
    Accessible thing;
    thing.enabled = has(states, State::enabled);
    thing.focusable = has(states, State::focusable);
    thing.focused = has(states, State::focused);
    thing.checked = has(states, State::checked);
    const auto name = ask(about, "org.freedesktop.DBus.Properties", "Get",
                          {QString::fromLatin1(accessibleInterface), u"Name"_s});
    thing.name = name.value<QDBusVariant>().variant().toString();
    thing.role = ask(about, accessibleInterface, "GetRoleName").toString();
    const auto extents = ask(about, componentInterface, "GetExtents", {screenCoordinates});
    if (extents.canConvert<QDBusArgument>()) {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        const auto argument = extents.value<QDBusArgument>();
        argument.beginStructure();
        argument >> x >> y >> width >> height;
        argument.endStructure();
        thing.place = {x, y, width, height};
    }
    return thing;
}

bool ScreenReader::walk(const Reference& from, const QRect& page, const Visit& visit) const {
    const auto children = ask(from, accessibleInterface, "GetChildren");
    if (!children.canConvert<QDBusArgument>())
        return true;
    std::vector<Reference> references;
    const auto list = children.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Reference reference;
        QDBusObjectPath path;
        list.beginStructure();
        list >> reference.service >> path;
        list.endStructure();
        reference.path = path.path();
        references.push_back(reference);
    }
    list.endArray();
    for (const Reference& reference : references) {
        const auto answer = ask(reference, accessibleInterface, "GetState");
        const auto words = qdbus_cast<QList<uint>>(answer);
        if (words.size() != 2)
            continue; // gone meanwhile
        const quint64 states = words[0] | quint64(words[1]) << 32;
        QRect pageInside = page;
        if (from.service != registry) { // else it is an application, which is nowhere
            if (!has(states, State::showing))
                continue;
            Accessible thing = describe(reference, states);
            thing.page = page;
            if (!visit(thing))
                return false;
            if (thing.role == u"filler"_s && thing.focusable)
                pageInside = thing.place;
        }
        if (!walk(reference, pageInside, visit))
            return false;
    }
    return true;
}

std::vector<Accessible> ScreenReader::everything() const {
    std::vector<Accessible> all;
    walk(Reference::root(), {}, [&all](const Accessible& thing) {
        all.push_back(thing);
        return true;
    });
    return all;
}

std::optional<Accessible> ScreenReader::find(const QString& name, const QString& role) const {
    std::optional<Accessible> found;
    walk(Reference::root(), {}, [&](const Accessible& thing) {
        if (thing.name == name && (role.isEmpty() || thing.role == role))
            found = thing;
        return !found;
    });
    return found;
}

} // namespace brimlow::desktop
