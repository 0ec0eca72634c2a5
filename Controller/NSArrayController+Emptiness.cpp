#include "Controller/NSArrayController+Emptiness.h"

bool NSArrayController::isEmpty() const {
    return arrangedObjects().isEmpty();
}
