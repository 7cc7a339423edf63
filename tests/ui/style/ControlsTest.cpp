#include "platform/simulated/VirtualTime.h"
#include "tests/support/Printing.h"
#include "ui/Refresh.h"
#include "ui/controls/Badge.h"
#include "ui/controls/Buttons.h"
#include "ui/controls/Caption.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/FocusRing.h"
#include "ui/controls/Sheet.h"
#include "ui/style/ApplicationStyle.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::controls {

using namespace Qt::StringLiterals;

namespace {

TEST(Controls, GrowWithTheirText) {
    style::ApplicationStyle applicationStyle({.textScale = 2});
    Badge badge(u"Not Granted"_s, Badge::Kind::orange);
    badge.ensurePolished();
    EXPECT_GE(badge.sizeHint().height(), badge.fontMetrics().height());
    const std::unique_ptr<QPushButton> button(prominentButton(u"Save"_s));
    EXPECT_EQ(button->sizeHint().height(), 54) << "26 twice, and the border";
    EXPECT_EQ(button->fontInfo().pixelSize(), 26);
    applicationStyle.apply({});
    EXPECT_EQ(button->sizeHint().height(), 28);
}

TEST(FlowLayout, WrapsWhereTheWidthEnds) {
    QWidget row;
    auto* flow = new FlowLayout(8);
    row.setLayout(flow);
    const std::array boxes{new QWidget, new QWidget, new QWidget};
    for (QWidget* box : boxes) {
        box->setFixedSize(100, 20);
        flow->addWidget(box);
    }
    const std::tuple<int, int, QPoint, QPoint> rows[]{
        {316, 20, {108, 0}, {216, 0}}, {315, 48, {108, 0}, {0, 28}}, {50, 76, {0, 28}, {0, 56}}};
    for (const auto& [width, height, second, third] : rows) {
        EXPECT_EQ(flow->heightForWidth(width), height);
        flow->setGeometry({0, 0, width, height});
        EXPECT_EQ(boxes[1]->pos(), second) << width;
        EXPECT_EQ(boxes[2]->pos(), third) << width;
    }
    boxes[1]->hide();
    EXPECT_EQ(flow->heightForWidth(208), 20) << "what is hidden takes no room";
}

TEST(Caption, WrapsWhereTheWidthEnds) {
    const style::ApplicationStyle applicationStyle;
    const Caption caption(u"Left or unbreakable"_s);
    EXPECT_EQ(caption.sizeHint().height(), 16) << "one line";
    EXPECT_EQ(caption.heightForWidth(caption.sizeHint().width() - 1), 32);
    EXPECT_GT(caption.heightForWidth(20), 48) << "a long word breaks rather than sticks out";
}

TEST(Focus, IsShownWhereTheKeyboardBroughtItButInFields) {
    const KeyboardFocus keyboard;
    QWidget window;
    QPushButton first;
    QLineEdit field;
    QPushButton second;
    auto* layout = new QVBoxLayout(&window);
    for (QWidget* widget : std::vector<QWidget*>{&first, &field, &second})
        layout->addWidget(widget);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto ring = [&] {
        const auto* found = window.findChild<FocusRing*>();
        return found && found->isVisible() ? found->geometry() : QRect();
    };
    const auto around = [](const QWidget& widget) {
        return widget.geometry().adjusted(-4, -4, 4, 4);
    };
    second.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ring(), QRect());
    first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring(), around(first));
    first.move(first.x() + 10, first.y());
    EXPECT_EQ(ring(), around(first));
    field.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ring(), QRect());
    second.setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(ring(), around(second));
    second.hide();
    EXPECT_NE(ring(), around(second));
}

TEST(Sheet, HasRoomForItsText) {
    Sheet sheet(u"Reset?"_s, u"a word "_s.repeated(40), nullptr);
    sheet.setAttribute(Qt::WA_DeleteOnClose, false);
    sheet.show();
    EXPECT_EQ(sheet.size(), QSize(360, sheet.heightForWidth(360)));
}

TEST(Refresh, ComesOnceATurnWithTheNewValues) {
    struct Model : platform::ObservableObject {
        platform::Published<int> value{*this, 0};
    };
    platform::VirtualTime time;
    Model first;
    Model second;
    std::vector<int> seen;
    std::optional<Refresh> refresh;
    refresh.emplace(time, [&] { seen.push_back(first.value.get() + second.value.get()); });
    refresh->observe(first);
    refresh->observe(second);
    for (const int value : {1, 2}) {
        first.value = value;
        second.value = 10;
        time.run();
    }
    EXPECT_EQ(seen, (std::vector{11, 12}));
    first.value = 3;
    refresh.reset();
    time.run();
    EXPECT_EQ(seen.size(), 2U) << "the view is gone";
}

} // namespace
} // namespace brimlow::controls
