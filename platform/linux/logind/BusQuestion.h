#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <optional>

namespace brimlow::platform {

/// Calls `answer` with what came back: nothing for an error, and nothing for a value of another
/// type. Never from inside this call, and not at all once `asker` is gone.
template<typename Value, typename Answer>
void ask(const QDBusConnection& bus, const QDBusMessage& question, QObject* asker, Answer answer) {
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), asker);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, asker, [watcher, answer] {
        watcher->deleteLater();
        const QDBusPendingReply<Value> reply = *watcher;
        answer(reply.isValid() ? std::optional<Value>(reply.value()) : std::nullopt);
    });
}

} // namespace brimlow::platform
