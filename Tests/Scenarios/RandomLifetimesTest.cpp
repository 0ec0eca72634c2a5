#include <QtCore/QRandomGenerator>
#include <QtGui/QAction>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSpinBox>
#include <thread>

#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/InboxUUID.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncStore.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Interface/SheetWindow.h"
#include "Platform/Interface/TableView.h"
#include "Support/EventTimeout.h"
#include "Support/FreePort.h"
#include "Support/HostShortcuts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// One life of the engine and the pane: random actions of a user, of the engine and of other
/// threads, which a seed determines. Only what threads do at the same time is up to the system.
class Lifetime {
public:
    explicit Lifetime(quint32 seed)
        : m_random(seed), m_host(below(2) == 0 ? FirstContents::Welcome : FirstContents::Inbox) {
        // Ends the nested event loops of panels and modal sheets.
        QObject::connect(&m_leaving, &QTimer::timeout, &m_leaving, [] {
            if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
                dialog->reject();
            }
        });
        m_leaving.start(1);
    }
    ~Lifetime() {
        if (m_pane && below(2) == 0) {
            m_pane->willDeselect();
        }
        m_pane.reset();
        turn();
    }
    Lifetime(const Lifetime &) = delete;
    Lifetime &operator=(const Lifetime &) = delete;

    void live() {
        using Action = void (Lifetime::*)();
        const QList<Action> actions{
            &Lifetime::show,           &Lifetime::show,           &Lifetime::hide,
            &Lifetime::quitPane,       &Lifetime::useWidget,      &Lifetime::useWidget,
            &Lifetime::useWidget,      &Lifetime::useWidget,      &Lifetime::type,
            &Lifetime::selectRows,     &Lifetime::selectRows,     &Lifetime::leaveSheet,
            &Lifetime::addDatabase,    &Lifetime::renameDatabase, &Lifetime::openOrClose,
            &Lifetime::addLocation,    &Lifetime::addLocation,    &Lifetime::addServedLocation,
            &Lifetime::removeLocation, &Lifetime::synchronize,    &Lifetime::synchronize,
            &Lifetime::edit,           &Lifetime::accessStore,    &Lifetime::accessStore,
            &Lifetime::cancelLate,     &Lifetime::callFromThread, &Lifetime::import};
        const int count = 5 + below(25);
        for (int i = 0; i < count; ++i) {
            (this->*actions[below(actions.size())])();
            if (below(2) == 0) {
                turn();
            }
        }
    }

    /// How many imports were begun from the sheet.
    int imports() const { return m_imports; }

