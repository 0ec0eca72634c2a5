/// Makes the program wipe memory when it is freed, so that copies of passwords and tokens that Qt,
/// GLib, libcurl and OpenSSL make do not stay in memory after use. Linked into programs only, where
/// these definitions replace those of the C library.

#include <malloc.h>
#include <string.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>

#ifdef VELMORA_IS_SANITIZED

#include <sanitizer/allocator_interface.h>

namespace {

void wipe(const volatile void *memory) {
    void *const start = const_cast<void *>(memory);
    explicit_bzero(start, __sanitizer_get_allocated_size(start));
}

[[maybe_unused]] const int installed =
    __sanitizer_install_malloc_and_free_hooks([](const volatile void *, size_t) {},
                                              [](const volatile void *memory) {
                                                  if (memory) {
                                                      wipe(memory);
                                                  }
                                              });

}  // namespace

#elif defined(__GLIBC__)

extern "C" {

void *__libc_realloc(void *memory, size_t size);  // NOLINT(*-reserved-identifier, cert-dcl*)
void __libc_free(void *memory);                   // NOLINT(*-reserved-identifier, cert-dcl*)

/// No buffer that holds a secret is larger. Larger ones would cost time to wipe and to copy.
constexpr size_t LargestWiped = 256 << 10;

void free(void *memory) noexcept {
    if (memory) {
        const int error = errno;
        explicit_bzero(memory, std::min(malloc_usable_size(memory), LargestWiped));
        errno = error;
    }
    __libc_free(memory);
}

void *realloc(void *memory, size_t size) noexcept {
    if (memory && size == 0) {
        // As in the C library.
        free(memory);
        return nullptr;
    }
    const size_t available = memory ? malloc_usable_size(memory) : 0;
    if (!memory || available > LargestWiped) {
        return __libc_realloc(memory, size);
    }
    if (size <= available && size >= available / 2) {
        return memory;
    }
    void *const moved = malloc(size);
    if (moved) {
        memcpy(moved, memory, std::min(available, size));
        free(memory);
    }
    return moved;
}

void *reallocarray(void *memory, size_t count, size_t size) noexcept {
    if (size != 0 && count > SIZE_MAX / size) {
        errno = ENOMEM;
        return nullptr;
    }
    return realloc(memory, count * size);
}
}

#endif
