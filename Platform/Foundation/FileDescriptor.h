#pragma once

#include <unistd.h>

#include <utility>

/// Owns a file descriptor and closes it when destroyed. Move-only. May be used on any thread, by
/// one at a time.
class FileDescriptor {
public:
    /// Becomes the owner of the descriptor `number`. A negative number means that there is none.
    explicit FileDescriptor(int number = -1) : m_number(number) {}
    /// Takes the descriptor of `other`, which then has none.
    FileDescriptor(FileDescriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    /// Exchanges the descriptors, so the one that this object had is closed with `other`.
    FileDescriptor &operator=(FileDescriptor &&other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    /// Closes the descriptor, if there is one. An error of close(2) is ignored: what must be on the
    /// disk has to be flushed before.
    ~FileDescriptor() {
        if (isValid()) {
            ::close(m_number);
        }
    }

    /// Returns whether there is a descriptor; not whether the system knows it.
    bool isValid() const { return m_number >= 0; }
    /// Returns the descriptor for calls of the system; a negative number if there is none. It stays
    /// owned by this object, so the caller must not close it or use it longer.
    int number() const { return m_number; }
    /// Returns the descriptor, which the caller then owns; a negative number if there is none.
    int take() { return std::exchange(m_number, -1); }

private:
    int m_number;
};
