#pragma once

#include <variant>

#include "Platform/Foundation/Error.h"

/// What an operation gives, or why it could not.
template <class Value>
using Result = std::variant<Value, Error>;

/// The error of `result`; nullptr where it has a value.
template <class Value>
const Error *errorOf(const Result<Value> &result) {
    return std::get_if<Error>(&result);
}
