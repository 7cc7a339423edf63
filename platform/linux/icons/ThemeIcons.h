#pragma once

#include "platform/Icons.h"
#include "platform/linux/icons/IconSearch.h"

#include <mutex>

namespace brimlow::platform {

class Clock;

/// What a user interface knows of how icons should look.
struct IconAppearance {
    QString themeName; // empty: the one that the desktop's settings name
    double pixelRatio = 1;
};

/// Icons from the icon themes of this machine. It keeps names, no pictures.
class ThemeIcons final : public Icons {
public:
    /// `clock` outlives this object. `folders`: where themes and loose icons are, first first.
    explicit ThemeIcons(const Clock& clock,
                        const QStringList& folders = IconSearch::standardFolders())
        : clock_(clock), search_(folders) {}

    /// For all images asked for from now on. Any thread.
    void setAppearance(IconAppearance appearance);

    QImage image(const QString& nameOrPath, int points) override;

private:
    IconAppearance appearance();
    QStringList find(const QString& nameOrPath, const QString& theme, int pixels);

    const Clock& clock_;
    std::mutex mutex_; // for what follows
    IconAppearance appearance_;
    IconSearch search_;
};

} // namespace brimlow::platform
