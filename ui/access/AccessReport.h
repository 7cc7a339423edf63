#pragma once

#include <QString>

#include <vector>

namespace brimlow {

/// One thing that works here, or does not.
struct AccessItem {
    QString symbol;
    QString name;
    bool works = false;
    QString detail; // what it is, or why it does not work

    bool operator==(const AccessItem&) const = default;
};

/// Something that keeps Brimlow from working, and what to do about it.
struct AccessProblem {
    QString heading;
    QString text;
    bool ruleHelps = false; // installing our udev rule mends it

    bool operator==(const AccessProblem&) const = default;
};

/// What this program may and can do on this desktop at one moment, in words for its user.
struct AccessReport {
    std::vector<AccessProblem> problems;
    QString session;                     // "X11 (Openbox)"
    std::vector<AccessItem> trackpads;   // none: there is no trackpad
    std::vector<AccessItem> permissions; // Accessibility, Screen Recording, Automation
    std::vector<AccessItem> actions;     // all that a binding can do

    bool operator==(const AccessReport&) const = default;
};

/// Asks the current platform. Main thread.
AccessReport accessReport();

} // namespace brimlow