private:
    int below(qsizetype limit) { return m_random.bounded(static_cast<int>(limit)); }
    /// One turn of the event loop.
    static void turn() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void show() {
        if (!m_pane) {
            m_pane = std::make_unique<QVSyncPreferences>();
            m_pane->loadMainView();
            m_isShown = false;
        }
        if (!m_isShown) {
            m_isShown = true;
            m_pane->mainView()->show();
            m_pane->willSelect();
        }
    }
    void hide() {
        if (m_isShown && m_pane) {
            m_isShown = false;
            m_pane->mainView()->hide();
            m_pane->willDeselect();
        }
    }
    void quitPane() {
        if (below(4) == 0) {
            m_pane.reset();
            m_isShown = false;
        }
    }

    /// The widgets and actions that a user could use now.
    template <class Part>
    QList<Part *> parts() const {
        QList<Part *> found;
        const auto windows = QApplication::topLevelWidgets();
        for (const QWidget *window : windows) {
            for (Part *part : window->findChildren<Part *>()) {
                if (part->isEnabled() && part->isVisible()) {
                    found.append(part);
                }
            }
        }
        return found;
    }
    void useWidget() {
        if (below(4) == 0) {
            useMenu();
            return;
        }
        const auto buttons = parts<QAbstractButton>();
        QAbstractButton *button = buttons.value(below(buttons.size() + 1));
        const auto *opensMenu = qobject_cast<QPushButton *>(button);
        if (button && !(opensMenu && opensMenu->menu())) {
            button->click();
        }
    }
    void useMenu() {
        if (!m_pane || !m_isShown) {
            return;
        }
        const auto menus = m_pane->mainView()->findChildren<QMenu *>();
        QMenu *menu = menus.value(below(menus.size() + 1));
        if (!menu) {
            return;
        }
        Q_EMIT menu->aboutToShow();
        const auto actions = menu->actions();
        QAction *action = actions.value(below(actions.size() + 1));
        if (action && action->isEnabled()) {
            action->trigger();
        }
    }
    void type() {
        const auto fields = parts<QLineEdit>();
        if (QLineEdit *field = fields.value(below(fields.size() + 1))) {
            field->setText(QString(below(40), QChar(u'a' + below(26))));
            Q_EMIT field->editingFinished();
        }
    }
    void selectRows() {
        if (m_pane) {
            NSArrayController *rows =
                below(2) == 0 ? m_pane->databasesController() : m_pane->syncLocationsController();
            const qsizetype count = rows->arrangedObjects().size();
            rows->setSelectionIndexes(count == 0 ? IndexSet() : IndexSet{below(count)});
        }
    }
    void leaveSheet() {
        const auto sheets = parts<SheetWindow>();
        if (SheetWindow *sheet = sheets.value(below(sheets.size() + 1))) {
            sheet->reject();
        }
    }

    /// Presses the button of that name, if a user could do so.
    bool press(const char *name) const {
        for (QPushButton *button : parts<QPushButton>()) {
            if (button->objectName() == QLatin1StringView(name)) {
                button->click();
                return true;
            }
        }
        return false;
    }
    TableView *table(const char *name) const {
        const auto tables = parts<TableView>();
        const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableView *each) {
            return each->objectName() == QLatin1StringView(name);
        });
        return found == tables.end() ? nullptr : *found;
    }
    /// Imports a database of another computer from a folder, or leaves the sheet before the end.
    void import() {
        const auto location = anyLocation();
        const QString folder = location ? location->URL().path() : QString();
        if (!m_pane || !m_isShown || !QFileInfo(folder + QStringLiteral("/databases")).isDir()) {
            return;
        }
        putDatabaseRecord(location,
                          QStringLiteral("%1-1111-4222-8333-444444444444")
                              .arg(m_random.generate(), 8, 16, QLatin1Char('0')),
                          QStringLiteral("Elsewhere"));
        m_leaving.stop();
        m_pane->showImportDatabasesSheet(nullptr);
        if (TableView *locations = table("locationsTable"); locations && below(5) != 0) {
            const qsizetype row = m_host.locations().indexOfObjectInSyncLocations(location);
            locations->setSelectionIndexes({row});
            if (press("continueButton") && below(5) != 0) {
                importFirst();
            }
        }
        m_leaving.start();
    }
    /// Chooses the first database that the sheet lists.
    void importFirst() {
        const QPointer<TableView> databases = table("databasesTable");
        const auto isListed = [&] { return !databases || databases->rowCount() > 0; };
        if (QTest::qWaitFor(isListed, EventTimeout) && databases) {
            databases->setSelectionIndexes({0});
            m_imports += press("actionButton") ? 1 : 0;
        }
    }

    std::shared_ptr<NoteDatabase> anyDatabase() {
        const auto all = m_host.library().knownDatabases();
        return all[below(all.size())];
    }
    std::shared_ptr<QVSyncLocation> anyLocation() {
        const auto all = m_host.locations().syncLocations();
        return all.value(below(all.size() + 1));
    }
    void addDatabase() { m_host.addDatabase(QStringLiteral("Database %1").arg(below(100))); }
    void renameDatabase() {
        m_host.renameDatabase(anyDatabase(), QStringLiteral("Renamed %1").arg(below(100)));
    }
    void openOrClose() {
        const auto database = anyDatabase();
        if (database->isInbox()) {
            return;
        }
        if (database->isOpen()) {
            m_host.closeDatabase(database);
        } else {
            m_host.openDatabase(database);
        }
    }
    void addLocation() {
        const auto location = m_host.addLocation();
        if (m_pane && m_isShown && below(2) == 0) {
            m_pane->addSelectionForLocation(location);
        }
    }
    /// A location at the engine's own server, with which it pairs when it is accessed.
    void addServedLocation() {
        m_host.application().answerQuestions(below(2) == 0);
        const auto server = m_host.engine().plugin().server();
        if (!server->isServing()) {
            server->setPort(freePort());
            server->startServing();
        } else if (below(4) == 0) {
            server->stopServing();
        }
        const auto location =
            m_host.addLocation(QStringLiteral("velmora://127.0.0.1:%1").arg(server->port()));
        if (below(2) == 0) {
            access(location);
        }
    }
    void removeLocation() {
        const qsizetype count = m_host.locations().countOfSyncLocations();
        const auto rows =
            m_pane ? m_pane->synchronizationSelections() : QList<QVSyncPreferences::Selection>();
        if (!rows.isEmpty() && m_isShown && below(2) == 0) {
            m_pane->removeSyncSelection(rows[below(rows.size())]);
        } else if (count > 0 && !m_isShown) {
            m_host.locations().removeObjectFromSyncLocationsAtIndex(below(count));
        }
    }
    void synchronize() {
        const auto location = anyLocation();
        if (!location) {
            return;
        }
        const auto database = anyDatabase();
        const QString UUID = database->isInbox() ? InboxUUID : database->UUID();
        auto state = location->stateForDatabaseWithUUID(UUID);
        if (!state) {
            state = location->addStateForDatabaseWithUUID(UUID, database->name());
        }
        state->setEnabled(below(4) != 0);
        QVSyncDispatcher *dispatcher = m_host.engine().plugin().dispatcher();
        if (below(4) == 0) {
            dispatcher->cleanRemoteStoreWithSynchronizationState(state, [] {});
        } else {
            dispatcher->performSynchronizationsWithSynchronizationStates({state});
        }
    }
    void edit() {
        Note note{.title = QStringLiteral("Title"), .text = QString(below(1000), u'x')};
        const auto database = anyDatabase();
        if (!database->saveNote(note)) {
            return;
        }
        if (below(2) == 0) {
            static_cast<void>(database->removeNote(note));
        }
    }

    /// Opens a store and reads it, whose handlers run on other threads, and cancels some of it.
    void accessStore() {
        if (const auto location = anyLocation()) {
            access(location);
        }
    }
    void access(const std::shared_ptr<QVSyncLocation> &location) {
        const auto store = location->createStore();
        const auto counter = m_handled;
        auto future = store->openWithCompletionHandler([store, counter](const auto &) {
            store->fetchDatabasesWithCompletionHandler(
                [store, counter](const auto &, const auto &) { ++*counter; });
        });
        m_futures.append(future);
        if (below(3) == 0) {
            future->cancel();
        }
    }
    /// Cancels an operation on another thread, perhaps after it or the engine has ended.
    void cancelLate() {
        if (m_futures.isEmpty()) {
            return;
        }
        const int delay = below(3);
        m_threads.emplace_back([future = m_futures[below(m_futures.size())], delay] {
            std::this_thread::sleep_for(std::chrono::milliseconds(delay));
            future->cancel();
        });
    }
    /// Queues a call of the pane from another thread.
    void callFromThread() {
        m_threads.emplace_back([counter = m_handled] {
            MainQueue::dispatchAsync([counter] {
                if (QVSyncPreferences *pane = QVSyncPreferences::preferences()) {
                    pane->saveAndPresentError();
                }
                ++*counter;
            });
        });
    }

    QRandomGenerator m_random;
    QTimer m_leaving;
    const std::shared_ptr<std::atomic<int>> m_handled = std::make_shared<std::atomic<int>>(0);
    /// Before the host, so that some threads outlive it.
    std::vector<std::jthread> m_threads;
    TestHost m_host;
    QList<std::shared_ptr<PZFuture>> m_futures;
    std::unique_ptr<QVSyncPreferences> m_pane;
    bool m_isShown = false;
    int m_imports = 0;
};

}  // namespace

