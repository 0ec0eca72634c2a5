#pragma once

#include <QtNetwork/QTcpServer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <memory>

#include "Application/ConflictBar.h"
#include "Application/ConflictDialog.h"
#include "Application/ErrorBoxes.h"
#include "Application/EventLog.h"
#include "Application/FirstStartDialog.h"
#include "Application/HistoryDialog.h"
#include "Application/LocationRemovals.h"
#include "Application/LogWindow.h"
#include "Application/MainWindow.h"
#include "Application/NameDialog.h"
#include "Application/QuestionBox.h"
#include "Application/QuitProgressDialog.h"
#include "Application/RemovalDialog.h"
#include "Application/SynchronizationMonitor.h"
#include "Controller/Preferences/QVServerPreferencesController.h"
#include "Controller/Preferences/QVSyncBookmarkManager.h"
#include "Controller/QVImportDatabasesController.h"
#include "Platform/Interface/TableView.h"
#include "Scenarios/Panel.h"
#include "Support/EventTimeout.h"
#include "Support/TestHost.h"

/// The windows and questions of the application, each with contents as users see it.
namespace EveryWindow {

using MakeWindow = std::unique_ptr<QWidget> (*)(TestHost &host, EventLog &log);

inline std::unique_ptr<QWidget> mainWindow(TestHost &host, EventLog &log) {
    return std::make_unique<MainWindow>(&host.library(), &log, host.directory());
}

/// Without room for all menus and buttons.
inline std::unique_ptr<QWidget> narrowMainWindow(TestHost &host, EventLog &log) {
    auto window = mainWindow(host, log);
    window->resize(window->minimumSizeHint());
    return window;
}

inline std::unique_ptr<QWidget> deletedDatabase(TestHost &host, EventLog &log) {
    const auto projects = host.addDatabase(QStringLiteral("Projects"));
    auto window = mainWindow(host, log);
    return host.library().deleteDatabase(projects) ? std::move(window) : nullptr;
}

inline std::unique_ptr<QWidget> logWindow(TestHost & /*host*/, EventLog &log) {
    log.append(QStringLiteral("Sync:"),
               QStringLiteral("“Projects” could not be synchronized with “localhost – Shared”: The "
                              "server “localhost” does not accept this user name and password."));
    return std::make_unique<LogWindow>(&log);
}

inline std::unique_ptr<QWidget> deletedNotes(TestHost &host, EventLog & /*log*/) {
    return std::make_unique<HistoryDialog>(&host.library(), host.inbox(), Note(), nullptr);
}

inline std::unique_ptr<QWidget> removalQuestion(TestHost & /*host*/, EventLog & /*log*/) {
    const RemovalQuestion question{.database = QStringLiteral("Projects"),
                                   .location = QStringLiteral("dav.example.com – Shared"),
                                   .titles = QStringList(40, QStringLiteral("Garden Shed")),
                                   .total = 41};
    auto dialog = std::make_unique<RemovalDialog>(
        question, [](RemovalDecision) {}, nullptr);
    dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    return dialog;
}

inline std::unique_ptr<QWidget> comparison(TestHost & /*host*/, EventLog & /*log*/) {
    const Note shown{.title = QStringLiteral("Garden Shed"), .text = QStringLiteral("Paint it.")};
    const Note other{.title = QStringLiteral("Garden Shed"), .text = QStringLiteral("Sell it.")};
    return std::make_unique<ConflictDialog>(shown, other, nullptr);
}

inline std::unique_ptr<QWidget> conflictBar(TestHost & /*host*/, EventLog & /*log*/) {
    auto bar = std::make_unique<ConflictBar>(nullptr);
    bar->setCount(3, true);
    return bar;
}

inline std::unique_ptr<QWidget> pairingQuestion(TestHost & /*host*/, EventLog & /*log*/) {
    const Question question{
        QStringLiteral("Let “kim at writing-desk” synchronize with this computer?"),
        QStringLiteral("It shows a code. Allow it only if the code is the same as here."),
        QStringLiteral("Allow"), QStringLiteral("Refuse"), QStringLiteral("123 456")};
    auto box = std::make_unique<QuestionBox>(
        question, [](bool /*isAccepted*/) {}, nullptr);
    box->setAttribute(Qt::WA_DeleteOnClose, false);
    return box;
}

inline std::unique_ptr<QWidget> errorBox(TestHost & /*host*/, EventLog & /*log*/) {
    // As the panel offers them, in the language with the longer ones.
    Error error{.domain = QStringLiteral("VelmoraSyncErrorDomain"),
                .code = 8,
                .localizedDescription =
                    QStringLiteral("“Projekte” konnte nicht mit „dav.example.com – Shared“ "
                                   "synchronisiert werden: Der Server akzeptiert den Benutzernamen "
                                   "und das Passwort nicht.")};
    for (const char *title : {"Ort bearbeiten …", "Erneut versuchen", "Im Dateimanager zeigen"}) {
        error.recoveryOptions.append({QString::fromUtf8(title), [] {}});
    }
    static ErrorBoxes boxes;
    boxes.noteEvent(QEvent::KeyPress);
    const QWidgetList before = QApplication::topLevelWidgets();
    boxes.show(error, nullptr);
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (!before.contains(window) && qobject_cast<QMessageBox *>(window)) {
            window->setAttribute(Qt::WA_DeleteOnClose, false);
            return std::unique_ptr<QWidget>(window);
        }
    }
    return nullptr;
}

inline std::unique_ptr<QWidget> quitting(TestHost &host, EventLog & /*log*/) {
    auto *monitor = new SynchronizationMonitor(&host.library());
    auto dialog = std::make_unique<QuitProgressDialog>(monitor, nullptr);
    monitor->setParent(dialog.get());
    return dialog;
}

