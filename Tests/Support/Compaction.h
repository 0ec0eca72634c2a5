#pragma once

#include "Engine/Synchronization/CleanSession.h"

/// The session that follows every synchronization that has read or written a large record.
class Compaction : public CleanSession {
public:
    Compaction(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject)
        : CleanSession(profile, library, std::move(subject), Extent::FullTiersAndLarge) {}
};

/// The session that follows every other synchronization that has changed something.
class UsualCompaction : public CleanSession {
public:
    UsualCompaction(const ProfileDatabase &profile, EngineNoteLibrary &library, Subject subject)
        : CleanSession(profile, library, std::move(subject), Extent::FullTiers) {}
};
