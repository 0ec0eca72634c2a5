#pragma once

#include <unistd.h>

#include <utility>

/// Closes a descriptor of the system when it goes. Move-only.
class FileDescriptor {
public:
    /// Takes over `number`; a negative one is none.
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
    /// Gives it away.
    int take() { return std::exchange(m_number, -1); }

private:
    int m_number;
};
