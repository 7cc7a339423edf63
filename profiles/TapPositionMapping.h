#pragma once

#include "platform/Date.h"
#include "profiles/JsonValues.h"
#include "profiles/TapAction.h"
#include "profiles/TapSample.h"

#include <QString>
#include <QUuid>

#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow {

/// A binding: recorded positions, and what a tap near them does. A plain value; nothing here keeps
/// a number within limits.
struct TapPositionMapping {
    QUuid id = {};
    QString name = {};
    TapAction action = TapAction::none;
    std::optional<QString> appName = {};     // for openApp and focusWindow
    std::optional<QString> windowTitle = {}; // for focusWindow
    /// The session's number of one window, for focusWindow: good on this machine, in this session.
    std::optional<std::uint32_t> targetWindowID = {};
    std::vector<TapSample> samples = {}; // none: not recorded yet
    std::optional<platform::Date> lastRecordedAt = {};
    double matchTolerance = 1.0; // multiplies the radius
    /// The radius before the tolerance, in trackpad units; without it the samples decide.
    std::optional<double> explicitMatchRadius = {};
    double minimumPressure = 0.0; // contact size of the lightest tap that counts
    bool requireClick = false;    // only together with a physical click
    double clickForce = 0.6;

    bool operator==(const TapPositionMapping&) const = default;

    /// How far from the nearest sample a tap may be. Computed anew each time, in the square of the
    /// number of samples unless there is an explicit radius.
    double matchRadius() const;

    /// From `position` to the sample next to it; infinity where nothing is recorded.
    double nearestDistance(const TapSample& position) const;

    /// One line for the log: whether a tap at `position` would be accepted, and why.
    QString diagnose(const TapSample& position) const;

    void write(json::Writer& writer) const;

    /// None without id, name or action, or with an ill-typed text, window number or date. What else
    /// is missing or ill-typed takes its default, for the click that of the standard preferences'
    /// "tapToClick", negated: before this field there was that one switch for all bindings.
    static std::optional<TapPositionMapping> fromJson(const QJsonValue& value,
                                                      json::DateStrategy dates);
};

} // namespace brimlow
