#include "Engine/Foundation/FailureLog.h"

#include "Host/QVJobLog.h"

void logFailureOf(const Expected<void> &result) {
    if (!result) {
        QVJobLog::logMessage(result.error().localizedDescription);
    }
}
