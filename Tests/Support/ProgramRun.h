#pragma once

#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>

/// What a run of a program as a script would start it, without a display, has printed.
struct ProgramRun {
    /// Runs `program` in `environment` and waits until it has ended.
    static ProgramRun of(const QString &program, const QStringList &arguments,
                         QProcessEnvironment environment);

    /// As of(), but as a user whom the permissions of files bind, which they do not for root.
    static ProgramRun boundByPermissions(const QString &program, const QStringList &arguments,
                                         QProcessEnvironment environment);

    /// -1 if the program did not end by itself.
    int exitCode = -1;
    QString output;
    QString errors;
};
