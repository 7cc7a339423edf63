#pragma once

#include <QStringList>

#include <ostream>

// How GoogleTest shows Qt's texts; found by argument-dependent lookup.

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* out) {
    *out << list.size() << " lines:";
    for (const auto& each : list)
        *out << "\n    " << each.toStdString();
}
