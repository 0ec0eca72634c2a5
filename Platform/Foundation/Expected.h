#pragma once

// Declared before the library's own header so that discarding a result is a compiler warning.
namespace tl {
template <class Value, class Failure>
class [[nodiscard]] expected;
}

#include <tl/expected.hpp>
#include <utility>

#include "Platform/Foundation/Error.h"

/// The result of an operation that can fail: its value, or the error. `Expected<void>` has no
/// value. It must be checked before its value or error is read; or combine results with and_then()
/// and map(), which do nothing with an error but return it. A default-constructed result is a
/// success with a default-constructed value. A call whose result is discarded is a compiler
/// warning; a function that handles the failure itself returns no Expected.
template <class Value>
using Expected = tl::expected<Value, Error>;

/// Returns `error` in the form that converts to an Expected of any type, for `return
/// failure(error);`.
inline tl::unexpected<Error> failure(Error error) {
    return tl::unexpected<Error>(std::move(error));
}
