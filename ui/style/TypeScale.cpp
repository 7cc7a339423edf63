#include "ui/style/TypeScale.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <cmath>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

struct Size {
    int pixels;
    int weight;
};

Size sizeOf(TextStyle style) {
    switch (style) {
    case TextStyle::welcomeTitle:
        return {24, 700};
    case TextStyle::pageHeading:
        return {18, 600};
    case TextStyle::sheetTitle:
        return {15, 600};
    case TextStyle::heading:
        return {13, 600};
    case TextStyle::body:
        return {13, 400};
    case TextStyle::row:
        return {13, 500};
    case TextStyle::smallButton:
    case TextStyle::fieldCaption:
        return {12, 500};
    case TextStyle::captionHeading:
        return {12, 600};
    case TextStyle::caption:
        return {12, 400};
    case TextStyle::secondCaption:
        return {11, 400};
    case TextStyle::badge:
        return {11, 600};
    case TextStyle::rowDetail:
        return {10, 400};
    case TextStyle::unrecordedDetail:
        return {10, 500};
    case TextStyle::mapLabel:
        return {10, 600};
    case TextStyle::coordinates:
        return {11, 400};
    }
    return {13, 400};
}

} // namespace

TypeScale::TypeScale(double textScale)
    : family_(QFontDatabase::hasFamily(u"Inter"_s)
                  ? u"Inter"_s
                  : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family()),
      fixedFamily_(QFontDatabase::systemFont(QFontDatabase::FixedFont).family()),
      textScale_(textScale) {}

QFont TypeScale::font(TextStyle style) const {
    QFont font(style == TextStyle::coordinates ? fixedFamily_ : family_);
    font.setPixelSize(scaled(sizeOf(style).pixels));
    font.setWeight(static_cast<QFont::Weight>(sizeOf(style).weight));
    return font;
}

QString TypeScale::css(TextStyle style) const {
    const QFont wanted = font(style);
    return u"%1 %2px \"%3\""_s.arg(QString::number(wanted.weight()),
                                   QString::number(wanted.pixelSize()), wanted.family());
}

int TypeScale::scaled(int pixels) const {
    return static_cast<int>(std::lround(pixels * textScale_));
}

int lineHeight(const QFont& font) {
    return static_cast<int>(std::lround(QFontInfo(font).pixelSize() * 4.0 / 3));
}

} // namespace brimlow::style
