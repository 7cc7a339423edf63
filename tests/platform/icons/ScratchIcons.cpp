#include "tests/platform/icons/ScratchIcons.h"

#include <QImage>

namespace brimlow::test {

using namespace Qt::StringLiterals;

QColor ScratchIcons::colour(const QString& file) {
    return QColor::fromRgb(static_cast<QRgb>(qHash(file, 1)) | 0xff000000U);
}

void ScratchIcons::draw(const QString& file, QSize size) const {
    if (file.endsWith(".svg"_L1)) {
        write(file, QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" "
                                   "height=\"%2\"><rect width=\"%1\" height=\"%2\" fill=\"%3\"/>"
                                   "<text y=\"-9\" font-size=\"9\">outside</text></svg>")
                        .arg(size.width())
                        .arg(size.height())
                        .arg(colour(file).name())
                        .toUtf8());
        return;
    }
    write(file, {});
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour(file));
    image.save(path(file));
}

void ScratchIcons::writeIndex(const QString& theme, const QByteArray& parents) const {
    write(theme + u"/index.theme"_s,
          "[Icon Theme]\nName=x\nInherits=" + parents
              + "\nDirectories=16x16,48x48,256x256,nowhere,scalable\nScaledDirectories=24x24@2\n"
                "[16x16]\nSize=16\nType=Fixed\n[24x24@2]\nSize=24\nScale=2\n[48x48]\nSize=48\n"
                "[256x256]\nSize=256\nType=Fixed\n[nowhere]\nSize=many\n"
                "[scalable]\nSize=128\nMinSize=8\nMaxSize=512\nType=Scalable\n");
}

} // namespace brimlow::test
