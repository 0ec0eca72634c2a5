#include "Controller/QVImportDatabasesController.h"

#include <QtCore/QThreadPool>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/TableView.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/HostShortcuts.h"
#include "Support/ScriptedHost.h"
#include "Support/ScriptedLocation.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const Error ImportTestError{.domain = QStringLiteral("test"),
                            .code = 7,
                            .localizedDescription = QStringLiteral("The disk is full."),
                            .localizedFailureReason = QStringLiteral("Nobody emptied it.")};

QStringList &caughtMessages() {
    static QStringList messages;
    return messages;
}

void catchMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &text) {
    caughtMessages().append(text);
}

}  // namespace

class QVImportDatabasesControllerTest : public QObject {
    Q_OBJECT
    using Controller = QVImportDatabasesController;

    std::optional<StoreScript> m_script;
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<TestHost> m_realHost;
    std::shared_ptr<ScriptedLocation> m_location;
    std::shared_ptr<Controller> m_controller;
    std::unique_ptr<QWidget> m_parent;
    int m_completions = 0;

    void useRealHost() {
        m_host.reset();
        m_realHost = std::make_unique<TestHost>();
    }
    void run() {
        m_controller->runImportDatabasesSheetModalForWindow(m_parent.get(),
                                                            [this] { ++m_completions; });
    }
    template <class Widget>
    Widget *part(const char *name) {
        return m_controller->window()->findChild<Widget *>(QLatin1StringView(name));
    }
    QRect frameAt(int x) const {
        const QRect frame = m_controller->contentView()->geometry();
        return {x, frame.y(), frame.width(), frame.height()};
    }
    int width() const { return m_controller->contentView()->width(); }
    QStringList offered() const {
        QStringList UUIDs;
        for (const auto &database : m_controller->databases().value_or(QVRemoteDatabases())) {
            UUIDs.append(database->UUID());
        }
        return UUIDs;
    }
    QStringList shownNames() {
        QStringList names;
        const auto *table = part<TableView>("databasesTable");
        for (int row = 0; row < table->rowCount(); ++row) {
            names.append(table->item(row, 0)->text());
        }
        return names;
    }
    void fetchToTheEnd() {
        m_controller->fetchDatabasesForLocation(m_location);
        QTRY_COMPARE(m_script->steps().last(), QStringLiteral("close"));
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        setDebugging(Debugging::Off);
        m_script.emplace();
        m_completions = 0;
        m_host = std::make_unique<ScriptedHost>();
        m_location = std::make_shared<ScriptedLocation>(&*m_script);
        m_parent = std::make_unique<QWidget>();
        m_controller = Controller::newController();
    }
    void cleanup() {
        m_script->release();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        m_controller.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_script->databases.reset();
        m_location.reset();
        m_parent.reset();
        m_host.reset();
        m_realHost.reset();
    }

    void whatIsFetchedAfterTheEndOfTheHostIsIgnored() {
        run();
        m_script->databases = QVRemoteDatabases{m_location->record(QStringLiteral("A"))};
        m_controller->fetchDatabasesForLocation(m_location);
        QThreadPool::globalInstance()->waitForDone();
        m_host.reset();
        QCoreApplication::processEvents();
        QVERIFY(!m_controller->databases());
    }

    void aNewControllerHasFetchedNothing() {
        QVERIFY(m_controller->isActive());
        QVERIFY(!m_controller->databases());
        QVERIFY(!m_controller->remoteError());
        QVERIFY(!m_controller->store());
        QVERIFY(!m_controller->future());
        QCOMPARE(m_controller->actionButtonTitle(), QStringLiteral("Import"));
        QVERIFY(!m_controller->isWindowLoaded());
    }

    void bothIconsAreThere() {
        QVERIFY(!m_controller->databaseIcon().pixmap(32).isNull());
        QVERIFY(!m_controller->warningIcon().pixmap(32).isNull());
    }

    void theSecondPageLiesAboveTheFirstAndBesideTheWindow() {
        run();
        QWidget *content = m_controller->contentView();
        QCOMPARE(m_controller->locationsView()->parentWidget(), content);
        QCOMPARE(m_controller->databasesView()->parentWidget(), content);
        const QObjectList children = content->children();
        QVERIFY(children.indexOf(m_controller->databasesView()) >
                children.indexOf(m_controller->locationsView()));
        QCOMPARE(m_controller->locationsView()->geometry(), frameAt(0));
        QCOMPARE(m_controller->databasesView()->geometry(), frameAt(width()));
    }

