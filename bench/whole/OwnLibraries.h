#pragma once

#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace brimlow::bench {

/// Copies of Qt's libraries. A program that is started with them shares them with nobody, whatever
/// else runs on the machine: its private memory is that of the only Qt program of a desktop.
class OwnLibraries {
public:
    /// Of what that program and Qt's plugin for X11 are linked with. Throws when there is none.
    explicit OwnLibraries(const QString& program);

    void addTo(QProcessEnvironment& environment) const;

private:
    void copyFor(const QString& program) const;

    QTemporaryDir folder_;
};

} // namespace brimlow::bench
