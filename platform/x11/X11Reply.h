#pragma once

#include <cstdlib>
#include <memory>

namespace brimlow::platform {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// What xcb hands out from malloc: replies, errors and events.
template<typename T>
using Reply = std::unique_ptr<T, FreeReply>;

} // namespace brimlow::platform
