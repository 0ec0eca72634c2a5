// A program with the allocator of Velmora, without a sanitizer, which would replace it. Prints how
// many bytes are left of a secret after each way of freeing its memory.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr size_t Size = 4000;

/// Returns how many characters of the secret there are at `address`, or -1 if it cannot be read.
long left(uintptr_t address) {
    std::array<char, Size> bytes{};
    const int file = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    const ssize_t count = pread(file, bytes.data(), Size, static_cast<off_t>(address));
    close(file);
    return count == Size ? std::count(bytes.begin(), bytes.end(), 'S') : -1;
}

template <class Release>
void print(const char *name, const Release &release) {
    void *const memory = malloc(Size);
    // Keeps the memory from being returned to the system.
    void *const next = malloc(Size);
    if (!memory || !next) {
        exit(1);
    }
    memset(memory, 'S', Size);
    const auto address = reinterpret_cast<uintptr_t>(memory);
    if (left(address) != static_cast<long>(Size)) {
        exit(1);
    }
    void *const remaining = release(memory);
    std::printf("%s %ld\n", name, left(address));
    free(remaining);
    free(next);
}

}  // namespace

int main() {
    print("free", [](void *memory) -> void * {
        free(memory);
        return nullptr;
    });
    print("shrink", [](void *memory) { return realloc(memory, 16); });
    print("grow", [](void *memory) { return realloc(memory, 4 * Size); });
    print("empty", [](void *memory) { return realloc(memory, 0); });
    return 0;
}
