#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>
#include <QtGui/QIcon>
#include <cstdio>
#include <cstdlib>

#include "Application/LaunchOptions.h"
#include "Application/MainWindow.h"
#include "Application/PlugIns.h"
#include "Application/PreferencesWindow.h"
#include "Application/ProfileDescription.h"
#include "Application/VelmoraApplication.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/Log.h"

namespace {

int fail(VelmoraApplication &application, const Error &error, bool isBatch) {
    std::fprintf(stderr, "%s\n", qPrintable(error.localizedDescription));
    if (!error.localizedFailureReason.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error.localizedFailureReason));
    }
    if (!isBatch) {
        application.presentError(error);
        QApplication::exec();
    }
    return EXIT_FAILURE;
}

/// Draws the panel as a person would see it, and writes it to `file`.
bool writeScreenshot(const QString &file, std::optional<Error> *error) {
    auto pane = PlugIns::makeSyncPreferences(error);
    if (!pane) {
        return false;
    }
    auto *window = new PreferencesWindow(std::move(pane));
    window->show();
    QCoreApplication::processEvents();
    const bool isWritten = window->grab().save(file);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!isWritten) {
        *error = Error{.domain = QStringLiteral("Velmora"),
                       .localizedDescription = QCoreApplication::translate(
                                                   "main", "The picture cannot be written to %1.")
                                                   .arg(file)};
    }
    return isWritten;
}

int runBatch(VelmoraApplication &application, LaunchOptions options, const NoteLibrary &library) {
    if (options.hasNoDisplay && options.screenshot.isEmpty() && !options.describe) {
        options.screenshot = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                             QStringLiteral("/../sync-preferences.png"));
        options.describe = true;
        std::printf(
            "There is no display to open a window on. A picture of Sync Preferences is in\n%s\n",
            qPrintable(options.screenshot));
    }
    std::optional<Error> error;
    if (!options.screenshot.isEmpty() && !writeScreenshot(options.screenshot, &error)) {
        return fail(application, error.value_or(Error()), true);
    }
    if (options.describe) {
        const Expected<QJsonObject> description = describeProfile(library);
        if (!description) {
            return fail(application, description.error(), true);
        }
        std::fputs(QJsonDocument(*description).toJson().constData(), stdout);
    }
    return EXIT_SUCCESS;
}

int runWindows(VelmoraApplication &application, NoteLibrary *library) {
    MainWindow window(library, application.eventLog());
    window.show();
    window.showPreferences();
    return QApplication::exec();
}

int openProfileAndRun(VelmoraApplication &application, const LaunchOptions &options,
                      SyncPlugIn &sync) {
    std::optional<Error> error = sync.openProfile(options.profile);
    if (!error && options.sandboxed) {
        error = sync.setUsesSandboxedAccess(*options.sandboxed);
    }
    if (error) {
        return fail(application, *error, options.isBatch());
    }
    application.setLibrary(sync.library());
    const int exitCode = options.isBatch() ? runBatch(application, options, *sync.library())
                                           : runWindows(application, sync.library());
    application.setLibrary(nullptr);
    return exitCode;
}

}  // namespace

int main(int argumentCount, char **arguments) {
    installAssertionReporter();
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora"));

    LaunchOptions options;
    {
        // Read before the application object is made: it decides on what that one draws.
        const QCoreApplication early(argumentCount, arguments);
        options = LaunchOptions::parse(QCoreApplication::arguments());
    }
    QTemporaryDir runtimeDirectory;
    if (options.isBatch()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_RUNTIME_DIR", runtimeDirectory.path().toUtf8());
    }
    VelmoraApplication application(argumentCount, arguments);
    application.setBatch(options.isBatch());
    application.setWindowIcon(QIcon(QStringLiteral(":/Velmora/database.svg")));
    if (!options.appearance.isEmpty()) {
        application.setDarkAppearance(options.appearance == QLatin1StringView("dark"));
    }
    Log::sendToSystemLog();
    if (!QAbstractEventDispatcher::instance()->inherits("QEventDispatcherGlib")) {
        application.logItemCmd(
            QStringLiteral("Velmora:"),
            QCoreApplication::translate(
                "main", "Nearby computers are out of reach: Qt runs without GLib."));
    }

    std::optional<Error> error;
    SyncPlugIn *sync = PlugIns::loadSync(&error);
    if (!sync) {
        return fail(application, error.value_or(Error()), options.isBatch());
    }
    const int exitCode = openProfileAndRun(application, options, *sync);
    // The engine ends while there is an application; the plug-in itself goes after it.
    sync->closeProfile();
    return exitCode;
}
