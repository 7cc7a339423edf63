#pragma once

namespace brimlow {

/// Makes Qt use whichever display can be reached, and none where none can: the engine runs without
/// one. What Qt says meanwhile is not for the user's log. Before the application object.
void chooseDisplay();

} // namespace brimlow