    void theSheetIsModalToItsParentWindowOnly() {
        run();
        QVERIFY(m_controller->window()->isVisible());
        QCOMPARE(m_controller->window()->parentWidget(), m_parent.get());
        QCOMPARE(m_controller->window()->windowModality(), Qt::WindowModal);
        QCOMPARE(m_completions, 0);
    }

    void anAbsentWindowIsAProgrammingError() {
        try {
            m_controller->runImportDatabasesSheetModalForWindow(nullptr, {});
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: parentWindow != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/QVImportDatabasesController"));
        }
        QVERIFY(!m_controller->isWindowLoaded());
    }

    void locationsAreReadAfreshEachTime() {
        QVERIFY(m_controller->locations().isEmpty());
        m_host->locations.append(m_location);
        QCOMPARE(m_controller->locations(), m_host->locations);
    }

    void thePagesSlideInAndBack() {
        run();
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        QTRY_COMPARE(m_controller->databasesView()->geometry(), frameAt(0));
        QTRY_COMPARE(m_controller->locationsView()->geometry(), frameAt(-width()));
        m_controller->returnToLocationsView(nullptr);
        QTRY_COMPARE(m_controller->databasesView()->geometry(), frameAt(width()));
        QTRY_COMPARE(m_controller->locationsView()->geometry(), frameAt(0));
    }

    void aReversedSlideContinuesFromItsPosition() {
        run();
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        QTRY_VERIFY(m_controller->databasesView()->x() < width());
        m_controller->returnToLocationsView(nullptr);
        QTRY_COMPARE(m_controller->databasesView()->geometry(), frameAt(width()));
        QCOMPARE(m_controller->locationsView()->geometry(), frameAt(0));
        QVERIFY(m_controller->locationsView()->isVisible());
    }

    void onlyThePageInSightTakesKeys() {
        run();
        m_host->locations.append(m_location);
        m_script->hold();
        QVERIFY(!m_controller->databasesView()->isVisible());
        m_controller->fetchDatabasesForLocation(m_location);
        QVERIFY(!m_controller->locationsView()->isEnabled());
        QVERIFY(m_controller->databasesView()->isEnabled());
        QTRY_VERIFY(!m_controller->locationsView()->isVisible());
        QTest::keyClick(m_controller->window(), Qt::Key_Return);
        QCOMPARE(m_script->steps(), QStringList{QStringLiteral("open")});
        m_controller->returnToLocationsView(nullptr);
        QVERIFY(m_controller->locationsView()->isEnabled());
        QVERIFY(m_controller->locationsView()->isVisible());
        QTRY_VERIFY(!m_controller->databasesView()->isVisible());
    }

    void returnActivatesTheDefaultButton() {
        useRealHost();
        const auto location = m_realHost->addLocation();
        putDatabaseRecord(location, QStringLiteral("11111111-1111-4111-8111-111111111111"),
                          QStringLiteral("Projects"));
        run();
        part<TableView>("locationsTable")->selectRow(0);
        QTest::keyClick(part<TableView>("locationsTable"), Qt::Key_Return);
        QVERIFY(m_controller->store());
        QTRY_COMPARE(part<TableView>("databasesTable")->rowCount(), 1);
        QTest::keyClick(part<TableView>("databasesTable"), Qt::Key_Return);
        QCOMPARE(m_completions, 0);
        part<TableView>("databasesTable")->selectRow(0);
        QTest::keyClick(part<TableView>("databasesTable"), Qt::Key_Return);
        QCOMPARE(m_completions, 1);
        QCOMPARE(location->synchronizationStates().size(), 1);
    }

    void aFetchOpensThenFetchesThenCloses() {
        run();
        m_script->databases = QVRemoteDatabases{m_location->record(QStringLiteral("B")),
                                                m_location->record(QStringLiteral("A"))};
        fetchToTheEnd();
        QCOMPARE(m_script->steps(), QStringList({QStringLiteral("open"), QStringLiteral("fetch"),
                                                 QStringLiteral("close")}));
        QCOMPARE(offered(), QStringList({QStringLiteral("B"), QStringLiteral("A")}));
        QVERIFY(!m_controller->remoteError());
        QVERIFY(!m_controller->isActive());
    }

