#include "Application/ShellCommandLine.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <chrono>
#include <memory>

#include "Application/ApplicationError.h"
#include "Application/Interface/SyncPlugIn.h"
#include "Application/LaunchOptions.h"
#include "Application/RunningInstance.h"
#include "Application/ShellCommandRunner.h"
#include "Application/VelmoraApplication.h"
#include "Platform/Foundation/Retries.h"
#include "Platform/Foundation/TerminalText.h"

namespace {

/// A process that uses the profile may just be starting or ending.
constexpr std::chrono::seconds ProfileTimeout(3);

QString commandLineText(const char *text) {
    return QCoreApplication::translate("ShellCommandLine", text);
}

/// Returns the exit code.
int print(const ShellResult &result) {
    const Expected<void> printed = TerminalText::print(result.output);
    const QStringList errors = result.errors.split(u'\n', Qt::SkipEmptyParts);
    for (const QString &error : errors) {
        TerminalText::printError(error);
    }
    if (printed) {
        return result.exitCode;
    }
    TerminalText::printError(printed.error().localizedDescription);
    TerminalText::printError(printed.error().localizedFailureReason);
    return result.exitCode == ShellResult::Success ? ShellResult::Problems : result.exitCode;
}

ShellResult runHere(VelmoraApplication &application, const LaunchOptions &options,
                    const NoteLibrary &library, const QDeadlineTimer &deadline) {
    if (options.command->name == ShellCommand::Name::Synchronize) {
        if (const auto opened =
                application.eventLog()->open(LogFile::pathInProfile(options.profile));
            !opened) {
            TerminalText::printError(opened.error().localizedDescription);
        }
    }
    // The command may end after the time for it.
    const auto result = std::make_shared<ShellResult>(ShellResult::timedOut(
        commandLineText(
            "The command takes longer than the allowed %1 s and was stopped. Try again, or "
            "state a longer time with --timeout.")
            .arg(options.timeout.count())));
    ShellCommandRunner::run(*options.command, library, [result](const ShellResult &reached) {
        *result = reached;
        QCoreApplication::quit();
    });
    QTimer::singleShot(std::chrono::milliseconds(deadline.remainingTime()), qApp,
                       &QCoreApplication::quit);
    QCoreApplication::exec();
    return *result;
}

ShellResult resultOf(VelmoraApplication &application, const LaunchOptions &options,
                     SyncPlugIn &sync) {
    if (const Expected<void> found = ShellCommandLine::findProfile(options, sync); !found) {
        return ShellResult::failed(found.error().localizedDescription);
    }
    const bool isSync = options.command->name == ShellCommand::Name::Synchronize;
    const QDeadlineTimer end(options.timeout);
    const Retries retries(ProfileTimeout);
    Expected<void> opened;
    do {
        if (const auto answered = RunningInstance::ask(options.profile, *options.command, end)) {
            return *answered;
        }
        opened = sync.openProfile(options.profile, isSync ? ProfileUse::Edit : ProfileUse::Snapshot,
                                  FirstContents::Inbox);
    } while (!opened && sync.isProfileInUse(opened.error()) && retries.wait());
    if (!opened) {
        return ShellResult::failed(opened.error().localizedDescription);
    }
    application.setLibrary(sync.library());
    ShellResult result = runHere(application, options, *sync.library(), end);
    application.setLibrary(nullptr);
    return result;
}

}  // namespace

Expected<void> ShellCommandLine::findProfile(const LaunchOptions &options, const SyncPlugIn &sync) {
    return sync.isUnused(options.profile).and_then([&](bool isUnused) -> Expected<void> {
        if (!isUnused) {
            return {};
        }
        return failure(
            applicationError(commandLineText("There is no profile in the folder “%1”. State "
                                             "another one with --profile.")
                                 .arg(options.profile)));
    });
}

int ShellCommandLine::run(VelmoraApplication &application, const LaunchOptions &options,
                          SyncPlugIn &sync) {
    return print(resultOf(application, options, sync));
}

void ShellCommandLine::enterSession() {
    if (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        return;
    }
    const QByteArray folder = "/run/user/" + QByteArray::number(getuid());
    struct stat status {};
    if (lstat(folder.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
        status.st_uid == getuid()) {
        qputenv("XDG_RUNTIME_DIR", folder);
    }
}
