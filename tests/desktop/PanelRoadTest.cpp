#include "tests/desktop/WholeRoad.h"
#include "tools/desktop/Panel.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

/// The program without its window, and a panel.
class PanelRoad : public WholeRoad {
protected:
    void SetUp() override {
        WholeRoad::SetUp();
        panel.emplace(desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    }
    /// "✓ Work Control+1", line by line.
    QStringList menu() const {
        QStringList lines;
        for (const PanelMenuItem& item : panel->menu()) {
            QString line = item.separator ? u"-"_s : item.label;
            if (item.checked == true)
                line.prepend(u"✓ "_s);
            if (!item.enabled)
                line += u" (grey)"_s;
            if (!item.shortcut.isEmpty())
                line += u' ' + item.shortcut;
            lines << line;
        }
        return lines;
    }

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    std::optional<Panel> panel;
};

INSTANTIATE_TEST_SUITE_P(On, PanelRoad, testing::Values(WindowManager::openbox), nameOf);

TEST_P(PanelRoad, TheIconComesWithThePanelAndItsMenuWorks) {
    profileName = u"R&D_a && <b>%1"_s;
    start({});
    EXPECT_FALSE(hasWindow()) << "started at login";
    panel->appear();
    program->readFor(300);
    EXPECT_EQ(panel->items(), QStringList()) << "nobody would show it yet";
    panel->setHost(true);
    ASSERT_TRUE(comesTrue([&] { return panel->items().size() == 1; }));
    EXPECT_EQ(panel->property(u"Title"_s).toString(), u"brimlow"_s);
    const auto icon = panel->icon();
    EXPECT_FALSE(icon.isEmpty());
    EXPECT_EQ(menu(), QStringList({u"Show Brimlow Control+O"_s, u"-"_s, u"Profiles (grey)"_s,
                                   u"✓ R&D_a && <b>%1 Control+1"_s, u"-"_s, u"✓ Tap Gestures"_s,
                                   u"-"_s, u"Quit Brimlow Control+Q"_s}));

    ASSERT_TRUE(panel->choose(u"Tap Gestures"_s));
    ASSERT_TRUE(says(u"tap detection DISABLED"_s));
    EXPECT_TRUE(comesTrue([&] { return menu().contains(u"Tap Gestures"_s); }));
    EXPECT_TRUE(comesTrue([&] { return panel->icon() != icon; }));

    ASSERT_TRUE(panel->choose(u"Show Brimlow"_s));
    EXPECT_TRUE(comesTrue([&] { return hasWindow(); }));

    panel->disappear();
    panel->appear();
    EXPECT_TRUE(comesTrue([&] { return panel->items().size() == 1; })) << "after a restart";

    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(panel->choose(u"Quit Brimlow"_s));
    EXPECT_EQ(program->waitForEnd(5000), 0);
    EXPECT_LT(timer.elapsed(), 1000);
}

/// A panel at the top left that has nothing but the tray.
const QByteArray panelSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

TEST_P(PanelRoad, ARealPanelShowsItAndAClickOpensTheWindow) {
    const QString folder =
        desktop.environment().value(u"XDG_CONFIG_HOME"_s) + u"/xfce4/xfconf/xfce-perchannel-xml"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile settings(folder + u"/xfce4-panel.xml"_s);
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly) && settings.write(panelSettings) > 0);
    settings.close();
    start({});
    ChildProcess real(u"xfce4-panel"_s, {u"--disable-wm-check"_s}, desktop.environment());
    ASSERT_EQ(real.start(), QString());
    const auto click = [this] {
        return desktop.run(u"xdotool"_s, {u"mousemove"_s, u"15"_s, u"15"_s, u"click"_s, u"1"_s});
    };
    EXPECT_TRUE(comesTrue([&] { return click() && hasWindow(); }));
    if (qEnvironmentVariableIsSet("BRIMLOW_TEST_PICTURES"))
        desktop.screenshot(qEnvironmentVariable("BRIMLOW_TEST_PICTURES") + u"/panel.png"_s);
}

} // namespace
} // namespace brimlow::desktop
