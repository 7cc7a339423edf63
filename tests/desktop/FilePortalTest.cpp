#include "tests/support/Printing.h"
#include "tools/desktop/BrimlowProgram.h"
#include "tools/desktop/PrivateDesktop.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

/// Somebody who answers the file dialogs of a real desktop with the keyboard.
class FilePortal : public testing::Test {
protected:
    void start() {
        const QDir folder = QFileInfo(BrimlowProgram::builtProgram()).dir();
        program.emplace(desktop.environment(), folder.filePath(u"file_dialog_probe"_s));
        ASSERT_EQ(program->start(), QString());
        path = desktop.home() + u"/saved.json"_s;
        chosen = u"chosen "_s + path;
    }

    void order(const QByteArray& what) {
        program->write(what + '\n');
        program->readFor(10); // it goes out meanwhile
    }
    void ask(const QByteArray& task) {
        order(task);
        ASSERT_TRUE(desktop.waitFor([&](const DesktopState& now) {
            dialog = now.activeWindow;
            return outputOf(u"xdotool"_s, {u"getwindowname"_s, QString::number(dialog)},
                            desktop.environment())
                   == "Where to?\n";
        }));
    }
    bool xdotool(const QStringList& arguments) const {
        return desktop.run(u"xdotool"_s, arguments);
    }
    /// GTK's dialog drops keys while it opens its entry, and Return while it reads a folder.
    bool enterPath() const {
        const bool typed = xdotool({u"key"_s, u"ctrl+l"_s, u"sleep"_s, u"0.3"_s})
                           && xdotool({u"key"_s, u"ctrl+a"_s}) && xdotool({u"type"_s, path})
                           && xdotool({u"sleep"_s, u"0.3"_s});
        if (qEnvironmentVariableIsSet("BRIMLOW_TEST_PICTURES"))
            desktop.screenshot(qEnvironmentVariable("BRIMLOW_TEST_PICTURES")
                               + u"/file-%1.png"_s.arg(dialog));
        return typed && xdotool({u"key"_s, u"Return"_s});
    }
    /// What the program says after that, which is done again where it comes to nothing.
    QString answerTo(const std::function<bool()>& act) {
        QString answer;
        for (int tries = 0; tries < 3 && answer.isEmpty() && act(); ++tries)
            answer = program->waitForLine({}, 3000);
        return answer;
    }
    bool isOurs() const {
        const auto state = desktop.state();
        const auto* window = state ? state->window(dialog) : nullptr;
        return window && window->pid == program->pid();
    }

    PrivateDesktop desktop{WindowManager::openbox};
    std::optional<BrimlowProgram> program;
    QString path;
    QString chosen;
    std::uint32_t dialog = 0;
};

TEST_F(FilePortal, AsksWithItsOwnDialogs) {
    ASSERT_TRUE(desktop.start() && desktop.startPortal()) << desktop.error().toStdString();
    start();
    ask("save");
    EXPECT_FALSE(isOurs());
    EXPECT_EQ(answerTo([&] { return enterPath(); }), chosen);

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ask("open");
    EXPECT_FALSE(isOurs());
    EXPECT_EQ(answerTo([&] { return enterPath(); }), chosen);

    ask("open");
    EXPECT_EQ(answerTo([&] { return xdotool({u"key"_s, u"Escape"_s}); }), u"cancelled");

    ask("save");
    order("leave");
    EXPECT_TRUE(desktop.waitFor([&](const DesktopState& now) { return !now.window(dialog); }))
        << "outlives the window that asked";
}

TEST_F(FilePortal, WithoutOneTheDialogsAreOurs) {
    ASSERT_TRUE(desktop.start()) << desktop.error().toStdString();
    start();
    ask("save");
    EXPECT_TRUE(isOurs());
    EXPECT_EQ(answerTo([&] { return enterPath(); }), chosen);
}

} // namespace
} // namespace brimlow::desktop
