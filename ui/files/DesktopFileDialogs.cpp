#include "ui/files/DesktopFileDialogs.h"

#include "ui/files/FileNames.h"

#include <QFileDialog>
#include <QMimeDatabase>

namespace brimlow {

namespace {

/// Qt's own dialog would take what is between quotation marks for the name.
QString withoutQuotes(QString name) {
    return name.replace(u'"', u'\'');
}

QFileDialog* makeQtDialog(FileTask task, const FileDialogs::Request& request) {
    auto* dialog = new QFileDialog(request.parent, request.title);
    dialog->setMimeTypeFilters({request.contentType});
    if (task == FileTask::open) {
        dialog->setFileMode(QFileDialog::ExistingFile);
        return dialog;
    }
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(
        QMimeDatabase().mimeTypeForName(request.contentType).preferredSuffix());
    dialog->selectFile(withoutQuotes(request.proposedName));
    return dialog;
}

} // namespace

void DesktopFileDialogs::save(const Request& request, Done done) {
    ask(FileTask::save, request, done);
}

void DesktopFileDialogs::open(const Request& request, Done done) {
    ask(FileTask::open, request, done);
}

void DesktopFileDialogs::ask(FileTask task, Request request, const Done& done) {
    request.proposedName = storableFileName(request.proposedName);
    auto* chooser = new PortalFileChooser(bus_, task, request);
    tie(chooser);
    QObject::connect(chooser, &PortalFileChooser::answered, chooser,
                     [chooser, done](const Answer& answer) {
                         chooser->deleteLater();
                         done(answer);
                     });
    QObject::connect(chooser, &PortalFileChooser::unavailable, chooser,
                     [this, chooser, task, request, done] {
                         chooser->deleteLater();
                         askWithQt(task, request, done);
                     });
}

void DesktopFileDialogs::askWithQt(FileTask task, const Request& request, const Done& done) {
    auto* dialog = makeQtDialog(task, request);
    tie(dialog);
    // Queued, so that `done` may do away with the parent, and the dialog, which still runs.
    QObject::connect(
        dialog, &QFileDialog::finished, dialog,
        [dialog, done](int result) {
            dialog->deleteLater();
            const bool chosen = result == QDialog::Accepted;
            done({chosen ? dialog->selectedFiles().value(0) : QString(), {}});
        },
        Qt::QueuedConnection);
    dialog->open();
}

void DesktopFileDialogs::tie(QWidget* dialog) {
    QObject::connect(&lifetime_, &QObject::destroyed, dialog, [dialog] { delete dialog; });
}

} // namespace brimlow
