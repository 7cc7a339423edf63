#pragma once

#include "platform/FileViewer.h"
#include "platform/SystemSettings.h"

#include <QStringList>

#include <utility>

namespace brimlow::platform {

/// The settings and the file viewer of a described world: a journal of what was shown.
class SimulatedSettings final : public SystemSettings, public FileViewer {
public:
    /// What was shown since the last call, one entry each ("open accessibility"), in order.
    QStringList takeJournal() { return std::exchange(journal_, {}); }

    void open(SettingsPane pane) override;
    void prompt(SettingsPane pane) override;
    void reveal(const QString& path) override;

private:
    QStringList journal_;
};

} // namespace brimlow::platform