inline std::unique_ptr<QWidget> preferences(TestHost &host, EventLog & /*log*/) {
    host.addDatabase(QStringLiteral("Projects"));
    host.addLocation();
    host.addLocation(QStringLiteral("https://dav.example.com/Shared.qvSyncStore"));
    return std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
}

inline std::unique_ptr<QWidget> firstStart(TestHost & /*host*/, EventLog & /*log*/) {
    return std::make_unique<FirstStartDialog>(LocationKind::offers());
}

inline std::unique_ptr<QWidget> removalBar(TestHost &host, EventLog & /*log*/) {
    auto window = std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
    host.addLocation(QStringLiteral("https://dav.example.com/Shared.qvSyncStore"));
    host.save();
    auto *removals = new LocationRemovals(&host.locations(), window.get());
    window->showRemovals(removals, [] { return failure(Error()); });
    host.locations().removeObjectFromSyncLocationsAtIndex(0);
    host.save();
    return window;
}

inline std::unique_ptr<QWidget> newDatabase(TestHost & /*host*/, EventLog & /*log*/) {
    return std::make_unique<NameDialog>(QStringLiteral("New Database"),
                                        QStringLiteral("Name of the new database:"), QString(),
                                        nullptr);
}

/// Returns the window of a sheet, which keeps its controller.
template <class Controller>
std::unique_ptr<QWidget> windowOf(std::shared_ptr<Controller> controller) {
    QWidget *window = controller->window();
    QObject::connect(window, &QObject::destroyed, qApp, [kept = std::move(controller)] {});
    return std::unique_ptr<QWidget>(window);
}

inline std::unique_ptr<QWidget> importSheet(TestHost &host, EventLog & /*log*/) {
    host.addLocation();
    host.addLocation(QStringLiteral("https://dav.example.com/Shared.qvSyncStore"));
    return windowOf(QVImportDatabasesController::newController());
}

inline std::unique_ptr<QWidget> serverSheet(TestHost &host, EventLog & /*log*/) {
    host.addDatabase(QStringLiteral("Projects"));
    std::shared_ptr<QVServerPreferencesController> controller =
        QVServerPreferencesController::controller();
    controller->addAuthorizedClientsObject(QStringLiteral("kim at writing-desk"));
    auto window = windowOf(std::move(controller));
    window->findChild<TableView *>(QStringLiteral("clientsTable"))->selectRow(0);
    return window;
}

inline std::unique_ptr<QWidget> folderAccess(TestHost & /*host*/, EventLog & /*log*/) {
    std::shared_ptr<QVSyncBookmarkManager> manager = QVSyncBookmarkManager::bookmarkManager();
    manager->window();
    manager->addBookmarksObject(QStringLiteral("/home/kim/Sync Stores/Work.qvSyncStore"));
    manager->addBookmarksObject(QStringLiteral("/home/kim/Shared.qvSyncStore"));
    manager->tableView()->selectRow(1);
    return windowOf(std::move(manager));
}

/// A database that could be synchronized with one of its two locations.
inline std::unique_ptr<QWidget> failedSynchronization(TestHost &host, EventLog & /*log*/) {
    const auto projects = host.addDatabase(QStringLiteral("Projects"));
    QVSyncStates states;
    for (const auto &location :
         {host.addLocation(),
          host.addLocation(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"))}) {
        states.append(host.addState(location, projects));
        states.last()->setEnabled(true);
    }
    auto *dispatcher = host.engine().plugin().dispatcher();
    dispatcher->performSynchronizationsWithSynchronizationStates(states);
    if (!QTest::qWaitFor([&] { return dispatcher->activity().isEmpty(); }, EventTimeout)) {
        return nullptr;
    }
    auto window = std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
    window->show();
    Panel::select(Panel::databaseRow(projects->name()));
    return window;
}

/// A location whose server accepts connections and never responds, in a selected row.
inline std::unique_ptr<QWidget> busyLocation(TestHost &host, EventLog & /*log*/) {
    auto server = std::make_unique<QTcpServer>();
    server->listen(QHostAddress::LocalHost);
    host.addLocation(
        QStringLiteral("http://127.0.0.1:%1/Shared.qvSyncStore").arg(server->serverPort()));
    auto window = std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
    server.release()->setParent(window.get());
    window->show();
    const auto row = [] {
        return Panel::locationRow(static_cast<int>(Panel::countOfLocations()) - 1);
    };
    Panel::select(row());
    window->findChild<QAction *>(QStringLiteral("checkItem"))->trigger();
    const bool isBusy = QTest::qWaitFor(
        [&] { return Panel::part<QProgressBar>(row(), "rowActivity")->isVisible(); }, EventTimeout);
    return isBusy ? std::move(window) : nullptr;
}

/// Returns the functions of further contents of windows, and of sheets with rows in their lists.
inline QList<std::pair<const char *, MakeWindow>> further() {
    return {{"deleted database", deletedDatabase},
            {"removal bar", removalBar},
            {"new database", newDatabase},
            {"import", importSheet},
            {"server", serverSheet}};
}

/// Returns the functions by the names of the windows.
inline QList<std::pair<const char *, MakeWindow>> all() {
    return {{"main window", mainWindow},     {"log", logWindow},
            {"deleted notes", deletedNotes}, {"many removals", removalQuestion},
            {"comparison", comparison},      {"conflict bar", conflictBar},
            {"pairing", pairingQuestion},    {"error", errorBox},
            {"quitting", quitting},          {"preferences", preferences},
            {"first start", firstStart}};
}

}  // namespace EveryWindow
