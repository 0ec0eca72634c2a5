#include "Application/ProcessProtection.h"

#include <sys/prctl.h>
#include <sys/resource.h>

void ProcessProtection::apply() {
    const rlimit none = {};
    setrlimit(RLIMIT_CORE, &none);
    prctl(PR_SET_DUMPABLE, 0);
}
