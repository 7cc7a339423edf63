#pragma once

#include "tools/desktop/ChildProcess.h"

#include <QDBusConnection>
#include <QRect>

#include <functional>
#include <optional>
#include <vector>

namespace brimlow::desktop {

/// Something on the screen as assistive technology is told of it.
struct Accessible {
    QString name;
    QString role; // "push button", "check box", ...
    QRect place;  // on the screen
    QRect page;   // what it scrolls in, also out of sight; null where it cannot
    bool enabled = false;
    bool focusable = false;
    bool focused = false;
    bool checked = false;
};

/// What a screen reader knows of a desktop: all that is showing, application by application. Wants
/// an application object, and to be there before the programs that it is to read.
class ScreenReader {
public:
    ~ScreenReader();

    /// Programs that are started with the environment from now on are read. Empty, or why not.
    QString start(QProcessEnvironment& environment);

    std::vector<Accessible> everything() const;
    /// The first of that name; of any role where none is given.
    std::optional<Accessible> find(const QString& name, const QString& role = {}) const;

private:
    struct Reference;
    using Visit = std::function<bool(const Accessible&)>; // false: that is enough

    QVariant ask(const Reference& about, const char* interface, const char* method,
                 const QVariantList& arguments = {}) const;
    bool walk(const Reference& from, const QRect& page, const Visit& visit) const;
    Accessible describe(const Reference& about, quint64 states) const;

    std::unique_ptr<ChildProcess> launcher_;
    QDBusConnection bus_{QString()};
};

} // namespace brimlow::desktop
