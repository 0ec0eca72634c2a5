#include "Platform/Security/SecretBytes.h"

#include <string.h>
#include <sys/mman.h>

#include <algorithm>
#include <new>

/// Whole pages, so that locking and unlocking them affects no other data.
class SecretBytes::Memory {
public:
    explicit Memory(QByteArrayView bytes)
        : m_size(bytes.size()),
          m_start(mmap(nullptr, capacity(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1,
                       0)) {
        if (m_start == MAP_FAILED) {
            throw std::bad_alloc();
        }
        // Both may fail without harm to the caller.
        mlock(m_start, capacity());
        madvise(m_start, capacity(), MADV_DONTDUMP);
        std::copy(bytes.begin(), bytes.end(), static_cast<char *>(m_start));
    }
    ~Memory() {
        explicit_bzero(m_start, capacity());
        munmap(m_start, capacity());
    }
    Memory(const Memory &) = delete;
    Memory &operator=(const Memory &) = delete;

    QByteArrayView view() const { return {static_cast<const char *>(m_start), m_size}; }

private:
    size_t capacity() const { return static_cast<size_t>(m_size); }

    const qsizetype m_size;
    void *const m_start;
};

SecretBytes::SecretBytes(QByteArrayView bytes)
    : m_memory(bytes.isEmpty() ? nullptr : std::make_shared<const Memory>(bytes)) {}

SecretBytes::SecretBytes(const QString &text) {
    QByteArray bytes = text.toUtf8();
    *this = SecretBytes(QByteArrayView(bytes));
    wipe(bytes);
}

QByteArrayView SecretBytes::view() const {
    return m_memory ? m_memory->view() : QByteArrayView("", 0);
}

void SecretBytes::wipe(QByteArray &bytes) {
    if (bytes.isDetached()) {
        explicit_bzero(bytes.data(), static_cast<size_t>(bytes.capacity()));
    }
    bytes.clear();
}

void SecretBytes::wipe(QString &text) {
    if (text.isDetached()) {
        explicit_bzero(text.data(), static_cast<size_t>(text.capacity()) * sizeof(QChar));
    }
    text.clear();
}
