#pragma once

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

/// Limits the size of the files that the process writes, while it exists: writing beyond it fails
/// as if the disk were full, without a signal. Failures throw std::runtime_error.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handlerBefore(signal(SIGXFSZ, SIG_IGN)) {
        if (getrlimit(RLIMIT_FSIZE, &m_before) != 0) {
            throw std::runtime_error("the limit of the size of files cannot be read");
        }
        const rlimit limit{bytes, m_before.rlim_max};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            throw std::runtime_error("the size of files cannot be limited");
        }
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        signal(SIGXFSZ, m_handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before{};
    void (*const m_handlerBefore)(int);
};
