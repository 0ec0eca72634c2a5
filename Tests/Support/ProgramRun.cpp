#include "Support/ProgramRun.h"

#include <QtCore/QProcess>

#include "Support/EventTimeout.h"

ProgramRun ProgramRun::of(const QString &program, const QStringList &arguments,
                          QProcessEnvironment environment) {
    for (const QString &name : {QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY"),
                                QStringLiteral("QT_QPA_PLATFORM")}) {
        environment.remove(name);
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    ProgramRun run;
    if (process.waitForFinished(EventTimeout) && process.exitStatus() == QProcess::NormalExit) {
        run.exitCode = process.exitCode();
    }
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    run.errors = QString::fromUtf8(process.readAllStandardError());
    return run;
}
