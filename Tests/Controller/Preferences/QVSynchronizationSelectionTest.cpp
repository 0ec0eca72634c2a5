#include "Controller/Preferences/QVSynchronizationSelection.h"

#include <QtCore/QThreadPool>

#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncStore.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/ArrayController.h"
#include "Platform/KeyValue/Binding.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/HostShortcuts.h"
#include "Support/MessageRecorder.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// The result of each step of a fetch, and a record of the steps.
struct Script {
    std::optional<Error> openError;
    std::optional<QVRemoteDatabases> databases;
    std::optional<Error> fetchError;
    std::optional<Error> closeError;
    QStringList steps;
};

/// A store with scripted results, delivered on its own thread, as stores may do. No real store can
/// be made to fail when it is closed.
class ScriptedStore : public QVSyncStore {
public:
    explicit ScriptedStore(Script *script) : m_script(script) {}

    std::shared_ptr<QVSyncLocation> location() const override { return nullptr; }
    std::shared_ptr<PZFuture> openWithCompletionHandler(ErrorHandler handler) override {
        return step("open", [=, this] { handler(m_script->openError); });
    }
    std::shared_ptr<PZFuture> fetchDatabasesWithCompletionHandler(
        DatabasesHandler handler) override {
        return step("fetch", [=, this] { handler(m_script->databases, m_script->fetchError); });
    }
    std::shared_ptr<PZFuture> closeWithCompletionHandler(ErrorHandler handler) override {
        return step("close", [=, this] { handler(m_script->closeError); });
    }

private:
    std::shared_ptr<PZFuture> step(const char *name, std::function<void()> answer) {
        m_script->steps.append(QLatin1StringView(name));
        QThreadPool::globalInstance()->start(std::move(answer));
        return PZFuture::future();
    }

    Script *const m_script;
};

class LocationOfScript : public QVSyncLocation {
public:
    explicit LocationOfScript(Script *script) : m_script(script) {}

    Url URL() const override { return {}; }
    void setURL(const Url & /*URL*/) override {}
    QVSyncStates synchronizationStates() const override { return {}; }
    std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString & /*UUID*/) const override {
        return nullptr;
    }
    std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString & /*UUID*/,
                                                             const QString & /*name*/) override {
        return nullptr;
    }
    std::shared_ptr<QVSyncStore> createStore() override {
        return std::make_shared<ScriptedStore>(m_script);
    }

private:
    Script *const m_script;
};

Error testError(int code) {
    return {.domain = QStringLiteral("test"), .code = code};
}

}  // namespace

class QVSynchronizationSelectionTest : public QObject {
    Q_OBJECT
    using Selection = QVSynchronizationSelection;

    std::unique_ptr<TestHost> m_host;

    std::shared_ptr<QVStandInDatabase> makeDatabase(bool isLocal = true) const {
        auto row = std::make_shared<QVStandInDatabase>();
        row->setUUID(QStringLiteral("D"));
        row->setName(QStringLiteral("Data"));
        if (isLocal) {
            row->addContainingLocationsObject(m_host->localLocation());
        }
        return row;
    }

    static QColor centerColor(const QPixmap &pixmap) {
        return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
    }

    /// A URL on a volume that is not mounted.
    static QString unmounted() {
        return QStringLiteral("file:///media/nobody/NoSuchVolume/Work.qvSyncStore");
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        setDebugging(Debugging::Off);
    }
    void cleanup() { m_host.reset(); }

    void aLocationMustBeGiven() {
        try {
            Selection::selectionWithDatabase(nullptr, nullptr);
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: location != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/Preferences/QVSynchronizationSelection"));
            QCOMPARE(failure.line(), 21);
        }
    }

    void withoutDatabaseNothingIsSelectedOrSelectable() {
        const auto location = m_host->addLocation();
        const auto row = Selection::selectionWithDatabase(nullptr, location);
        QVERIFY(!row->isSelected());
        QVERIFY(!row->isSelectable());
        QVERIFY(row->selectedDatabases().isEmpty());
        row->setSelected(true);
        QVERIFY(location->synchronizationStates().isEmpty());
        QVERIFY(!row->isSelected());
    }

    void tickingMakesAStateWithTheSettingsOfTheRow() {
        const auto database = makeDatabase();
        const auto elsewhere =
            m_host->addLocation()->addStateForDatabaseWithUUID(QStringLiteral("D"), {});
        elsewhere->setSchedule(dailySchedule(8, 0));
        elsewhere->setSyncOnOpen(true);
        elsewhere->setSyncOnClose(true);
        database->addSynchronizationStatesObject(elsewhere);

        const auto location = m_host->addLocation();
        const auto row = Selection::selectionWithDatabase(database, location);
        row->setSelected(true);
        const auto state = location->stateForDatabaseWithUUID(QStringLiteral("D"));
        QVERIFY(state);
        QCOMPARE(state->databaseName(), QStringLiteral("Data"));
        QVERIFY(state->isEnabled());
        QVERIFY(state->syncOnOpen());
        QVERIFY(state->syncOnClose());
        QCOMPARE(state->schedule(), elsewhere->schedule());
        QVERIFY(database->synchronizationStates().contains(state));
        QVERIFY(database->canSynchronize());
        QVERIFY(row->isSelected());
    }

