#include "Controller/NSArrayController+Emptiness.h"

bool NSArrayController::isEmpty() const {
    return arrangedObjects().isEmpty();
}

bool NSArrayController::isNothingSelected() const {
    return !isEmpty() && selectionIndexes().empty();
}
