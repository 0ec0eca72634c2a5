#include "Platform/Foundation/SystemError.h"

#include <cstring>

Error systemError(int number, const QString &description) {
    return {.domain = SystemErrorDomain,
            .code = number,
            .localizedDescription = description,
            .localizedFailureReason = QString::fromLocal8Bit(std::strerror(number))};
}
