#include "Support/ProgramRun.h"

#include <linux/capability.h>
#include <sys/prctl.h>

#include <QtCore/QProcess>

#include "Support/EventTimeout.h"

namespace {

ProgramRun runOf(QProcess &process, const QString &program, const QStringList &arguments,
                 QProcessEnvironment environment) {
    for (const QString &name : {QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY"),
                                QStringLiteral("QT_QPA_PLATFORM")}) {
        environment.remove(name);
    }
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

}  // namespace

ProgramRun ProgramRun::of(const QString &program, const QStringList &arguments,
                          QProcessEnvironment environment) {
    QProcess process;
    return runOf(process, program, arguments, std::move(environment));
}

ProgramRun ProgramRun::boundByPermissions(const QString &program, const QStringList &arguments,
                                          QProcessEnvironment environment) {
    QProcess process;
    // Other users than root do not have these, and need not be able to give them up.
    process.setChildProcessModifier([] {
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
    });
    return runOf(process, program, arguments, std::move(environment));
}