    void choosingALocationClearsTheFormerResultBeforeItsStoreIsCreated() {
        run();
        m_controller->setDatabases(QVRemoteDatabases());
        m_controller->setRemoteError(ImportTestError);
        QVERIFY(!m_controller->isActive());
        bool wasActive = false;
        m_location->willCreateStore = [&] { wasActive = m_controller->isActive(); };
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        QVERIFY(wasActive);
        QVERIFY(m_controller->store());
    }

    void activeFollowsDatabasesAndTheError() {
        QCOMPARE(Controller::keyPathsForValuesAffectingActive(),
                 KeyValue::KeyPaths({"databases", "remoteError"}));
        AnnouncementRecorder recorder(m_controller.get());
        m_controller->setDatabases(QVRemoteDatabases());
        QCOMPARE(recorder.count("active"), 1);
        m_controller->setRemoteError(ImportTestError);
        QCOMPARE(recorder.count("active"), 2);
        QVERIFY(!m_controller->isActive());
        m_controller->setDatabases({});
        QVERIFY(!m_controller->isActive());
        m_controller->setRemoteError({});
        QVERIFY(m_controller->isActive());
    }

    void aStoreThatCannotBeOpenedIsNotClosed() {
        run();
        m_script->openError = ImportTestError;
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        const QPointer<QThread> main = QThread::currentThread();
        QThread *announcing = nullptr;
        connect(
            m_controller.get(), &Controller::remoteErrorChanged, this,
            [&] { announcing = QThread::currentThread(); }, Qt::DirectConnection);
        m_script->release();
        QThreadPool::globalInstance()->waitForDone();
        // The future is cancelled where the handler runs, before the error is shown.
        QVERIFY(m_controller->future()->isCancelled());
        const auto opened = m_script->future(QStringLiteral("open"));
        QVERIFY(opened->isCancelled());
        QVERIFY(opened->cancellingThread() != main);
        QVERIFY(!m_controller->remoteError());
        QTRY_COMPARE(m_controller->remoteError(), ImportTestError);
        QCOMPARE(announcing, main);
        QVERIFY(!m_controller->databases());
        QVERIFY(!m_controller->isActive());
        QCOMPARE(m_script->steps(), QStringList{QStringLiteral("open")});
    }

    void aFailedFetchShowsItsErrorAndClosesTheStore() {
        run();
        m_script->fetchError = ImportTestError;
        fetchToTheEnd();
        QCOMPARE(m_controller->remoteError(), ImportTestError);
        QVERIFY(!m_controller->databases());
        QVERIFY(m_host->application.logEntries().isEmpty());
    }

    void aFetchWithoutListAndErrorGoesOn() {
        run();
        fetchToTheEnd();
        QVERIFY(m_controller->isActive());
        QVERIFY(!m_controller->databases());
        QVERIFY(!m_controller->remoteError());
    }

    void aPartialResultIsListedAfterOneLogEntry() {
        run();
        m_script->databases = QVRemoteDatabases{m_location->record(QStringLiteral("A"))};
        m_script->fetchError = ImportTestError;
        qsizetype entriesAtListing = -1;
        m_controller->fetchDatabasesForLocation(m_location);
        connect(m_controller.get(), &Controller::databasesChanged, this,
                [&] { entriesAtListing = m_host->application.logEntries().size(); });
        QTRY_COMPARE(offered(), QStringList{QStringLiteral("A")});
        QCOMPARE(entriesAtListing, 1);
        const TestApplication::LogEntry entry{
            QStringLiteral("Sync:"),
            QStringLiteral("Failed to fetch information for database (The disk is full.)")};
        QCOMPARE(m_host->application.logEntries(), QList{entry});
        QVERIFY(!m_controller->remoteError());
        QVERIFY(m_host->application.presentedErrors().isEmpty());
    }

    void anIncompleteListSaysSoAndIsNotTakenForAnEmptyOne() {
        run();
        m_script->databases = QVRemoteDatabases();
        m_script->fetchError = ImportTestError;
        fetchToTheEnd();
        QVERIFY(m_controller->databases());
        QVERIFY(!m_controller->isNothingToImport());
        QVERIFY(!m_controller->isActive());
        QVERIFY(m_controller->isErrorShown());
        QVERIFY(m_controller->remoteErrorText().contains(QStringLiteral("The disk is full.")));
        m_script->fetchError = {};
        m_controller->fetchDatabasesForLocation(m_location);
        QVERIFY(!m_controller->isErrorShown());
        QTRY_VERIFY(m_controller->isNothingToImport());
        QVERIFY(!m_controller->isErrorShown());
    }

