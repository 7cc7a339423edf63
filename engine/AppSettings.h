#pragma once

#include "platform/Observable.h"

namespace brimlow {

/// The application-wide settings, backed by the standard preferences: each read asks them, each
/// write is stored when it returns. Several objects may exist; the observers of each hear of the
/// writes of all, and of every other change of the preferences, before it happens. Main thread
/// only.
class AppSettings : public platform::ObservableObject {
public:
    AppSettings();

    /// Whether taps perform their actions.
    bool tapEnabled() const;
    void setTapEnabled(bool enabled);

    bool hasCompletedOnboarding() const;
    void setHasCompletedOnboarding(bool completed);

    /// Whether a tap with a large contact is taken for a palm.
    bool palmRejection() const;
    void setPalmRejection(bool enabled);

    /// The largest major axis of a finger, in the contact record's units; above it is a palm.
    double palmRejectionMaxAxis() const;
    void setPalmRejectionMaxAxis(double maxAxis);

private:
    platform::Subscription storeWillChange_;
};

} // namespace brimlow
