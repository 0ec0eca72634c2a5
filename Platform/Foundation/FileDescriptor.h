#pragma once

#include <unistd.h>

#include <utility>

/// Owns a file descriptor and closes it when destroyed. Move-only. May be used on any thread, by
/// one at a time.
class FileDescriptor {
public:
    /// Becomes the owner of the descriptor `number`. A negative number means that there is none.
    explicit FileDescriptor(int number = -1) : m_number(number) {}
    FileDescriptor(FileDescriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~FileDescriptor() {
        if (isValid()) {
            ::close(m_number);
        }
    }

    bool isValid() const { return m_number >= 0; }
    int number() const { return m_number; }
    /// Returns the descriptor, which the caller then owns; a negative number if there is none.
    int take() { return std::exchange(m_number, -1); }

private:
    int m_number;
};
