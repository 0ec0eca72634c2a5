#pragma once

/// Initial contents of a new profile.
enum class FirstContents {
    /// The inbox alone.
    Inbox,
    /// The inbox, two example databases with notes, and a sync store in the profile folder as a
    /// location with which the first of these databases synchronizes. The examples are the same
    /// databases in all profiles of the same language.
    Welcome,
};