    void aFailedCloseIsIgnored() {
        run();
        m_script->databases = QVRemoteDatabases();
        m_script->closeError = ImportTestError;
        fetchToTheEnd();
        QVERIFY(!m_controller->remoteError());
        QVERIFY(m_controller->databases());
        QVERIFY(m_host->application.logEntries().isEmpty());
    }

    void theFutureCancelsTheOpening() {
        run();
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        m_controller->future()->cancel();
        QVERIFY(m_script->future(QStringLiteral("open"))->isCancelled());
    }

    void oneFutureStandsForTheWholeFetch() {
        run();
        m_script->databases = QVRemoteDatabases();
        fetchToTheEnd();
        QCOMPARE(m_host->futures.size(), 1);
        const auto future = m_host->futures.first();
        QCOMPARE(m_controller->future(), future);
        QCOMPARE(future->cascades,
                 (QList<std::shared_ptr<PZFuture>>{m_script->future(QStringLiteral("open"))}));
        QCOMPARE(future->passes,
                 (QList<std::shared_ptr<PZFuture>>{m_script->future(QStringLiteral("close"))}));
    }

    void theFutureThenStandsForTheClosing() {
        run();
        m_script->databases = QVRemoteDatabases();
        fetchToTheEnd();
        m_controller->future()->cancel();
        QVERIFY(m_script->future(QStringLiteral("close"))->isCancelled());
    }

    void theInboxIsNeverOffered() {
        QVERIFY(!m_controller->shouldListDatabase(m_location->record(QStringLiteral("@inbox"))));
        QVERIFY(m_host->calls.isEmpty());
        QVERIFY(m_controller->shouldListDatabase(m_location->record(QStringLiteral("A"))));
        QCOMPARE(m_host->calls, QStringList{QStringLiteral("database A NO")});
    }

    void databasesOfThisComputerAndTheInboxAreNotListed() {
        useRealHost();
        const auto here = m_realHost->addDatabase(QStringLiteral("Here"));
        run();
        m_script->databases = QVRemoteDatabases{m_location->record(QStringLiteral("@inbox")),
                                                m_location->record(here->UUID())};
        fetchToTheEnd();
        QVERIFY(m_controller->databases());
        QVERIFY(m_controller->databases()->isEmpty());
        QVERIFY(!m_controller->isActive());
        QVERIFY(part<QLabel>("nothingLabel")->isVisible());
        m_realHost->closeDatabase(here);
        QVERIFY(!m_controller->shouldListDatabase(m_location->record(here->UUID())));
        QVERIFY(m_controller->shouldListDatabase(m_location->record(QStringLiteral("elsewhere"))));
    }

    void aFetchAndAStepBackWorkBeforeTheWindowIsLoaded() {
        m_script->databases = QVRemoteDatabases{m_location->record(QStringLiteral("elsewhere"))};
        m_controller->fetchDatabasesForLocation(m_location);
        QTRY_VERIFY(!m_controller->isActive());
        QCOMPARE(m_controller->databases()->size(), 1);
        const auto future = m_controller->future();
        m_controller->returnToLocationsView(nullptr);
        QVERIFY(future->isCancelled());
        QVERIFY(!m_controller->isWindowLoaded());
    }

    void goingBackCancelsAndKeepsWhatWasFound() {
        run();
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        const auto future = m_controller->future();
        const auto store = m_controller->store();
        m_controller->setDatabases(QVRemoteDatabases());
        m_controller->returnToLocationsView(nullptr);
        QVERIFY(future->isCancelled());
        QCOMPARE(m_controller->store(), store);
        QVERIFY(m_controller->databases());
        QCOMPARE(m_completions, 0);
        m_controller->fetchDatabasesForLocation(m_location);
        QVERIFY(!m_controller->databases());
        QVERIFY(m_controller->future() != future);
        QVERIFY(!m_controller->future()->isCancelled());
    }

    void goingBackBeforeAnyFetchChangesNothing() {
        run();
        m_controller->returnToLocationsView(nullptr);
        QVERIFY(!m_controller->future());
        QVERIFY(!m_controller->store());
        QVERIFY(!m_controller->databases());
        QVERIFY(!m_controller->remoteError());
        QCOMPARE(m_completions, 0);
    }

