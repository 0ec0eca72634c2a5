#include <sched.h>
#include <unistd.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QThread>
#include <QtWidgets/QTextBrowser>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "Application/MainWindow.h"
#include "Application/PlugIns.h"
#include "Application/PreferencesWindow.h"
#include "Application/VelmoraApplication.h"
#include "Support/DropboxBrowser.h"
#include "Support/DropboxServer.h"
#include "Support/Namespaces.h"
#include "Support/PrivateNetwork.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"
#include "Tour/Screen.h"
#include "Tour/Tour.h"
#include "Tour/User.h"

namespace {

const QString NameInNetwork = QStringLiteral("writing-desk");
/// Set in the environment of the program that started again in a network of its own.
const char *const InPrivateNetwork = "VELMORA_TOUR_IN_PRIVATE_NETWORK";

struct Options {
    QString folder;
    TourPage::Guide guide;
};

Options parse(const QStringList &arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Walks through the typical use of Velmora on a profile that is thrown away, and shows "
        "every step on a page."));
    parser.addHelpOption();
    const QCommandLineOption tour(QStringLiteral("tour"),
                                  QStringLiteral("Write the page and its pictures into DIR."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption appearance(QStringLiteral("appearance"),
                                        QStringLiteral("Use light or dark colors."),
                                        QStringLiteral("light|dark"), QStringLiteral("light"));
    const QCommandLineOption guide(
        QStringLiteral("guide-pictures"),
        QStringLiteral("Also write pictures of the windows in front into DIR, for the guide."),
        QStringLiteral("DIR"));
    parser.addOptions({tour, appearance, guide});
    parser.process(arguments);
    const QString colors = parser.value(appearance);
    const bool isKnown = colors == QStringLiteral("light") || colors == QStringLiteral("dark");
    if (parser.value(tour).isEmpty() || !isKnown || !parser.positionalArguments().isEmpty()) {
        parser.showHelp(EXIT_FAILURE);
    }
    const QString pictures =
        parser.isSet(guide) ? QDir(parser.value(guide)).absolutePath() : QString();
    return {QDir(parser.value(tour)).absolutePath(), {pictures, colors == QStringLiteral("dark")}};
}

/// What this display cannot do does not matter here.
void leaveOutWhatIsMissing(QtMsgType type, const QMessageLogContext &context,
                           const QString &message) {
    if (!message.startsWith(QStringLiteral("This plugin does not support"))) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    }
}

/// A screen with room for two windows.
void useOffscreenDisplay(const QString &folder) {
    QFile file(folder + QStringLiteral("/screen.json"));
    if (!file.open(QIODevice::WriteOnly)) {
        throw TourFailure(QStringLiteral("%1 cannot be written.").arg(file.fileName()));
    }
    file.write(R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": 1280, "height": 1024,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

/// Says which steps the tour does not take, because namespaces cannot be entered for `reason`.
void printOmissions(const char *reason) {
    std::fprintf(stderr,
                 "Left out: finding the other computer in the local network (its address is "
                 "entered instead), a disk that is full, and one that is read-only. They need "
                 "namespaces, which this system does not allow: %s. Allow user namespaces, or run "
                 "the tour as root.\n",
                 reason);
}

/// Takes the tour while the windows live, and writes its page.
int walk(const Tour::Surroundings &surroundings, TourPage &page) {
    QString failure;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            Tour(surroundings, page).run();
        } catch (const std::exception &exception) {
            failure = QString::fromUtf8(exception.what());
            onMainThread([&] { page.add(QStringLiteral("failure"), failure, Screen::picture()); });
        }
    }));
    // Not quit, which asks the windows first: a sheet that a failure leaves open would refuse.
    QObject::connect(thread.get(), &QThread::finished, qApp, [] { QCoreApplication::exit(); });
    thread->start();
    QCoreApplication::exec();
    thread->wait();
    page.write();
    if (failure.isEmpty()) {
        return EXIT_SUCCESS;
    }
    std::fprintf(stderr, "The tour ends at step %d: %s\n", page.count(), qPrintable(failure));
    return EXIT_FAILURE;
}

