#pragma once

#include <QFont>

namespace brimlow::style {

enum class TextStyle {
    welcomeTitle,
    pageHeading,
    sheetTitle,
    heading, // of sections and panels
    body,
    row, // row labels and buttons
    smallButton,
    fieldCaption,
    captionHeading, // of a drawing
    caption,
    secondCaption,
    badge,
    rowDetail,
    unrecordedDetail,
    mapLabel,
    coordinates,
};

/// The sizes and weights of text, in Inter where it is installed. Lengths are logical pixels times
/// the scale that the desktop asks for its text.
class TypeScale {
public:
    explicit TypeScale(double textScale = 1);

    QFont font(TextStyle style) const;
    /// The same as a style sheet's `font` takes it.
    QString css(TextStyle style) const;
    /// A length that grows with the text that it has to hold.
    int scaled(int pixels) const;

private:
    QString family_;
    QString fixedFamily_;
    double textScale_;
};

/// From one base line of wrapped text to the next.
int lineHeight(const QFont& font);

} // namespace brimlow::style
