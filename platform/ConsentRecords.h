#pragma once

#include "platform/Date.h"
#include "platform/Session.h"

#include <QJsonObject>
#include <QString>

namespace brimlow::platform {

/// What the user was asked to allow and waved away, so that they are not asked about the same thing
/// again for a day. A file of its own, which this program and the tool that resets permissions
/// share; it is read at each question. Any thread, one at a time.
class ConsentRecords {
public:
    static constexpr double validity = 24 * 60 * 60; // seconds

    /// $XDG_STATE_HOME/brimlow/consent.json, by default below ~/.local/state.
    static QString standardPath();

    explicit ConsentRecords(QString path = standardPath()) : path_(std::move(path)) {}

    /// `service` is "Accessibility", "ScreenCapture" or "AppleEvents"; `about` says what was
    /// missing. False for a record that cannot be read.
    bool isDeclined(const QString& service, const QString& about, Date now) const;
    /// A record that cannot be written is not kept: the user is asked again.
    void decline(const QString& service, const QString& about, Date now) const;

    /// Forgets one service, or "All". A failure says why, in one clause.
    Outcome reset(const QString& service) const;

private:
    QJsonObject read() const;

    QString path_;
};

} // namespace brimlow::platform
