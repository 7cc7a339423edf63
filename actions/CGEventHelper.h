#pragma once

class QString;

namespace brimlow {

/// Desktop switching. Main thread.
class CGEventHelper {
public:
    CGEventHelper() = delete;

    enum class Direction { left, right };

    /// One desktop to the left or right, by way of System Events. Failures are printed.
    static void switchDesktop(Direction direction);

private:
    static void runAppleScript(const QString& source);
};

} // namespace brimlow
