#include "platform/simulated/SimulatedSettings.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(SettingsPane pane) {
    switch (pane) {
    case SettingsPane::accessibility:
        return u"accessibility"_s;
    case SettingsPane::screenRecording:
        return u"screen recording"_s;
    case SettingsPane::automation:
        return u"automation"_s;
    case SettingsPane::keyboardShortcuts:
        return u"keyboard shortcuts"_s;
    }
    return {};
}

} // namespace

void SimulatedSettings::open(SettingsPane pane) {
    journal_ << u"open "_s + nameOf(pane);
}

void SimulatedSettings::prompt(SettingsPane pane) {
    journal_ << u"prompt "_s + nameOf(pane);
}

void SimulatedSettings::reveal(const QString& path) {
    journal_ << u"reveal "_s + path;
}

} // namespace brimlow::platform
