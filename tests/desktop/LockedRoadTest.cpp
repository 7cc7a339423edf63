#include "tests/desktop/WholeRoad.h"
#include "tools/desktop/MockedLogind.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

using platform::PadPoint;

constexpr PadPoint right{0.95, 0.5};
constexpr PadPoint left{0.05, 0.5};

class LockedRoad : public WholeRoad {
protected:
    void SetUp() override {
        WholeRoad::SetUp();
        ASSERT_TRUE(logind.startBus() && logind.startLogind() && logind.addSession(u"mine"_s)
                    && logind.answer(u"GetSessionByPID"_s,
                                     u"ret = '%1'"_s.arg(MockedLogind::pathOf(u"mine"_s))));
    }

    bool set(const QString& property, const QString& value) {
        return logind.setProperty(u"mine"_s, property, value);
    }

    bool hasOpen(const platform::MockedPad& device) const {
        const QFileInfo node(QString::fromStdString(input.root() + device.node()));
        const QDir descriptors(u"/proc/%1/fd"_s.arg(program->pid()));
        return std::ranges::any_of(descriptors.entryInfoList(QDir::System | QDir::Files),
                                   [&](const QFileInfo& each) {
                                       return each.canonicalFilePath() == node.canonicalFilePath();
                                   });
    }
    bool becomesOpened(const platform::MockedPad& device, bool open) const {
        return desktop.waitFor([&](const DesktopState&) { return hasOpen(device) == open; });
    }

    MockedLogind logind{desktop.home()};
};

INSTANTIATE_TEST_SUITE_P(On, LockedRoad, testing::Values(WindowManager::openbox), nameOf);

TEST_P(LockedRoad, NoTapPassesWhileTheSessionIsLockedOrInTheBackground) {
    start({bindingAt(u"right"_s, right.x, right.y, TapAction::switchDesktopRight),
           bindingAt(u"left"_s, left.x, left.y, TapAction::switchDesktopLeft)});
    const struct {
        QString property;
        QString away;
        QString back;
    } states[] = {{u"LockedHint"_s, u"<true>"_s, u"<false>"_s},
                  {u"Active"_s, u"<false>"_s, u"<true>"_s}};
    for (const auto& state : states) {
        tap(right);
        ASSERT_TRUE(says(u"matched 'right'"_s));
        const auto before = program->lines().size();
        ASSERT_TRUE(set(state.property, state.away));
        ASSERT_TRUE(becomesOpened(pad, false));
        pad.playUnheard(platform::PadScript().tap(right, 0.35).events());
        ASSERT_TRUE(set(state.property, state.back));
        ASSERT_TRUE(becomesOpened(pad, true));
        tap(left);
        ASSERT_TRUE(says(u"matched 'left'"_s));
        EXPECT_EQ(program->lines().mid(before).filter(u"TAP"_s).size(), 1);
    }
}

} // namespace
} // namespace brimlow::desktop