int open(VelmoraApplication &application, const QString &folder, const QString &nameInNetwork,
         TourPage &page) {
    const auto loaded = PlugIns::loadSync();
    if (!loaded) {
        throw TourFailure(loaded.error().localizedDescription);
    }
    SyncPlugIn *sync = *loaded;
    const QString profile = folder + QStringLiteral("/Profile");
    const Expected<void> opened =
        sync->openProfile(profile, ProfileUse::Run, FirstContents::Welcome).and_then([&] {
            return sync->setUsesSandboxedAccess(true);
        });
    if (!opened) {
        throw TourFailure(opened.error().localizedDescription);
    }
    application.setLibrary(sync->library());
    int exitCode = EXIT_FAILURE;
    {
        const SecretService keyring;
        const DropboxServer dropbox;
        dropbox.configure();
        const DropboxBrowser browser;
        QTextBrowser browserWindow;
        browserWindow.setWindowTitle(QStringLiteral("Browser"));
        browserWindow.setGeometry(560, 500, 480, 160);
        MainWindow window(sync->library(), application.eventLog(), profile);
        window.move(40, 60);
        window.show();
        window.showPreferences()->move(220, 160);
        exitCode = walk({*sync->library(), *sync, keyring, dropbox, browser, browserWindow, folder,
                         nameInNetwork, !nameInNetwork.isEmpty()},
                        page);
        window.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    application.setLibrary(nullptr);
    sync->closeProfile();
    return exitCode;
}

/// Returns whether the program has a network and mounts of its own, for which it starts again: Qt
/// cannot always find the file of a program that has changed its mount namespace.
bool enterNetwork(char **arguments) {
    if (qEnvironmentVariableIsSet(InPrivateNetwork)) {
        return true;
    }
    if (!areNamespacesAllowed(CLONE_NEWNET | CLONE_NEWNS, NamespaceUser::Root)) {
        printOmissions(std::strerror(errno));
        return false;
    }
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    enterPrivateNetwork();
    qputenv(InPrivateNetwork, "1");
    execv(program.c_str(), arguments);
    throw std::system_error(errno, std::generic_category(), "The tour cannot start again");
}

}  // namespace

int main(int argumentCount, char **arguments) {
    const bool isOther =
        argumentCount > 1 && OtherComputer::Role == QLatin1StringView(arguments[1]);
    const bool hasNetwork = isOther || enterNetwork(arguments);
    prepareTestProcess();
    QCoreApplication::setApplicationName(QStringLiteral("Velmora"));
    qInstallMessageHandler(leaveOutWhatIsMissing);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    if (isOther) {
        return OtherComputer::be(argumentCount, arguments);
    }
    Options options;
    {
        const QCoreApplication early(argumentCount, arguments);
        options = parse(QCoreApplication::arguments());
    }
    try {
        TourPage page(options.folder, options.guide);
        const QTemporaryDir folder;
        useOffscreenDisplay(folder.path());
        const QString volume = folder.filePath(QStringLiteral("Team Volume"));
        QDir().mkpath(volume + QStringLiteral("/Photos"));
        QDir::setCurrent(volume);
        // The panels begin there.
        qputenv("HOME", QFile::encodeName(volume));
        VelmoraApplication application(argumentCount, arguments);
        application.setDarkAppearance(options.guide.isDark);
        std::optional<DiscoveryDaemon> daemon;
        if (hasNetwork) {
            daemon.emplace(NameInNetwork);
            daemon->startBus();
            daemon->startDaemon();
        }
        return open(application, folder.path(), hasNetwork ? NameInNetwork : QString(), page);
    } catch (const std::exception &exception) {
        std::fprintf(stderr, "%s\n", exception.what());
        return EXIT_FAILURE;
    }
}
