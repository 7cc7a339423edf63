#include "tests/desktop/Person.h"
#include "tests/desktop/WholeRoad.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

constexpr platform::PadPoint spot{0.5, 0.5};

/// Somebody who has just installed the package.
class FirstMinutes : public WholeRoad {
protected:
    void SetUp() override {
        WholeRoad::SetUp();
        ASSERT_EQ(person.sitDown(), QString());
        launcher = u"/usr/bin/brimlow"_s;
    }
    void startInstalled() {
        auto environment = person.environment();
        for (const auto& [name, value] : input.environment())
            environment.insert(QString::fromStdString(name), QString::fromStdString(value));
        program.emplace(environment, launcher);
        ASSERT_EQ(program->start(), QString());
        ASSERT_TRUE(says(u"click detection active"_s));
    }

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    Person person{desktop};
};

INSTANTIATE_TEST_SUITE_P(On, FirstMinutes, testing::Values(WindowManager::openbox), nameOf);

TEST_P(FirstMinutes, FromTheGuideToATapThatWorksAlsoTheNextTime) {
    startInstalled();
    ASSERT_TRUE(person.isIn(u"Welcome to Brimlow"_s));
    person.lookAt(u"welcome"_s);
    ASSERT_TRUE(person.click(QStringList{u"Next"_s}) && person.sees(u"Grant Permissions"_s));
    ASSERT_TRUE(person.click(QStringList{u"Next"_s}) && person.sees(u"All Set"_s));
    ASSERT_TRUE(person.click(QStringList{u"Get Started"_s}));
    ASSERT_TRUE(person.isIn(u"Brimlow"_s)) << "its window was below";

    ASSERT_TRUE(person.click(QStringList{u"Tap"_s, u"Add Binding"_s}));
    ASSERT_TRUE(person.isIn(u"New Tap Binding"_s));
    ASSERT_TRUE(person.press(u"ctrl+a"_s) && person.type(u"Next desktop"_s));
    ASSERT_TRUE(person.click(QStringList{u"Record Position"_s}));
    ASSERT_TRUE(says(u"PositionRecorder: countdown finished"_s));
    tap(spot);
    ASSERT_TRUE(person.sees(u"Re-record Position"_s));
    ASSERT_TRUE(person.click(QStringList{u"Save"_s}) && person.sees(u"Edit Next desktop"_s));
    person.lookAt(u"bound"_s);
    ASSERT_TRUE(person.press(u"ctrl+w"_s) && person.seesNo(u"Add Binding"_s));
    tap(spot);
    ASSERT_TRUE(workspaceBecomes(1));

    BrimlowProgram again(person.environment(), launcher);
    ASSERT_EQ(again.start(), QString());
    EXPECT_EQ(again.waitForEnd(5000), 0);
    ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    ASSERT_TRUE(person.press(u"ctrl+q"_s));
    EXPECT_EQ(program->waitForEnd(5000), 0);

    startInstalled();
    ASSERT_TRUE(person.isIn(u"Brimlow"_s));
    EXPECT_FALSE(person.reader().find(u"Welcome to Brimlow"_s)) << "that was yesterday";
    tap(spot);
    EXPECT_TRUE(workspaceBecomes(2));
    EXPECT_TRUE(program->stop());
}

} // namespace
} // namespace brimlow::desktop
