#pragma once

#include "ui/style/Role.h"
#include "ui/style/Theme.h"

#include <QString>

class QHBoxLayout;
class QLabel;
class QLayout;
class QWidget;

namespace brimlow {

// Small pieces of the editor's panels; each belongs to the layout that it is put into.

/// A symbol with wrapping text beside it. `text`, if given, receives the label.
QHBoxLayout* symbolNote(const QString& symbol, style::Tone tone, const QString& text,
                        style::Role role = style::Role::secondCaption, QLabel** label = nullptr);
QHBoxLayout* infoNote(const QString& text);

/// A small caption over a field, which it names for screen readers too.
QLayout* captionedField(const QString& caption, QWidget* field);

} // namespace brimlow
