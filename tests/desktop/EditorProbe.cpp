// The real program with the binding editor open, as long as no window of its own opens it. A line
// on standard input names a widget by what a screen reader calls it; the answer is where on the
// screen it can be seen: "at X Y WIDTH HEIGHT".

#include "ui/BrimlowApp.h"
#include "ui/DesktopPlatform.h"
#include "ui/Display.h"
#include "ui/editor/BindingEditorSheet.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <string>

using namespace brimlow;

namespace {

QRect placeOf(const QWidget& window, const QString& name) {
    for (auto* each : window.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(each);
        const bool named = each->accessibleName() == name || (button && button->text() == name);
        if (named && each->isVisible())
            return each->visibleRegion().boundingRect().translated(each->mapToGlobal(QPoint()));
    }
    return {};
}

} // namespace

int main(int argc, char* argv[]) {
    std::setbuf(stdout, nullptr);
    std::setbuf(stderr, nullptr);
    chooseDisplay();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const DesktopPlatform platform;
    BrimlowApp brimlow;
    brimlow.start();
    auto& coordinator = brimlow.coordinator();
    std::unique_ptr<BindingEditorSheet> sheet;
    sheet =
        std::make_unique<BindingEditorSheet>(BindingDraft::create(), coordinator.positionMappings,
                                             coordinator.recorder, coordinator.trackpad, [&] {
                                                 sheet->hide();
                                                 std::puts("dismissed");
                                             });
    sheet->show();
    QSocketNotifier questions(0, QSocketNotifier::Read);
    QObject::connect(&questions, &QSocketNotifier::activated, sheet.get(), [&] {
        std::string line;
        if (!std::getline(std::cin, line))
            return questions.setEnabled(false);
        const QRect place = placeOf(*sheet, QString::fromStdString(line));
        std::printf("at %d %d %d %d\n", place.x(), place.y(), place.width(), place.height());
    });
    return QApplication::exec();
}
