#include "platform/simulated/VirtualTime.h"
#include "tests/support/Printing.h"
#include "ui/Refresh.h"
#include "ui/controls/Badge.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/FocusRing.h"
#include "ui/controls/Sheet.h"
#include "ui/controls/Switch.h"
#include "ui/style/ApplicationStyle.h"

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace brimlow::controls {

using namespace Qt::StringLiterals;

namespace {

void press(QWidget& widget, Qt::Key key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

TEST(Switch, IsACheckBoxForTheKeyboardAndForScreenReaders) {
    Switch toggle(u"Enable Tap Detection"_s);
    press(toggle, Qt::Key_Space);
    EXPECT_TRUE(toggle.isChecked());
    press(toggle, Qt::Key_Space);
    EXPECT_FALSE(toggle.isChecked());
    EXPECT_EQ(toggle.focusPolicy() & Qt::TabFocus, Qt::TabFocus);
    const auto* accessible = QAccessible::queryAccessibleInterface(&toggle);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Enable Tap Detection"_s);
}

TEST(Buttons, WithoutTextSayWhatTheyAre) {
    const std::unique_ptr<QPushButton> button(iconButton(u"Rename"_s, u"pencil"_s));
    EXPECT_EQ(button->accessibleName(), u"Rename"_s);
    EXPECT_EQ(button->toolTip(), u"Rename"_s);
}

TEST(Controls, HoldTheirTextHoweverLargeItIs) {
    style::ApplicationStyle applicationStyle({.textScale = 2});
    QLineEdit field;
    const Badge badge(u"Not Granted"_s, Badge::Kind::orange);
    const std::unique_ptr<QPushButton> button(prominentButton(u"Save"_s));
    const std::unique_ptr<QPushButton> small(borderedButton(u"Edit"_s));
    style::setSmall(small.get());
    for (QWidget* widget : std::initializer_list<QWidget*>{&field, button.get(), small.get()}) {
        widget->ensurePolished();
        EXPECT_GE(widget->sizeHint().height(), widget->fontMetrics().height() + 2);
    }
    badge.ensurePolished();
    EXPECT_GE(badge.sizeHint().height(), badge.fontMetrics().height());
    EXPECT_EQ(button->sizeHint().height(), 54) << "26 twice, and the border";
    applicationStyle.apply({});
    EXPECT_EQ(button->sizeHint().height(), 28);
}

TEST(FlowLayout, WrapsWhereTheWidthEnds) {
    QWidget row;
    auto* flow = new FlowLayout(8);
    row.setLayout(flow);
    std::vector<QWidget*> boxes;
    for (int index = 0; index < 3; ++index) {
        boxes.push_back(new QWidget);
        boxes.back()->setFixedSize(100, 20);
        flow->addWidget(boxes.back());
    }
    struct Case {
        int width;
        int height;
        QPoint second;
        QPoint third;
    };
    for (const auto& [width, height, second, third] :
         {Case{316, 20, {108, 0}, {216, 0}}, Case{315, 48, {108, 0}, {0, 28}},
          Case{207, 76, {0, 28}, {0, 56}}, Case{50, 76, {0, 28}, {0, 56}}}) {
        EXPECT_EQ(flow->heightForWidth(width), height) << width;
        flow->setGeometry({0, 0, width, height});
        EXPECT_EQ(boxes[1]->pos(), second) << width;
        EXPECT_EQ(boxes[2]->pos(), third) << width;
    }
    boxes[1]->hide();
    EXPECT_EQ(flow->heightForWidth(208), 20) << "what is hidden takes no room";
}

TEST(Caption, WrapsAndShowsNamesAsTheyAre) {
    const style::ApplicationStyle applicationStyle;
    const Caption caption(u"Left <2> & more"_s);
    EXPECT_EQ(caption.text(), u"Left <2> & more"_s);
    EXPECT_EQ(caption.textFormat(), Qt::PlainText);
    EXPECT_EQ(caption.sizeHint().height(), 16) << "one line";
    EXPECT_EQ(caption.heightForWidth(caption.sizeHint().width() - 1), 32);
    EXPECT_GT(caption.heightForWidth(20), 60) << "a long word breaks rather than sticks out";
}

class Focus : public testing::Test {
protected:
    Focus() {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget : std::initializer_list<QWidget*>{&first, &field, &second})
            layout->addWidget(widget);
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
    }

    const FocusRing* visibleRing() const {
        const auto* ring = window.findChild<FocusRing*>();
        return ring && ring->isVisible() ? ring : nullptr;
    }

    QWidget window;
    QPushButton first;
    QLineEdit field;
    QPushButton second;
    KeyboardFocus keyboard;
};

TEST_F(Focus, IsShownWhereTheKeyboardBroughtItButInFields) {
    second.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(visibleRing());
    first.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(visibleRing());
    EXPECT_EQ(visibleRing()->geometry(), first.geometry().adjusted(-4, -4, 4, 4));
    first.move(first.x() + 10, first.y());
    EXPECT_EQ(visibleRing()->geometry(), first.geometry().adjusted(-4, -4, 4, 4));
    field.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(visibleRing());
    second.setFocus(Qt::BacktabFocusReason);
    EXPECT_TRUE(visibleRing());
    second.hide();
    EXPECT_NE(visibleRing() ? visibleRing()->geometry().center() : QPoint(),
              second.geometry().center());
}

struct Model : platform::ObservableObject {
    platform::Published<int> value{*this, 0};
};

TEST(Sheet, HasRoomForItsTextAndShowsItAsItIs) {
    for (const QString& text : {u"a"_s, u"a word "_s.repeated(9), u"a word "_s.repeated(40)}) {
        const std::unique_ptr<Sheet> sheet(confirmation(u"Reset?"_s, text, u"Reset & <b>"_s, {}));
        sheet->show();
        EXPECT_EQ(sheet->width(), 360);
        EXPECT_EQ(sheet->height(), sheet->heightForWidth(360));
        const auto buttons = sheet->findChildren<QPushButton*>();
        EXPECT_EQ(QAccessible::queryAccessibleInterface(buttons.at(1))->text(QAccessible::Name),
                  u"Reset & <b>"_s);
    }
}

TEST(Refresh, ComesOnceATurnWithTheNewValues) {
    platform::VirtualTime time;
    Model first;
    Model second;
    std::vector<int> seen;
    auto refresh = std::make_unique<Refresh>(
        time, [&] { seen.push_back(first.value.get() + second.value.get()); });
    refresh->observe(first);
    refresh->observe(second);
    first.value = 1;
    first.value = 2;
    second.value = 10;
    EXPECT_TRUE(seen.empty());
    time.run();
    EXPECT_EQ(seen, std::vector{12});
    second.value = 20;
    time.run();
    EXPECT_EQ(seen, (std::vector{12, 22}));
    first.value = 3;
    refresh.reset();
    time.run();
    EXPECT_EQ(seen.size(), 2U) << "the view is gone";
}

} // namespace
} // namespace brimlow::controls
