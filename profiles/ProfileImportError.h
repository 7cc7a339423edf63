#pragma once

#include <QString>

#include <exception>

namespace brimlow {

/// Why a file is not imported. The only exception that this program throws.
class ProfileImportError : public std::exception {
public:
    enum class Kind { tooNew, unreadable, notABrimlowProfile };

    /// `version` is the file's.
    static ProfileImportError tooNew(qint64 version) { return {Kind::tooNew, version}; }
    static ProfileImportError unreadable() { return {Kind::unreadable, 0}; }
    static ProfileImportError notABrimlowProfile() { return {Kind::notABrimlowProfile, 0}; }

    Kind kind() const { return kind_; }
    /// Of a file that is too new.
    qint64 version() const { return version_; }

    /// What to show to the user.
    QString errorDescription() const;
    const char* what() const noexcept override { return "profile import"; }

private:
    ProfileImportError(Kind kind, qint64 version) : kind_(kind), version_(version) {}

    Kind kind_;
    qint64 version_;
};

} // namespace brimlow
