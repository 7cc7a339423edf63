#pragma once

#include <QByteArrayView>
#include <QString>

namespace brimlow::platform {

/// The systemd unit or snap scope that a process runs in, of its /proc/PID/cgroup: the innermost
/// name in ".scope" or ".service". Empty where there is none.
QString unitOfControlGroups(QByteArrayView controlGroups);

/// The application that a unit was made for: of app[-<launcher>]-<id>-<random>.scope and
/// app[-<launcher>]-<id>[@<random>].service the id, without escapes. Empty for other units.
QString applicationOfUnit(QStringView unit);

/// Of "snap.<name>.<app>", as security labels and units spell it with something behind, the id of
/// the desktop entry: "<name>_<app>". Empty for other texts.
QString applicationOfSnap(const QString& label);

} // namespace brimlow::platform
