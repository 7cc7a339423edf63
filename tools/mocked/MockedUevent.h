#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace brimlow::platform {

/// Tells all udev monitors of the processes that live in a mocked root what happened to a device,
/// as udev's daemon would. umockdev does that only for a process that is itself under its preload.
void sendUevent(const std::filesystem::path& mockedRoot, const std::string& action,
                std::map<std::string, std::string> properties);

} // namespace brimlow::platform