    void aLateResultOfAnEarlierFetchIsStillShown() {
        run();
        m_script->hold();
        m_script->openError = ImportTestError;
        m_controller->fetchDatabasesForLocation(m_location);
        m_controller->returnToLocationsView(nullptr);
        StoreScript later;
        later.hold();
        m_controller->fetchDatabasesForLocation(std::make_shared<ScriptedLocation>(&later));
        m_script->release();
        QTRY_COMPARE(m_controller->remoteError(), ImportTestError);
        later.release();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }

    void importingMakesAnEnabledState() {
        const auto state = m_controller->importDatabase(
            m_location->record(QStringLiteral("A"), QStringLiteral("Projects")));
        QVERIFY(state->isEnabled());
        QCOMPARE(m_location->synchronizationStates(), QVSyncStates{state});
        QCOMPARE(state->databaseUUID(), QStringLiteral("A"));
        QCOMPARE(state->databaseName(), QStringLiteral("Projects"));
    }

    void importingIsLoggedWhileDebugging() {
        caughtMessages().clear();
        const QtMessageHandler before = qInstallMessageHandler(&catchMessage);
        m_controller->importDatabase(m_location->record(QStringLiteral("A"), QStringLiteral("P")));
        setDebugging(Debugging::Normal);
        m_controller->importDatabase(m_location->record(QStringLiteral("B"), QStringLiteral("%1")));
        qInstallMessageHandler(before);
        QCOMPARE(caughtMessages(),
                 QStringList{QStringLiteral("Importing database with name %1 and UUID B")});
    }

    void importingSavesThenSynchronizesThenCloses() {
        run();
        bool wasVisible = true;
        m_controller->runImportDatabasesSheetModalForWindow(m_parent.get(), [&] {
            ++m_completions;
            wasVisible = m_controller->window()->isVisible();
        });
        m_controller->importDatabases(
            {m_location->record(QStringLiteral("B")), m_location->record(QStringLiteral("A"))});
        QCOMPARE(m_host->calls,
                 QStringList({QStringLiteral("save"), QStringLiteral("synchronize B A")}));
        QCOMPARE(m_completions, 1);
        QVERIFY(!wasVisible);
    }

    void importingNothingStillSavesAndCloses() {
        run();
        m_controller->performActionWithDatabases({});
        QCOMPARE(m_host->calls,
                 QStringList({QStringLiteral("save"), QStringLiteral("synchronize")}));
        QCOMPARE(m_completions, 1);
        QVERIFY(!m_controller->window()->isVisible());
    }

    void aFailedSaveIsNotReported() {
        run();
        m_host->saves = false;
        m_controller->importDatabases({m_location->record(QStringLiteral("A"))});
        QCOMPARE(m_host->calls,
                 QStringList({QStringLiteral("save"), QStringLiteral("synchronize A")}));
        QVERIFY(m_host->application.presentedErrors().isEmpty());
    }

    void importingIsSaved() {
        useRealHost();
        const auto location = m_realHost->addLocation();
        putDatabaseRecord(location, QStringLiteral("11111111-1111-4111-8111-111111111111"),
                          QStringLiteral("Projects"));
        run();
        m_controller->fetchDatabasesForLocation(location);
        QTRY_VERIFY(m_controller->databases());
        QCOMPARE(shownNames(), QStringList{QStringLiteral("Projects")});
        part<TableView>("databasesTable")->selectRow(0);
        part<QPushButton>("actionButton")->click();
        QCOMPARE(m_completions, 1);
        m_realHost->restart();
        const auto saved = m_realHost->locations().syncLocations().constFirst();
        const auto state =
            saved->stateForDatabaseWithUUID(QStringLiteral("11111111-1111-4111-8111-111111111111"));
        QVERIFY(state);
        QVERIFY(state->isEnabled());
    }

    void cancellingEndsTheFetchAndTheSheet() {
        bool wasVisible = true;
        m_controller->runImportDatabasesSheetModalForWindow(m_parent.get(), [&] {
            ++m_completions;
            wasVisible = m_controller->window()->isVisible();
        });
        m_script->hold();
        m_controller->fetchDatabasesForLocation(m_location);
        const auto future = m_controller->future();
        part<QPushButton>("cancelImportButton")->click();
        QVERIFY(future->isCancelled());
        QCOMPARE(m_completions, 1);
        QVERIFY(!wasVisible);
        QVERIFY(m_host->calls.isEmpty());
        m_controller->cancelModalSheet(nullptr);
        QCOMPARE(m_completions, 1);
    }

