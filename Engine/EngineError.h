#pragma once

#include "Platform/Foundation/Error.h"

/// What can go wrong in the engine, as the code of an Error of the domain "VelmoraEngine".
enum class EngineErrorCode {
    ProfileUnusable = 1,
    ProfileCorrupt,
    ProfileTooNew,
    ProfileReadOnly,
    NotSaved,
    InvalidName,
    StoreMissing,
    StoreInvalid,
    StoreUnsupported,
    RecordInvalid,
    Cancelled,
};

/// An error with that description, and a reason where there is one.
Error engineError(EngineErrorCode code, const QString &description, const QString &reason = {});
