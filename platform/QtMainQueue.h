#pragma once

#include "platform/MainQueue.h"

#include <QObject>

namespace brimlow::platform {

/// The main queue on Qt's event loop. Made on the main thread, after the application object.
class QtMainQueue final : public MainQueue {
public:
    void async(Work work) override;
    void after(double seconds, Work work) override;
    std::unique_ptr<RepeatingTimer> every(double seconds, Work work) override;
    std::unique_ptr<DispatchSource> makeSource(Work handler) override;

private:
    QObject context_; // work that is still queued is dropped with it
};

} // namespace brimlow::platform