    void untickingOnlyDisablesTheStateAndTickingEnablesTheSameOne() {
        const auto location = m_host->addLocation();
        const auto row = Selection::selectionWithDatabase(makeDatabase(), location);
        row->setSelected(true);
        const auto state = location->stateForDatabaseWithUUID(QStringLiteral("D"));
        row->setSelected(false);
        QVERIFY(!row->isSelected());
        QCOMPARE(location->synchronizationStates(), QVSyncStates{state});
        QVERIFY(!state->isEnabled());
        row->setSelected(true);
        QCOMPARE(location->synchronizationStates(), QVSyncStates{state});
        QVERIFY(state->isEnabled());
    }

    void untickingADatabaseWithoutStateDoesNothing() {
        const auto location = m_host->addLocation();
        Selection::selectionWithDatabase(makeDatabase(), location)->setSelected(false);
        QVERIFY(location->synchronizationStates().isEmpty());
    }

    void aLocalDatabaseCanBeTickedAnywhere() {
        QVERIFY(Selection::selectionWithDatabase(makeDatabase(), m_host->addLocation())
                    ->isSelectable());
    }

    void aRemoteDatabaseCanBeTickedOnlyWhereItIs() {
        const auto database = makeDatabase(false);
        const auto here = m_host->addLocation();
        database->addContainingLocationsObject(here);
        QVERIFY(Selection::selectionWithDatabase(database, here)->isSelectable());
        QVERIFY(!Selection::selectionWithDatabase(database, m_host->addLocation())->isSelectable());
    }

