#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QLibraryInfo>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "Application/ApplicationError.h"
#include "Application/BackgroundMode.h"
#include "Application/DamagedProfileDialog.h"
#include "Application/EndLimit.h"
#include "Application/EndSignals.h"
#include "Application/FirstStartDialog.h"
#include "Application/LaunchOptions.h"
#include "Application/MainWindow.h"
#include "Application/PlugIns.h"
#include "Application/PreferencesWindow.h"
#include "Application/ProcessProtection.h"
#include "Application/ProfileDescription.h"
#include "Application/QuitGuard.h"
#include "Application/RunningInstance.h"
#include "Application/ShellCommandLine.h"
#include "Application/ShellCommandRunner.h"
#include "Application/TemporaryFiles.h"
#include "Application/VelmoraApplication.h"
#include "Application/VerificationOutput.h"
#include "Host/SyncLog.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/Retries.h"
#include "Platform/Foundation/TerminalText.h"
#include "Platform/Foundation/UserLanguage.h"

namespace {

/// The process that uses the profile may just have started; its windows follow soon.
constexpr std::chrono::seconds RaiseTimeout(3);
constexpr QSize SmallestPicture(920, 600);
constexpr int MostLayouts = 20;

/// The texts of Velmora and of Qt in the user's language.
class Translators {
public:
    /// Installs them in the application object that exists. Has no effect for English.
    void install() {
        const QString folder = QStringLiteral(":/Velmora/Translations");
        const QString table = QStringLiteral("Velmora");
        if (const QString language = userLanguage(folder, table); !language.isEmpty()) {
            // Qt's texts are in the language of Velmora's, even if the user prefers another.
            load(m_qt, QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                 QStringLiteral("qtbase_") + language);
            load(m_velmora, folder, table + u'_' + language);
        }
    }

private:
    static void load(QTranslator &translator, const QString &folder, const QString &file) {
        if (translator.load(file, folder)) {
            QCoreApplication::installTranslator(&translator);
        }
    }

    QTranslator m_qt;
    QTranslator m_velmora;
};

int fail(VelmoraApplication &application, const Error &error, bool isBatch) {
    TerminalText::printError(error.localizedDescription);
    if (!error.localizedFailureReason.isEmpty()) {
        TerminalText::printError(error.localizedFailureReason);
    }
    if (!isBatch) {
        application.presentError(error);
        QApplication::exec();
    }
    return EXIT_FAILURE;
}

/// Returns a picture of `window`, which must be shown, with room for all that is in it, also beyond
/// the screen, which is not a real one.
QImage wholePicture(QWidget &window) {
    QImage picture;
    // A wider window needs other heights, which follow in events of their own.
    for (int i = 0; i < MostLayouts; ++i) {
        window.resize(window.sizeHint().expandedTo(SmallestPicture));
        QCoreApplication::processEvents();
        const QImage next = window.grab().toImage();
        if (next == picture) {
            break;
        }
        picture = next;
    }
    return picture;
}

/// Renders Sync Preferences as the user would see them, and writes the picture to `file`.
Expected<void> writeScreenshot(const QString &file) {
    auto pane = PlugIns::makeSyncPreferences();
    if (!pane) {
        return failure(pane.error());
    }
    auto *window = new PreferencesWindow(std::move(*pane));
    window->show();
    const bool isWritten = wholePicture(*window).save(file);
    window->closeInAnyCase();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!isWritten) {
        return failure(applicationError(
            QCoreApplication::translate("main",
                                        "The picture cannot be written to %1. Check the folder "
                                        "and its permissions, or choose another file.")
                .arg(file)));
    }
    return {};
}

Expected<void> printDescription(const NoteLibrary &library) {
    return describeProfile(library).and_then([](const QJsonObject &description) {
        return TerminalText::print(QString::fromUtf8(QJsonDocument(description).toJson()));
    });
}

int runBatch(VelmoraApplication &application, LaunchOptions options, const NoteLibrary &library) {
    Expected<void> result;
    if (options.hasNoDisplay && options.screenshot.isEmpty() && !options.describe) {
        options.screenshot = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                             QStringLiteral("/../sync-preferences.png"));
        options.describe = true;
        result = TerminalText::print(
            QCoreApplication::translate(
                "main",
                "There is no display to open a window on. A picture of Sync Preferences "
                "is in this file:") +
            u'\n' + TerminalText::line(options.screenshot) + u'\n');
    }
    if (result && !options.screenshot.isEmpty()) {
        result = writeScreenshot(options.screenshot);
    }
    if (result && options.describe) {
        result = printDescription(library);
    }
    return result ? EXIT_SUCCESS : fail(application, result.error(), true);
}

