#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace brimlow {

/// The desktop's dialogs for choosing a file. Main thread.
class FileDialogs {
public:
    struct Request {
        QWidget* parent; // what has to wait meanwhile
        QString title;
        QString contentType;       // MIME type; what else there is cannot be chosen by accident
        QString proposedName = {}; // of a new file
    };

    /// At most one of them is there; without any the user has chosen nothing.
    struct Answer {
        QString path;
        QString error; // why no file could be asked for, for the user
    };
    using Done = std::function<void(const Answer&)>;

    virtual ~FileDialogs() = default;

    // Both return at once and answer later, exactly once; never where `parent` or this is gone
    // before that.

    /// For a file to be written; the user has been asked where it exists already.
    virtual void save(const Request& request, Done done) = 0;
    /// For one file that exists.
    virtual void open(const Request& request, Done done) = 0;
};

} // namespace brimlow
