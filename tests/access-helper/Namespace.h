#pragma once

#include <string>

namespace brimlow::test {

bool isRoot();

/// Why this user cannot have a mount namespace or there is no udev; empty when all is there.
std::string missingForNamespace();

/// What a shell says that runs `script` after namespace.sh, as a root of its own.
std::string outputInNamespace(const std::string& script);

/// What the helper says to somebody who is not root, and "exit" with its exit code.
std::string outputAsOrdinaryUser(const std::string& verb);

} // namespace brimlow::test
