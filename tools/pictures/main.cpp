#include "tools/pictures/Scenes.h"
#include "ui/style/ApplicationStyle.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QIcon>
#include <QPixmap>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace brimlow;

namespace {

// QWidget::adjustSize() makes no window higher than two thirds of the screen.
QSize wantedSize(const QWidget& widget) {
    QSize size = widget.sizeHint().expandedTo(widget.minimumSize()).boundedTo(widget.maximumSize());
    if (widget.hasHeightForWidth())
        size.setHeight(widget.heightForWidth(size.width()));
    return size;
}

bool takePictures(const pictures::Scene& scene, style::ApplicationStyle& applicationStyle,
                  const QDir& folder, double textScale, const QString& ratio) {
    // One widget for both: what does not follow the desktop's scheme shows.
    applicationStyle.apply({.textScale = textScale});
    const auto widget = scene.make();
    widget->show();
    widget->activateWindow();
    QCoreApplication::processEvents();
    widget->resize(wantedSize(*widget));
    pictures::pose(widget.get());
    const std::vector<std::pair<QString, style::ColourScheme>> schemes{
        {u"light"_s, style::ColourScheme::light}, {u"dark"_s, style::ColourScheme::dark}};
    for (const auto& [scheme, colours] : schemes) {
        applicationStyle.apply({.scheme = colours, .textScale = textScale});
        QCoreApplication::processEvents();
        widget->resize(wantedSize(*widget));
        QCoreApplication::processEvents();
        const QString file = folder.filePath(u"%1-%2@%3x.png"_s.arg(scene.name, scheme, ratio));
        if (!widget->grab().save(file)) {
            QTextStream(stderr) << "cannot write " << file << '\n';
            return false;
        }
        QTextStream(stdout) << file << '\n';
    }
    return true;
}

std::vector<pictures::Scene> chosen(const QStringList& names) {
    std::vector<pictures::Scene> all = pictures::scenes();
    if (!names.isEmpty())
        std::erase_if(all, [&](const auto& scene) { return !names.contains(scene.name); });
    return all;
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QIcon::setThemeSearchPaths({u"/usr/share/icons"_s});
    QIcon::setThemeName(u"Adwaita"_s);

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Takes pictures of the user interface; QT_SCALE_FACTOR "
                                     u"makes them finer."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"folder"_s, u"Where the pictures go."_s);
    parser.addPositionalArgument(u"name"_s, u"Scenes; all where none is named."_s, u"[name...]"_s);
    const QCommandLineOption textScale(u"text-scale"_s, u"How large the desktop wants its text."_s,
                                       u"factor"_s, u"1"_s);
    parser.addOption(textScale);
    parser.process(application);
    QStringList names = parser.positionalArguments();
    if (names.isEmpty())
        parser.showHelp(2);
    const QDir folder(names.takeFirst());
    if (!folder.mkpath(u"."_s))
        return 1;

    auto* applicationStyle = new style::ApplicationStyle;
    const QString ratio = QString::number(application.devicePixelRatio());
    const auto wanted = chosen(names);
    bool complete = !wanted.empty();
    for (const auto& scene : wanted)
        complete &= takePictures(scene, *applicationStyle, folder,
                                 parser.value(textScale).toDouble(), ratio);
    return complete ? 0 : 1;
}
