#pragma once

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Synchronization/StoreSession.h"

/// Runs `session` on the calling thread until it is done or fails.
inline Expected<void> runSession(StoreSession &session, BlobStore &store) {
    const EngineFuture future;
    Expected<void> result;
    while (result && !session.isDone()) {
        result =
            session.accessStore(store, future).and_then([&] { return session.accessProfile(); });
    }
    return result;
}