/// Every life ends without a crash and leaves nothing behind. VELMORA_SEED is the first seed,
/// VELMORA_LIFETIMES the number of lives; each has the seed that its row names.
class RandomLifetimesTest : public QObject {
    Q_OBJECT

    int m_lives = 0;
    int m_imports = 0;

private Q_SLOTS:
    void initTestCase() {
        registerSyncPreferencesInterface();
        // Waiting for a disk to synchronize would take most of the time.
        const QString inMemory = QStringLiteral("/dev/shm");
        if (QFileInfo(inMemory).isWritable()) {
            qputenv("TMPDIR", inMemory.toUtf8());
        }
    }

    void everyLifeEndsCleanly_data() {
        QTest::addColumn<quint32>("seed");
        const auto setting = [](const char *name, int value) {
            return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : value;
        };
        const int first = setting("VELMORA_SEED", 1);
        const int count = setting("VELMORA_LIFETIMES", 100);
        for (int seed = first; seed < first + count; ++seed) {
            QTest::addRow("seed %d", seed) << static_cast<quint32>(seed);
        }
    }

    void everyLifeEndsCleanly() {
        QFETCH(const quint32, seed);
        try {
            Lifetime lifetime(seed);
            lifetime.live();
            ++m_lives;
            m_imports += lifetime.imports();
        } catch (const std::exception &exception) {
            // Qt Test would not tell which one.
            QFAIL(exception.what());
        }
        // What threads have queued may run after the end.
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!QVSyncPreferences::preferences());
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }

    void cleanupTestCase() { QVERIFY(m_lives < 100 || m_imports > 0); }
};

VELMORA_TEST(RandomLifetimesTest)
#include "RandomLifetimesTest.moc"
