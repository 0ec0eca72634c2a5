#include "Support/Namespaces.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

namespace {

bool write(const char *path, const std::string &text) {
    std::ofstream file(path);
    file << text << std::flush;
    return file.good();
}

bool enterUserNamespace(int flags, NamespaceUser user) {
    const std::string uid = std::to_string(geteuid());
    const std::string gid = std::to_string(getegid());
    const bool isRoot = user == NamespaceUser::Root;
    return unshare(CLONE_NEWUSER | flags) == 0 && write("/proc/self/setgroups", "deny") &&
           write("/proc/self/uid_map", (isRoot ? "0" : uid) + ' ' + uid + " 1") &&
           write("/proc/self/gid_map", (isRoot ? "0" : gid) + ' ' + gid + " 1");
}

bool tryToEnter(int flags, NamespaceUser user) {
    return (unshare(flags) == 0 || enterUserNamespace(flags, user)) &&
           mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

[[noreturn]] void skip() {
    std::fprintf(stderr, "Skipped: this system does not allow namespaces for tests: %s.\n",
                 std::strerror(errno));
    std::exit(CannotRunExitCode);
}

}  // namespace

bool areNamespacesAllowed(int flags, NamespaceUser user) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(tryToEnter(flags, user) ? EXIT_SUCCESS : errno);
    }
    int status = EXIT_FAILURE;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        return false;
    }
    errno = WIFEXITED(status) ? WEXITSTATUS(status) : EPERM;
    return errno == 0;
}

void requireNamespaces(int flags, NamespaceUser user) {
    if (!areNamespacesAllowed(flags, user)) {
        skip();
    }
}

void enterNamespaces(int flags, NamespaceUser user) {
    if (!tryToEnter(flags, user)) {
        skip();
    }
}