void logIfFailed(VelmoraApplication &application, const Expected<void> &result) {
    if (!result) {
        application.logItemCmd(QStringLiteral("Velmora:"), result.error().localizedDescription);
    }
}

/// Shows what the user sees first, and lets the user add the location that was chosen.
void showWindows(MainWindow &window, const LaunchOptions &options,
                 const std::optional<FirstStart> &firstStart) {
    window.rememberWindows();
    window.show();
    if (firstStart && !firstStart->location.isEmpty()) {
        // Folders are chosen in an event loop of their own.
        QMetaObject::invokeMethod(
            &window, [&window, start = *firstStart] { window.addLocation(start); },
            Qt::QueuedConnection);
    } else if (options.preferences || (!firstStart && PreferencesWindow::wasOpen())) {
        window.showPreferences();
    } else {
        PreferencesWindow::setWasOpen(false);
    }
}

int runWindows(VelmoraApplication &application, const LaunchOptions &options, SyncPlugIn &sync,
               const std::optional<FirstStart> &firstStart) {
    NoteLibrary *library = sync.library();
    logIfFailed(application, application.eventLog()->open(LogFile::pathInProfile(options.profile)));
    MainWindow window(library, application.eventLog(), options.profile);
    QuitGuard guard(&window);
    const BackgroundMode background(&window, &guard, &sync);
    const EndSignals endSignals;
    QObject::connect(&endSignals, &EndSignals::received, &window, [&] {
        guard.allowEnd();
        window.saveAll();
        QCoreApplication::exit();
    });
    RunningInstance instance(options.profile);
    logIfFailed(application, instance.listen());
    QObject::connect(&instance, &RunningInstance::raiseRequested, &window,
                     &MainWindow::bringToFront);
    QObject::connect(&instance, &RunningInstance::commandRequested, &window,
                     [library](const ShellCommand &command, const RunningInstance::Reply &reply) {
                         ShellCommandRunner::run(command, *library, reply);
                     });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, [&] {
        guard.allowEnd();
        window.saveAll();
    });
    showWindows(window, options, firstStart);
    return QApplication::exec();
}

ProfileUse profileUse(const LaunchOptions &options) {
    if (!options.isBatch()) {
        return ProfileUse::Run;
    }
    return options.sandboxed ? ProfileUse::Edit : ProfileUse::Snapshot;
}

/// Returns how a profile begins that does not exist yet, after asking the user unless the options
/// say it; nothing if the profile exists.
Expected<std::optional<FirstStart>> firstStartOf(const LaunchOptions &options,
                                                 const SyncPlugIn &sync) {
    return sync.isUnused(options.profile).map([&](bool isUnused) -> std::optional<FirstStart> {
        if (!isUnused) {
            return {};
        }
        if (options.begin || options.isBatch()) {
            FirstStart start;
            start.contents = options.begin.value_or(FirstContents::Welcome);
            return start;
        }
        const auto offers = PlugIns::locationOffers();
        if (!offers) {
            NSApp()->presentError(offers.error());
        }
        return FirstStartDialog::ask(offers.value_or(QList<LocationOffer>()));
    });
}

int run(VelmoraApplication &application, const LaunchOptions &options, SyncPlugIn &sync) {
    const Expected<std::optional<FirstStart>> found = firstStartOf(options, sync);
    if (!found) {
        return fail(application, found.error(), options.isBatch());
    }
    const std::optional<FirstStart> &firstStart = *found;
    const auto open = [&] {
        return sync.openProfile(options.profile, profileUse(options),
                                firstStart.value_or(FirstStart()).contents);
    };
    Expected<void> opened = open();
    const Retries retries(RaiseTimeout);
    while (!opened && !options.isBatch() && sync.isProfileInUse(opened.error())) {
        if (RunningInstance::raise(options.profile)) {
            return EXIT_SUCCESS;
        }
        if (!retries.wait()) {
            break;
        }
        opened = open();
    }
    while (!opened && !options.isBatch() && sync.canReplaceProfile(opened.error())) {
        if (!DamagedProfileDialog::run(sync, options.profile, opened.error())) {
            return EXIT_FAILURE;
        }
        opened = open();
    }
    if (opened && options.sandboxed) {
        opened = sync.setUsesSandboxedAccess(*options.sandboxed);
    }
    if (!opened) {
        return fail(application, opened.error(), options.isBatch());
    }
    application.setLibrary(sync.library());
    const int exitCode = options.isBatch() ? runBatch(application, options, *sync.library())
                                           : runWindows(application, options, sync, firstStart);
    application.setLibrary(nullptr);
    return exitCode;
}

