#pragma once

#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>

/// What a run of a program as a script would start it, without a display, has printed.
struct ProgramRun {
    /// Runs `program` in `environment` and waits until it has ended.
    static ProgramRun of(const QString &program, const QStringList &arguments,
                         QProcessEnvironment environment);

    /// -1 if the program did not end by itself.
    int exitCode = -1;
    QString output;
    QString errors;
};
