#include "ui/shell/TrayIcon.h"

#include "ui/style/Symbols.h"

#include <QAction>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QIcon>
#include <QSystemTrayIcon>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using Kind = MenuItem::Kind;

namespace {

const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;

QString textOf(const MenuItem& item) {
    return trayMenuText(item.title);
}

bool haveSameShape(const std::vector<MenuItem>& some, const std::vector<MenuItem>& others) {
    return std::ranges::equal(some, others, {}, &MenuItem::kind, &MenuItem::kind);
}

} // namespace

QString trayMenuText(const QString& title) {
    // Panels take an underscore for the mark of a mnemonic, and Qt turns the first & into one.
    QString text = title;
    text.replace(u'_', u"__"_s);
    return text.contains(u'&') ? u'&' + text : text;
}

TrayIcon::TrayIcon(QDBusConnection bus, QObject* parent)
    : QObject(parent), bus_(std::move(bus)),
      watcher_(service, bus_, QDBusServiceWatcher::WatchForRegistration) {
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &TrayIcon::askForHost);
    bus_.connect(service, path, service, u"StatusNotifierHostRegistered"_s, this,
                 SLOT(hostRegistered()));
    askForHost();
}

TrayIcon::~TrayIcon() = default;

/// Qt asks whether there is a panel once and for all when the first icon is made, so none is made
/// before the answer is yes.
void TrayIcon::askForHost() {
    auto question = QDBusMessage::createMethodCall(service, path,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setAutoStartService(false);
    question << service << u"IsStatusNotifierHostRegistered"_s;
    auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid() && reply.value().variant().toBool())
            hostRegistered();
        answer->deleteLater();
    });
}

void TrayIcon::hostRegistered() {
    if (icon_)
        return; // Qt itself comes back to a panel that was restarted
    icon_ = std::make_unique<QSystemTrayIcon>();
    icon_->setToolTip(u"Brimlow"_s);
    icon_->setContextMenu(&menu_);
    connect(icon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    Q_EMIT activated();
            });
    updateIcon();
    icon_->show();
}

void TrayIcon::setItems(std::vector<MenuItem> items) {
    const bool same = haveSameShape(items, items_);
    items_ = std::move(items);
    if (!same) { // else only what is written there changes: the menu may be open
        menu_.clear();
        for (const MenuItem& item : items_) {
            QAction* action = menu_.addAction(QString());
            action->setSeparator(item.kind == Kind::divider);
            action->setEnabled(item.kind != Kind::header);
            action->setCheckable(item.kind == Kind::choice || item.kind == Kind::toggle);
            const auto position = static_cast<std::size_t>(menu_.actions().size() - 1);
            connect(action, &QAction::triggered, this, [this, position] {
                items_[position].action();
                updateMenu(); // checked is what is on, not what was clicked
            });
        }
    }
    updateMenu();
}

void TrayIcon::updateMenu() {
    const auto actions = menu_.actions();
    for (std::size_t position = 0; position < items_.size(); ++position) {
        const MenuItem& item = items_[position];
        QAction* action = actions[static_cast<qsizetype>(position)];
        action->setText(textOf(item));
        action->setChecked(item.isOn);
        action->setShortcut(item.keyEquivalent.isNull()
                                ? QKeySequence()
                                : QKeySequence(Qt::CTRL | Qt::Key(item.keyEquivalent.unicode())));
    }
}

void TrayIcon::setOn(bool on) {
    on_ = on;
    if (icon_)
        updateIcon();
}

void TrayIcon::updateIcon() {
    // From the icon theme the panel takes it in its own colours.
    const QString name =
        on_ ? u"org.brimlow.Brimlow-on-symbolic"_s : u"org.brimlow.Brimlow-off-symbolic"_s;
    const QString symbol = on_ ? u"hand.tap"_s : u"hand.tap.slash"_s;
    icon_->setIcon(QIcon::hasThemeIcon(name)
                       ? QIcon::fromTheme(name)
                       : style::symbolIcon(symbol, &style::Theme::greySymbol));
}

} // namespace brimlow
