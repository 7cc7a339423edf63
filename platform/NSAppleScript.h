#pragma once

#include "platform/SystemEventsScripts.h"

#include <QMap>
#include <QString>

#include <memory>
#include <optional>

namespace brimlow::platform {

/// Why a script failed, under the platform's usual keys.
class NSAppleScriptError {
public:
    NSAppleScriptError() = default;
    NSAppleScriptError(int number, const QString& message);

    bool isEmpty() const { return entries_.isEmpty(); }
    /// The text under "NSAppleScriptErrorMessage", where there is one.
    std::optional<QString> message() const;
    /// The dictionary in its standard textual form: braces, one "key = value;" a line, ASCII only.
    QString description() const;

private:
    QMap<QString, QString> entries_;
};

/// A script for this session. Only the sources that this program sends compile; nothing else has a
/// meaning here, and no shell is ever started. Main thread.
class NSAppleScript {
public:
    /// Null when the source does not compile.
    static std::unique_ptr<NSAppleScript> initWithSource(const QString& source);

    /// Runs synchronously and gives back the result as a text. Absent when it failed; `error` is
    /// filled then.
    std::optional<QString> executeAndReturnError(NSAppleScriptError& error) const;

private:
    explicit NSAppleScript(SystemEventsScript script) : script_(std::move(script)) {}

    SystemEventsScript script_;
};

} // namespace brimlow::platform
