#pragma once

#include <QObject>

class QWidget;

namespace brimlow::style {

Q_NAMESPACE

/// What a widget is for. The style sheet dresses it accordingly; widgets without a role look like
/// their kind: labels as body text, push buttons bordered.
enum class Role {
    // QLabel
    welcomeTitle,
    pageHeading,
    sheetTitle,
    heading,
    body,
    secondaryBody,
    row,
    fieldCaption,
    captionHeading,
    caption,
    secondCaption,
    noticeText,
    rowDetail,
    unrecordedDetail,
    recordedState,
    coordinates,
    greenBadge,
    orangeBadge,
    redBadge,
    greyBadge,
    // QFrame
    page,
    sidebar,
    card,
    inset,
    notice,
    chip,
    divider,
    // QPushButton
    prominent,
    destructive,
    icon,
    destructiveIcon,
    flatIcon,
    sidebarRow,
    // QListView
    rows,
};
Q_ENUM_NS(Role)

/// Kept as the property "role". May change at any time.
void setRole(QWidget* widget, Role role);

/// Makes a button small; kept as the property "small".
void setSmall(QWidget* button);

} // namespace brimlow::style
