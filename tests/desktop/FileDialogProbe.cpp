// A window that asks for files. A line on standard input says what it does: "save" or "open" asks,
// "leave" closes the window for good. An answer is a line: "chosen PATH", "cancelled", or
// "failed REASON".

#include "ui/files/DesktopFileDialogs.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

using namespace Qt::StringLiterals;
using namespace brimlow;

namespace {

void print(const FileDialogs::Answer& answer) {
    const QString line = !answer.error.isEmpty()  ? u"failed "_s + answer.error
                         : !answer.path.isEmpty() ? u"chosen "_s + answer.path
                                                  : u"cancelled"_s;
    std::puts(line.toUtf8().constData());
}

} // namespace

int main(int argc, char* argv[]) {
    std::setbuf(stdout, nullptr);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    auto window = std::make_unique<QWidget>();
    window->resize(300, 200);
    window->show();
    DesktopFileDialogs dialogs(QDBusConnection::sessionBus());
    QSocketNotifier orders(0, QSocketNotifier::Read);
    QObject::connect(&orders, &QSocketNotifier::activated, &application, [&] {
        std::string order;
        if (!std::getline(std::cin, order))
            return orders.setEnabled(false);
        const FileDialogs::Request request{window.get(), u"Where to?"_s, u"application/json"_s,
                                           u"Brimlow-a.json"_s};
        if (order == "save")
            dialogs.save(request, print);
        else if (order == "open")
            dialogs.open(request, print);
        else
            window.reset();
    });
    return QApplication::exec();
}