    void theDatabaseFollowsTheLastSelectedRow() {
        const auto first = makeDatabase();
        const auto last = makeDatabase();
        ArrayController controller;
        controller.setContent({QVariant::fromValue(first), QVariant::fromValue(last)});
        const auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation());
        KeyValue::bind(row.get(), "selectedDatabases", &controller, "selectedObjects");
        controller.setSelectionIndexes({0, 1});
        QCOMPARE(row->database(), last);
        QCOMPARE(row->selectedDatabases(), QVariantList{QVariant::fromValue(last)});
        controller.setSelectionIndexes({});
        QVERIFY(!row->database());
    }

    void aDestroyedRowNoLongerFollows() {
        ArrayController controller;
        {
            const auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation());
            KeyValue::bind(row.get(), "selectedDatabases", &controller, "selectedObjects");
        }
        controller.setContent({QVariant::fromValue(makeDatabase())});
        controller.setSelectionIndexes({0});
        QCOMPARE(controller.selectedObjects().size(), 1);
    }

    void anotherDatabaseAnnouncesWhatDependsOnIt() {
        const auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation());
        AnnouncementRecorder recorder(row.get());
        row->setDatabase(makeDatabase());
        QCOMPARE(recorder.announced(), QByteArrayList({"database", "selected", "selectable"}));
    }

    void anotherLocationAnnouncesWhetherItIsSelectedAndEditable() {
        const auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation());
        AnnouncementRecorder recorder(row.get());
        row->setLocation(m_host->addLocation());
        QCOMPARE(recorder.announced(), QByteArrayList({"location", "selected", "editable"}));
    }

    void aNewStateAtTheLocationAnnouncesWhetherItIsSelected() {
        const auto before = m_host->addLocation();
        const auto location = m_host->addLocation();
        const auto row = Selection::selectionWithDatabase(nullptr, before);
        row->setLocation(location);
        AnnouncementRecorder recorder(row.get());
        location->addStateForDatabaseWithUUID(QStringLiteral("X"), {});
        QCOMPARE(recorder.announced(), QByteArrayList{"selected"});
        before->addStateForDatabaseWithUUID(QStringLiteral("X"), {});
        QCOMPARE(recorder.announced().size(), 1);
    }

    void tickingAnnouncesWhetherItIsSelected() {
        const auto row = Selection::selectionWithDatabase(makeDatabase(), m_host->addLocation());
        row->setSelected(true);
        AnnouncementRecorder recorder(row.get());
        row->setSelected(false);
        QCOMPARE(recorder.announced(), QByteArrayList{"selected"});
    }

    void aMountedFolderHasTheTitleAndIconOfItsFormatter() {
        const auto location = m_host->addLocation();
        const auto row = Selection::selectionWithDatabase(nullptr, location);
        const auto formatter = row->locationFormatter();
        QVERIFY(row->isMounted());
        QCOMPARE(row->title(), formatter->title());
        QCOMPARE(row->icon().toImage(), formatter->icon().toImage());
        QCOMPARE(row->locationType(), formatter->locationType());
        QCOMPARE(row->textColor(), QColor(Qt::black));
    }

    void noPasswordIsLogged() {
        const auto selection = Selection::selectionWithDatabase(
            nullptr, m_host->addLocation(QStringLiteral("https://u:geheim@h/a.qvSyncStore")));
        setDebugging(Debugging::High);
        const MessageRecorder recorder;
        QVERIFY(selection->isMounted());
        QCOMPARE(recorder.messages(),
                 QStringList{QStringLiteral(
                     "Location: https://u@h/a.qvSyncStore (/a.qvSyncStore) is mounted.")});
    }

    void aFolderOnAnUnmountedVolumeIsShownAsUnavailable() {
        const auto row =
            Selection::selectionWithDatabase(nullptr, m_host->addLocation(unmounted()));
        QVERIFY(!row->isMounted());
        QCOMPARE(row->title(),
                 row->locationFormatter()->title() + QStringLiteral(" (Unavailable)"));
        QCOMPARE(row->icon().toImage(), row->dimmedIcon().toImage());
        QCOMPARE(row->textColor().alpha(), 128);
        QCOMPARE(row->textColor().lightnessF(), 0.0F);
    }

    void aServerIsAlwaysMounted() {
        const auto row = Selection::selectionWithDatabase(
            nullptr, m_host->addLocation(QStringLiteral("https://u@dav.example/Work.qvSyncStore")));
        QVERIFY(row->isMounted());
        QCOMPARE(row->title(), row->locationFormatter()->title());
    }

    void theDimmedIconIsTheIconAtHalfItsOpacity() {
        const auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation());
        const QPixmap icon = row->locationFormatter()->icon();
        const QPixmap dimmed = row->dimmedIcon();
        QCOMPARE(dimmed.size(), icon.size());
        QCOMPARE(dimmed.devicePixelRatio(), icon.devicePixelRatio());
        QVERIFY(centerColor(icon).alpha() > 250);
        QVERIFY(qAbs(centerColor(dimmed).alpha() - centerColor(icon).alpha() / 2) <= 1);
    }

    void aLocationWithoutURLShowsTheApplicationsIcon() {
        QPixmap pixmap(32, 32);
        pixmap.fill(Qt::magenta);
        QApplication::setWindowIcon(pixmap);
        const auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation(QString()));
        QCOMPARE(centerColor(row->icon()), QColor(Qt::magenta));
    }

    void onlySomeKindsCanBeCleaned_data() {
        QTest::addColumn<QString>("URL");
        QTest::addColumn<bool>("isCleanable");
        QTest::newRow("folder") << QStringLiteral("file:///home/A.qvSyncStore") << true;
        QTest::newRow("WebDAV") << QStringLiteral("http://u@h/A.qvSyncStore") << true;
        QTest::newRow("Dropbox") << QStringLiteral("dropbox://a@b.example") << true;
        QTest::newRow("direct") << QStringLiteral("velmora://h:8442") << false;
        QTest::newRow("unknown") << QStringLiteral("gopher://h/A") << false;
    }

    void onlySomeKindsCanBeCleaned() {
        QFETCH(QString, URL);
        QFETCH(bool, isCleanable);
        QCOMPARE(Selection::selectionWithDatabase(nullptr, m_host->addLocation(URL))->isCleanable(),
                 isCleanable);
    }

    void beingMountedIsLoggedUnderBothDefaults() {
        const auto row =
            Selection::selectionWithDatabase(nullptr, m_host->addLocation(unmounted()));
        setDebugging(Debugging::High);
        QTest::ignoreMessage(QtInfoMsg,
                             QRegularExpression(QStringLiteral(
                                 "^Location: .* \\(/media/nobody/NoSuchVolume/Work.qvSyncStore\\) "
                                 "is not mounted\\.$")));
        QVERIFY(!row->isMounted());
    }

    void aFetchReturnsTheDatabasesOfTheStore() {
        const auto location = m_host->addLocation();
        putDatabaseRecord(location, QStringLiteral("5c9f2f6e-3f4f-4b55-8a52-0c8a2a0a1b11"),
                          QStringLiteral("Remote"));
        const auto row = Selection::selectionWithDatabase(nullptr, location);
        QList<bool> activity;
        const auto observation = KeyValue::observe(row.get(), "active", [&] {
            QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
            activity.append(row->isActive());
        });
        std::optional<QVRemoteDatabases> databases;
        std::optional<Error> error;
        int calls = 0;
        row->fetchDatabasesWithCompletionHandler([&](const auto &fetched, const auto &fetchError) {
            QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
            QVERIFY(!row->isActive());
            databases = fetched;
            error = fetchError;
            ++calls;
        });
        QVERIFY(!row->isActive());
        QTRY_COMPARE(calls, 1);
        QVERIFY(databases);
        QCOMPARE(databases->size(), 1);
        QCOMPARE(databases->first()->metadata()->name(), QStringLiteral("Remote"));
        QVERIFY(!error);
        QCOMPARE(activity, QList<bool>({true, false}));
    }

    void aFetchThatCannotOpenTheStoreReturnsOnlyTheError() {
        const auto row = Selection::selectionWithDatabase(
            nullptr, m_host->addLocation(QStringLiteral("file:///no/such/Work.qvSyncStore")));
        QList<bool> activity;
        const auto observation =
            KeyValue::observe(row.get(), "active", [&] { activity.append(row->isActive()); });
        std::optional<QVRemoteDatabases> databases;
        std::optional<Error> error;
        row->fetchDatabasesWithCompletionHandler([&](const auto &fetched, const auto &fetchError) {
            databases = fetched;
            error = fetchError;
        });
        QTRY_VERIFY(error);
        QVERIFY(!databases);
        QCOMPARE(row->error(), error);
        QCOMPARE(activity, QList<bool>({true, false}));
    }

    void anOldErrorComesWithFreshDatabases() {
        const auto location = m_host->addLocation();
        const auto row = Selection::selectionWithDatabase(nullptr, location);
        const Error old{.domain = QStringLiteral("test"), .code = 7};
        row->setError(old);
        std::optional<QVRemoteDatabases> databases;
        std::optional<Error> error;
        row->fetchDatabasesWithCompletionHandler([&](const auto &fetched, const auto &fetchError) {
            databases = fetched;
            error = fetchError;
        });
        QTRY_VERIFY(databases);
        QCOMPARE(error, std::optional<Error>(old));
    }

    void eachStepIsTakenAndTheLastErrorWins_data() {
        QTest::addColumn<int>("openError");
        QTest::addColumn<bool>("hasDatabases");
        QTest::addColumn<int>("fetchError");
        QTest::addColumn<int>("closeError");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<int>("error");
        QTest::addColumn<bool>("deliversDatabases");
        const QStringList all{QStringLiteral("open"), QStringLiteral("fetch"),
                              QStringLiteral("close")};
        QTest::newRow("all well") << 0 << true << 0 << 0 << all << 0 << true;
        QTest::newRow("opening fails") << 1 << true << 0 << 0 << all.mid(0, 1) << 1 << false;
        QTest::newRow("fetching fails") << 0 << false << 2 << 0 << all << 2 << false;
        QTest::newRow("fetching gives an error too") << 0 << true << 2 << 0 << all << 2 << false;
        QTest::newRow("closing fails") << 0 << true << 0 << 3 << all << 3 << true;
        QTest::newRow("fetching and closing fail") << 0 << false << 2 << 3 << all << 3 << false;
    }

    void eachStepIsTakenAndTheLastErrorWins() {
        QFETCH(int, openError);
        QFETCH(bool, hasDatabases);
        QFETCH(int, fetchError);
        QFETCH(int, closeError);
        const auto errorFor = [](int code) {
            return code ? std::optional(testError(code)) : std::nullopt;
        };
        Script script{errorFor(openError),
                      hasDatabases ? std::optional(QVRemoteDatabases()) : std::nullopt,
                      errorFor(fetchError),
                      errorFor(closeError),
                      {}};
        const auto row =
            Selection::selectionWithDatabase(nullptr, std::make_shared<LocationOfScript>(&script));
        bool isDone = false;
        bool deliversDatabases = false;
        row->fetchDatabasesWithCompletionHandler([&](const auto &databases, const auto &error) {
            QCOMPARE(error, row->error());
            deliversDatabases = databases.has_value();
            isDone = true;
        });
        QTRY_VERIFY(isDone);
        QTEST(script.steps, "steps");
        QTEST(row->error() ? row->error()->code : 0, "error");
        QTEST(deliversDatabases, "deliversDatabases");
    }

    void aRowLivesUntilItsFetchIsDone() {
        auto row = Selection::selectionWithDatabase(nullptr, m_host->addLocation());
        const std::weak_ptr<Selection> weak = row;
        bool isDone = false;
        row->fetchDatabasesWithCompletionHandler(
            [&](const auto &, const auto &) { isDone = true; });
        row.reset();
        QVERIFY(!weak.expired());
        QTRY_VERIFY(isDone);
        QTRY_VERIFY(weak.expired());
    }
};

VELMORA_TEST(QVSynchronizationSelectionTest)
#include "QVSynchronizationSelectionTest.moc"
