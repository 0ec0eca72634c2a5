#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

/// What a verification of a profile and its sync stores has found. A value.
struct VerificationReport {
    enum class Outcome { Sound, Problems, NotChecked };

    /// The profile, or one database at one location.
    struct Part {
        /// Names the part, for the user.
        QString name;
        Outcome outcome = Outcome::Sound;
        /// How much was verified, for the user.
        QString extent = {};
        /// Complete sentences: what was repaired, and the problems that remain or the reason why
        /// the part could not be checked.
        QStringList repairs = {};
        QStringList problems = {};
    };

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
