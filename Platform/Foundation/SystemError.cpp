#include "Platform/Foundation/SystemError.h"

#include <cerrno>
#include <cstring>

Error systemError(int number, const QString &description) {
    return {.domain = SystemErrorDomain,
            .code = number,
            .localizedDescription = description,
            .localizedFailureReason = QString::fromLocal8Bit(std::strerror(number))};
}

bool isDiskFull(const Error &error) {
    return error.domain == SystemErrorDomain && (error.code == ENOSPC || error.code == EDQUOT);
}
