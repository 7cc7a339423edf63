#include "tools/demo/DemoTable.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace brimlow::desktop;

namespace {

void say(const QString& text) {
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

int demonstrate(const QString& program, const QString& recording, const QString& pictures) {
    for (const QString& file : {program, recording}) {
        if (!QFileInfo::exists(file)) {
            say(u"There is no %1."_s.arg(file));
            return 1;
        }
    }
    say(u"Opening a desktop of its own, with scratch folders; then the program's log:"_s);
    Demonstration demonstration(program, recording, pictures);
    if (const QString why = demonstration.prepare(); !why.isEmpty()) {
        say(u"The demonstration cannot run: "_s + why + u'.');
        return 1;
    }
    const auto results = demonstration.run();
    const bool shown = demonstration.showMainWindow();
    const bool ended = demonstration.finish();

    say(u"\nWhat the window manager says of it:\n"_s);
    say(tableOf(results));
    if (!shown)
        say(u"The program's window did not come, or did not go, when it was asked for."_s);
    if (!ended)
        say(u"The program did not end when it was asked to."_s);
    const auto successes = std::ranges::count_if(
        results, [](const DemoResult& result) { return result.logged && result.happened; });
    const auto failures = static_cast<long>(demoSteps({}).size()) - successes;
    say(failures == 0 ? u"All of it really happened."_s
                      : u"%1 of it did not happen."_s.arg(failures));
    say(u"Pictures of each step and of the program's window: %1"_s.arg(
        QDir(pictures).absolutePath()));
    return failures == 0 && shown && ended ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    const QString beside = QCoreApplication::applicationDirPath();
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Plays a recorded trackpad to Brimlow on a desktop of its own and reports what came of "
        "each gesture. Nothing of yours is touched."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"program"_s, u"The program, if not the one beside this."_s);
    const QCommandLineOption recording(u"recording"_s, u"Another recording of the same gestures."_s,
                                       u"file"_s, QStringLiteral(BRIMLOW_DEMO_RECORDING));
    const QCommandLineOption pictures(u"pictures"_s, u"Where the screenshots go."_s, u"folder"_s,
                                      QFileInfo(beside).path() + u"/demo"_s);
    parser.addOptions({recording, pictures});
    parser.process(application);
    const QString program = parser.positionalArguments().value(0, beside + u"/brimlow"_s);
    return demonstrate(program, parser.value(recording), parser.value(pictures));
}
