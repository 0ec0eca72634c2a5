#pragma once

#include <QtCore/QList>

#include "Platform/Foundation/Error.h"
#include "Platform/PlatformExport.h"

/// Presents several failures as one error. Thread-safe.
namespace CombinedErrors {

/// Returns the only error of `errors`, or one of the domain of the first, without a code and next
/// steps, with the descriptions and the details of all. Of more than five errors, the others are
/// only counted. `errors` must not be empty.
PLATFORM_EXPORT Error of(const QList<Error> &errors);

}  // namespace CombinedErrors