Expected<void> openForVerification(const LaunchOptions &options, SyncPlugIn &sync) {
    return ShellCommandLine::findProfile(options, sync).and_then([&] {
        return sync.openProfile(options.profile,
                                options.repair ? ProfileUse::Edit : ProfileUse::Snapshot,
                                FirstContents::Inbox);
    });
}

int runVerification(VelmoraApplication &application, const LaunchOptions &options,
                    SyncPlugIn &sync) {
    using Outcome = VerificationReport::Outcome;
    const Expected<void> opened = openForVerification(options, sync);
    if (!opened) {
        fail(application, opened.error(), true);
        const bool isDamaged = sync.isProfileDamaged(opened.error());
        return VerificationOutput::exitCode(isDamaged ? Outcome::Problems : Outcome::NotChecked);
    }
    const VerificationMode mode =
        options.repair ? VerificationMode::Repair : VerificationMode::Report;
    const VerificationReport report = sync.verify(mode);
    const Expected<void> printed = TerminalText::print(
        options.json ? QString::fromUtf8(QJsonDocument(VerificationOutput::json(report)).toJson())
                     : VerificationOutput::text(report, mode));
    return printed ? VerificationOutput::exitCode(report.outcome())
                   : fail(application, printed.error(), true);
}

struct End {
    int exitCode = EXIT_FAILURE;
    /// Whether no thread runs any more.
    bool isComplete = true;
};

/// Called before the application object is created, because the options select its platform
/// plug-in.
LaunchOptions parseOptions(int &argumentCount, char **arguments, Translators &translators) {
    const QCoreApplication early(argumentCount, arguments);
    translators.install();
    return LaunchOptions::parse(QCoreApplication::arguments());
}

/// Makes the process independent of the user's display and, as far as possible, of the session.
/// `folder` is the runtime folder of a process that has none.
void leaveSession(const LaunchOptions &options, const QTemporaryDir &folder) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The secrets of the locations and the running program are reached through the user's own.
    const bool needsSession = options.verify || options.command;
    if (needsSession) {
        ShellCommandLine::enterSession();
    }
    if (!needsSession || !qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    }
}

void setUp(VelmoraApplication &application, const LaunchOptions &options) {
    application.setBatch(options.isBatch());
    application.setWindowIcon(QIcon(QStringLiteral(":/Velmora/database.svg")));
    if (options.appearance.isEmpty()) {
        application.useDesktopAppearance();
    } else {
        application.setDarkAppearance(options.appearance == QLatin1StringView("dark"));
    }
}

/// Returns the exit code.
int runTask(VelmoraApplication &application, const LaunchOptions &options, SyncPlugIn &sync) {
    if (options.command) {
        return ShellCommandLine::run(application, options, sync);
    }
    return options.verify ? runVerification(application, options, sync)
                          : run(application, options, sync);
}

/// Runs the program. Everything that it has made is destroyed afterwards, except for static
/// objects.
End runProgram(int argumentCount, char **arguments) {
#ifdef VELMORA_IS_SANITIZED
    // The leak check of a sanitizer reads the memory of the process as a debugger does.
    const auto debuggers = ProcessProtection::Debuggers::Allowed;
#else
    const auto debuggers = ProcessProtection::Debuggers::Refused;
#endif
    const Expected<void> isProtected = ProcessProtection::apply(debuggers);
    installAssertionReporter();
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));

    Translators translators;
    const LaunchOptions options = parseOptions(argumentCount, arguments, translators);
    std::optional<TemporaryFiles> temporaryFiles;
    if (options.isBatch()) {
        temporaryFiles.emplace();
    }
    const QTemporaryDir runtimeFolder;
    if (options.isBatch()) {
        leaveSession(options, runtimeFolder);
    }
    VelmoraApplication application(argumentCount, arguments);
    setUp(application, options);
    translators.install();
    Log::sendToSystemLog(SyncLogCategory);
    logIfFailed(application, isProtected);

    const auto sync = PlugIns::loadSync();
    if (!sync) {
        return {.exitCode = fail(application, sync.error(), options.isBatch())};
    }
    const int exitCode = runTask(application, options, **sync);
    EndLimit::begin(exitCode);
    // The engine needs the application object, which is destroyed before the plug-in is unloaded.
    const bool isComplete = (*sync)->closeProfile();
    return {.exitCode = exitCode, .isComplete = isComplete};
}

}  // namespace

int main(int argumentCount, char **arguments) {
    const End end = runProgram(argumentCount, arguments);
    if (!end.isComplete) {
        std::fflush(nullptr);
        std::_Exit(end.exitCode);
    }
    return end.exitCode;
}
