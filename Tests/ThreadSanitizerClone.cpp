#include <sched.h>

#include <cstdarg>

extern "C" {

/// The thread sanitizer's version, which fails if the child shares its parent's memory.
int __interceptor_clone(int (*function)(void *), void *stack, int flags, void *argument, ...);

/// Replaces clone(2) in test programs with the thread sanitizer: QProcess starts programs with it.
/// The child always gets a copy of the memory.
__attribute__((visibility("default"))) int clone(int (*function)(void *), void *stack, int flags,
                                                 void *argument, ...) noexcept {
    va_list more;
    va_start(more, argument);
    int *const parentId = va_arg(more, int *);
    void *const storage = va_arg(more, void *);
    int *const childId = va_arg(more, int *);
    va_end(more);
    return __interceptor_clone(function, stack, flags & ~(CLONE_VM | CLONE_VFORK), argument,
                               parentId, storage, childId);
}
}
