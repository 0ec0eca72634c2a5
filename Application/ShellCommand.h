#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

#include "Application/Interface/QuestionPresenter.h"

/// A command that a user or a script gives to a profile. A value.
struct ShellCommand {
    /// "sync", "status" and "check" on the command line.
    enum class Name { Synchronize, Status, Check };

    Name name = Name::Status;
    /// The names or UUIDs of the databases to synchronize, all if there are none; or the title or
    /// URL of the location to check.
    QStringList arguments = {};
    /// Whether the output is JSON.
    bool json = false;
    /// What a synchronization does that would remove many notes; Later lets it fail.
    RemovalDecision removals = RemovalDecision::Later;

    bool operator==(const ShellCommand &) const = default;

    /// Returns the decision that `text` names on the command line, "keep" or "remove"; empty if it
    /// names none.
    static std::optional<RemovalDecision> removalsNamed(const QString &text);

    /// Returns the command that `text` names on the command line; empty if it names none.
    static std::optional<Name> named(const QString &text);
    /// Returns the command as one line of JSON, with a line feed.
    QByteArray toLine() const;
    /// Returns the command that toLine() has returned; empty if `line` is none. `line` may come
    /// from any process of the user, so it is checked.
    static std::optional<ShellCommand> fromLine(const QByteArray &line);
};

/// What has become of a command. A value.
struct ShellResult {
    /// The exit status of the program; scripts depend on the numbers.
    enum ExitCode {
        Success,
        /// Something is not synchronized, or a location cannot be used.
        Problems,
        /// The command could not be carried out.
        NotDone,
        /// The command has not ended in time.
        TimedOut,
    };

    int exitCode = NotDone;
    /// Texts for the standard output and the standard error output, which may contain any
    /// characters.
    QString output = {};
    QString errors = {};

    bool operator==(const ShellResult &) const = default;

    /// Return a result without output.
    static ShellResult failed(const QString &errors) { return {NotDone, {}, errors}; }
    static ShellResult timedOut(const QString &errors) { return {TimedOut, {}, errors}; }
    /// As those of ShellCommand.
    QByteArray toLine() const;
    static std::optional<ShellResult> fromLine(const QByteArray &line);
};
