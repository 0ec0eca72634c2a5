#include "Application/ProcessProtection.h"

#include "Application/ApplicationError.h"

#include <sys/prctl.h>
#include <sys/resource.h>

#include <QtCore/QCoreApplication>

Expected<void> ProcessProtection::apply(Debuggers debuggers) {
    const rlimit none = {};
    const bool hasNoCoreFile = setrlimit(RLIMIT_CORE, &none) == 0;
    const bool isUnreadable = debuggers == Debuggers::Allowed || prctl(PR_SET_DUMPABLE, 0) == 0;
    if (hasNoCoreFile && isUnreadable) {
        return {};
    }
    return failure(applicationError(QCoreApplication::translate(
        "ProcessProtection",
        "Other programs of yours may be able to read passwords in the memory of Velmora, because "
        "the system did not let it protect its memory. Run no programs that you do not trust "
        "beside Velmora.")));
}
