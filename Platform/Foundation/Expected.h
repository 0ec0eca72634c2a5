#pragma once

#include <tl/expected.hpp>
#include <utility>

#include "Platform/Foundation/Error.h"

/// The value of an operation, or the error that made it fail. `Expected<void>` has no value.
template <class Value>
using Expected = tl::expected<Value, Error>;

/// The unexpected value that makes an `Expected` of any type: `return failure(error);`.
inline tl::unexpected<Error> failure(Error error) {
    return tl::unexpected<Error>(std::move(error));
}
