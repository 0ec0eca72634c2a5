#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

/// What a verification of a profile and its sync stores has found. A value.
struct VerificationReport {
    /// Sound: no problem was found. Problems: some remain. NotChecked: it is not known, for example
    /// because a location cannot be reached.
    enum class Outcome { Sound, Problems, NotChecked };

    /// The profile, or one database at one location.
    struct Part {
        /// Names the part, for the user.
        QString name;
        Outcome outcome = Outcome::Sound;
        /// How much was verified, for the user; may be empty if it could not be checked.
        QString extent = {};
        /// Complete sentences: what was repaired, and the problems that remain or the reason why
        /// the part could not be checked.
        QStringList repairs = {};
        QStringList problems = {};
    };

    /// In the order of the verification; the first one is the profile.
    QList<Part> parts;

    /// Returns Problems if any part has some, otherwise NotChecked if any could not be checked.
    Outcome outcome() const {
        Outcome worst = Outcome::Sound;
        for (const Part &part : parts) {
            if (part.outcome == Outcome::Problems) {
                return Outcome::Problems;
            }
            worst = part.outcome == Outcome::NotChecked ? part.outcome : worst;
        }
        return worst;
    }
};
