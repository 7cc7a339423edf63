#pragma once

#include <unistd.h>

#include <utility>

namespace brimlow::platform {

/// Closes what it holds; -1 is none.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() {
        if (number_ >= 0)
            close(number_);
    }

    int get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }

private:
    int number_;
};

} // namespace brimlow::platform
