#pragma once

#include "Engine/Synchronization/CleanSession.h"

/// The session that follows every synchronization that has changed something.
class Compaction : public CleanSession {
public:
    Compaction(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject)
        : CleanSession(profile, library, std::move(subject), Extent::FullTiersAndLarge) {}
};