    void escapeCancels() {
        run();
        QTest::keyClick(m_controller->window(), Qt::Key_Escape);
        QVERIFY(!m_controller->window()->isVisible());
        QCOMPARE(m_completions, 1);
    }

    void aClosedSheetLivesUntilItsLastResult() {
        run();
        m_script->hold();
        m_script->databases = QVRemoteDatabases();
        m_controller->fetchDatabasesForLocation(m_location);
        m_controller->cancelModalSheet(nullptr);
        const QPointer<Controller> controller = m_controller.get();
        m_controller.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(controller);
        m_script->release();
        QTRY_COMPARE(m_script->steps().last(), QStringLiteral("close"));
        QThreadPool::globalInstance()->waitForDone();
        QTRY_VERIFY(!controller);
    }

    void theFirstPageShowsTheLocationsWithIconAndTitle() {
        useRealHost();
        m_realHost->addLocation(QStringLiteral("https://example.org/Work.qvSyncStore"));
        run();
        const auto *table = part<TableView>("locationsTable");
        QCOMPARE(table->rowCount(), 1);
        QVERIFY(!table->item(0, 0)->text().isEmpty());
        QVERIFY(!table->item(0, 0)->icon().isNull());
        QVERIFY(part<QLabel>("noLocationsLabel")->isHidden());
    }

    void withoutLocationsThePageSaysSo() {
        run();
        QVERIFY(part<QLabel>("noLocationsLabel")->isVisible());
        QVERIFY(!part<QPushButton>("continueButton")->isEnabled());
    }

    void theButtonsPickGoBackAndImport() {
        useRealHost();
        const auto location = m_realHost->addLocation();
        m_realHost->addLocation();
        putDatabaseRecord(location, QStringLiteral("11111111-1111-4111-8111-111111111111"),
                          QStringLiteral("Projects"));
        run();
        QVERIFY(!part<QPushButton>("continueButton")->isEnabled());
        part<TableView>("locationsTable")->selectRow(0);
        part<QPushButton>("continueButton")->click();
        QCOMPARE(m_controller->store()->location(), location);
        QVERIFY(part<QWidget>("activityBar")->isVisible());
        QTRY_COMPARE(shownNames(), QStringList{QStringLiteral("Projects")});
        QVERIFY(!part<QWidget>("activityBar")->isVisible());
        QVERIFY(!part<TableView>("databasesTable")->item(0, 0)->icon().isNull());
        auto *action = part<QPushButton>("actionButton");
        QCOMPARE(action->text().remove(u'&'), QStringLiteral("Import"));
        QVERIFY(!action->isEnabled());
        part<TableView>("databasesTable")->selectRow(0);
        QVERIFY(action->isEnabled());
        part<QPushButton>("backButton")->click();
        QTRY_COMPARE(m_controller->locationsView()->geometry(), frameAt(0));
        QCOMPARE(m_completions, 0);
    }

    void theErrorIsShownBesideAWarning() {
        run();
        m_script->openError = ImportTestError;
        m_controller->fetchDatabasesForLocation(m_location);
        QTRY_VERIFY(part<QLabel>("errorLabel")->isVisible());
        QCOMPARE(part<QLabel>("errorLabel")->text(),
                 QStringLiteral("The disk is full.\nNobody emptied it."));
        QVERIFY(part<QWidget>("warningButton")->isVisible());
        QVERIFY(!part<QWidget>("activityBar")->isVisible());
        QVERIFY(!part<QWidget>("nothingLabel")->isVisible());
    }

    void severalDatabasesAreImportedAtOnce() {
        run();
        m_script->databases =
            QVRemoteDatabases{m_location->record(QStringLiteral("A"), QStringLiteral("One")),
                              m_location->record(QStringLiteral("B"), QStringLiteral("Two")),
                              m_location->record(QStringLiteral("C"), QStringLiteral("Three"))};
        fetchToTheEnd();
        m_host->calls.clear();
        auto *table = part<TableView>("databasesTable");
        table->setSelectionIndexes({0, 2});
        part<QPushButton>("actionButton")->click();
        QCOMPARE(m_host->calls,
                 QStringList({QStringLiteral("save"), QStringLiteral("synchronize A C")}));
    }
};

VELMORA_TEST(QVImportDatabasesControllerTest)
#include "QVImportDatabasesControllerTest.moc"
