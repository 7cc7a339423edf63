#pragma once

#include <QString>

namespace brimlow::platform {

/// What a desktop entry says of its application.
struct DesktopEntry {
    QString id = {};             // desktop-file id without ".desktop"
    QString name = {};           // in the user's language
    QString plainName = {};      // as the entry names it in no language
    QString executable = {};     // file name of the program it runs; may be empty
    QString program = {};        // where that is, without links; empty for interpreters
    QString startupWmClass = {}; // the class of its windows, where the entry says so
    QString icon = {};           // icon name or absolute path; may be empty
    QString file = {};           // absolute path of the entry
    bool listed = true;          // this desktop's menus show it
    bool userOwned = false;      // from the user's own data folder

    bool operator==(const DesktopEntry&) const = default;
};

} // namespace brimlow::platform
