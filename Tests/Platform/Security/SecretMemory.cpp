// A program without a sanitizer, which would turn mlock() off. Prints how many kilobytes are locked
// while it has a secret, and the secret. With the argument "--no-locks" it may not lock memory.

#include <sys/resource.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <cstdio>

#include "Platform/Security/SecretBytes.h"

namespace {

constexpr uid_t Nobody = 65534;

/// Returns false if the process may still lock memory.
bool forbidLocks() {
    const rlimit none{};
    // The superuser has no limit.
    return setrlimit(RLIMIT_MEMLOCK, &none) == 0 && (geteuid() != 0 || setuid(Nobody) == 0);
}

QByteArray lockedKilobytes() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("VmLck:")) {
                return line.simplified().split(' ').value(1);
            }
        }
    }
    return {};
}

}  // namespace

int main(int argumentCount, char ** /*arguments*/) {
    if (argumentCount > 1 && !forbidLocks()) {
        return 1;
    }
    const SecretBytes secret(QByteArray("secret"));
    std::printf("%s %s", lockedKilobytes().constData(), secret.toByteArray().constData());
    return 0;
}
