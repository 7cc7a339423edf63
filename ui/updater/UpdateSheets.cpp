#include "ui/updater/UpdateSheets.h"

#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/ElidedLabel.h"
#include "ui/controls/ScrollPage.h"
#include "ui/controls/Sheet.h"
#include "ui/controls/Spinner.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/updater/AppcastFeed.h"
#include "ui/updater/ReleaseNotes.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace brimlow {

using namespace Qt::StringLiterals;
using controls::Caption;
using controls::Sheet;
using style::Role;

namespace {

constexpr int widthWithNotes = 460;
constexpr int highestNotes = 220; // longer ones scroll
constexpr int roundCorner = 3;    // keeps what scrolls off the frame's corners

QWidget* notesBox(const QString& notes) {
    auto* scroll = new controls::ScrollPage(u"Release notes"_s);
    scroll->setColumn(new Caption(notes, Role::noticeText));
    scroll->setMaximumHeight(style::currentType().scaled(highestNotes));
    auto* box = new QFrame;
    style::setRole(box, Role::inset);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(roundCorner, roundCorner, roundCorner, roundCorner);
    layout->addWidget(scroll);
    return box;
}

void addNotes(Sheet& sheet, const AppcastItem& item) {
    const QString notes = plainNotes(item.description);
    if (notes.isEmpty())
        return;
    sheet.setFixedWidth(style::currentType().scaled(widthWithNotes));
    auto* section = new QWidget;
    auto* rows = new QVBoxLayout(section);
    rows->setContentsMargins({});
    rows->setSpacing(8);
    auto* heading = new controls::ElidedLabel(Role::heading);
    heading->setText(item.title.isEmpty() ? u"Release notes"_s : item.title);
    rows->addWidget(heading);
    rows->addWidget(notesBox(notes));
    sheet.add(section);
}

} // namespace

Sheet* checkingSheet() {
    auto* sheet = new Sheet(u"Checking for updates…"_s, {}, nullptr);
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(10);
    layout->addWidget(new controls::Spinner);
    layout->addWidget(new Caption(u"Waiting for the server's answer."_s), 1);
    sheet->add(row);
    sheet->addCancel();
    return sheet;
}

Sheet* newerVersionSheet(const AppcastItem& item, const QString& currentVersion) {
    auto* sheet = new Sheet(
        u"A newer version is available"_s,
        u"Brimlow %1 is available. You have %2."_s.arg(item.version, currentVersion), nullptr);
    addNotes(*sheet, item);
    const bool hasPage = !item.page.isEmpty();
    if (hasPage)
        sheet->addCancel()->setText(u"Not Now"_s);
    auto* confirm = controls::prominentButton(hasPage ? u"Open Download Page"_s : u"OK"_s);
    confirm->setDefault(true);
    sheet->addConfirm(confirm);
    confirm->setFocus();
    return sheet;
}

Sheet* upToDateSheet(const QString& currentVersion) {
    return controls::alert(u"You're up to date"_s,
                           u"Brimlow %1 is the newest version."_s.arg(currentVersion), nullptr);
}

Sheet* checkFailedSheet(const QString& reason) {
    return controls::alert(u"Checking for updates failed"_s, reason, nullptr);
}

Sheet* pageNotOpenedSheet(const QString& address) {
    return controls::alert(u"The download page could not be opened"_s,
                           u"Its address is %1"_s.arg(address), nullptr);
}

} // namespace brimlow
