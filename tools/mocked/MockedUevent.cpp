#include "tools/mocked/MockedUevent.h"

#include "platform/FileDescriptor.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstdint>
#include <cstring>

namespace brimlow::platform {

namespace {

/// What stands before the properties in udev's messages. The hashes serve a kernel filter that
/// these sockets do not have.
struct MonitorHeader {
    char prefix[8] = "libudev";
    std::uint32_t magic = htonl(0xfeedcafe);
    std::uint32_t headerSize = sizeof(MonitorHeader);
    std::uint32_t propertiesOffset = sizeof(MonitorHeader);
    std::uint32_t propertiesSize = 0;
    std::uint32_t subsystemHash = htonl(0xc1a28470U); // MurmurHash2 of "input"
    std::uint32_t deviceTypeHash = 0;
    std::uint32_t tagBloom[2] = {0, 0};
};

} // namespace

void sendUevent(const std::filesystem::path& mockedRoot, const std::string& action,
                std::map<std::string, std::string> properties) {
    static std::uint64_t sequence = 0;
    properties["ACTION"] = action;
    properties["SEQNUM"] = std::to_string(++sequence);
    std::string text;
    for (const auto& [key, value] : properties)
        text.append(key).append("=").append(value) += '\0';
    MonitorHeader header;
    header.propertiesSize = static_cast<std::uint32_t>(text.size());
    const std::string message =
        std::string(reinterpret_cast<const char*>(&header), sizeof header) + text;

    const FileDescriptor sender(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    for (const auto& entry : std::filesystem::directory_iterator(mockedRoot)) {
        if (!entry.path().filename().string().starts_with("event"))
            continue;
        sockaddr_un monitor{};
        monitor.sun_family = AF_UNIX;
        std::strncpy(monitor.sun_path, entry.path().c_str(), sizeof monitor.sun_path - 1);
        // Those of processes that have ended stay behind and refuse.
        sendto(sender.get(), message.data(), message.size(), MSG_DONTWAIT,
               reinterpret_cast<const sockaddr*>(&monitor), sizeof monitor);
    }
}

} // namespace brimlow::platform
