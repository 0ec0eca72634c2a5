#include <future>

#include "Support/ScriptedServer.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

namespace {

/// The folders of a sync store as a WebDAV server lists them.
constexpr const char *StoreListing =
    R"(<?xml version="1.0"?><D:multistatus xmlns:D="DAV:">)"
    R"(<D:response><D:href>/Shared.qvSyncStore/</D:href><D:propstat><D:prop><D:resourcetype>)"
    R"(<D:collection/></D:resourcetype></D:prop></D:propstat></D:response>)"
    R"(<D:response><D:href>/Shared.qvSyncStore/databases/</D:href></D:response>)"
    R"(<D:response><D:href>/Shared.qvSyncStore/transactions/</D:href></D:response>)"
    R"(</D:multistatus>)";

}  // namespace

/// Two engines in one process, each with a profile of its own, that share a sync store in a folder.
class TwoEnginesTest : public QObject {
    Q_OBJECT

    const QString m_UUID = QStringLiteral("8f1dd2f4-2d04-4c06-9a0e-0d6f8f8f6f01");
    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QTemporaryDir> m_otherFolder;
    std::unique_ptr<SyncEngine> m_other;

    SyncEngine &first() { return m_host->engine(); }

    /// Creates the state of a new database in `engine`.
    std::shared_ptr<QVSyncState> newState(SyncEngine &engine, const QString &URLText) const {
        if (!engine.library()->importDatabase(m_UUID, QStringLiteral("Plans"))) {
            return nullptr;
        }
        QVSyncLocationsController *locations = engine.plugin().locationsController();
        const auto location = engine.plugin().newLocation(Url::fromString(URLText));
        locations->insertObjectInSyncLocationsAtIndex(location, locations->countOfSyncLocations());
        const auto state = location->addStateForDatabaseWithUUID(m_UUID, QStringLiteral("Plans"));
        state->setEnabled(true);
        return state;
    }
    std::shared_ptr<NoteDatabase> database(SyncEngine &engine) const {
        return engine.library()->databaseForUUID(m_UUID);
    }
    QStringList titles(SyncEngine &engine) const {
        QStringList titles;
        const Expected<QList<Note>> notes = database(engine)->notes();
        for (const Note &note : notes.value_or(QList<Note>())) {
            titles.append(note.title);
        }
        return titles;
    }
    static bool saveNote(NoteDatabase &database, const QString &title) {
        Note note{{}, title, QStringLiteral("Text"), QDateTime::currentDateTime()};
        return database.saveNote(note).has_value();
    }
    static void synchronize(SyncEngine &engine, const std::shared_ptr<QVSyncState> &state) {
        bool isDone = false;
        engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { isDone = true; });
        QTRY_VERIFY(isDone);
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_otherFolder = std::make_unique<QTemporaryDir>();
        m_other = std::make_unique<SyncEngine>();
        QVERIFY(m_other->openProfile(m_otherFolder->filePath(QStringLiteral("Profile")),
                                     FirstContents::Inbox));
    }
    void cleanup() {
        for (SyncEngine *engine : {&first(), m_other.get()}) {
            if (engine) {
                QCOMPARE(Verification::problemsOfProfile(*engine), QStringList());
            }
        }
        m_other.reset();
        m_otherFolder.reset();
        m_host.reset();
    }

    void bothSynchronizeOverOneFolder() {
        const QString URLText = m_host->makeSyncStore(QStringLiteral("Shared"));
        const auto state = newState(first(), URLText);
        const auto otherState = newState(*m_other, URLText);
        QVERIFY(state && otherState);
        QVERIFY(saveNote(*database(first()), QStringLiteral("From the first")));
        QVERIFY(saveNote(*database(*m_other), QStringLiteral("From the other")));
        synchronize(first(), state);
        synchronize(*m_other, otherState);
        synchronize(first(), state);
        const QSet<QString> both{QStringLiteral("From the first"),
                                 QStringLiteral("From the other")};
        const QStringList titlesOfFirst = titles(first());
        QCOMPARE(QSet<QString>(titlesOfFirst.begin(), titlesOfFirst.end()), both);
        const QStringList titlesOfOther = titles(*m_other);
        QCOMPARE(QSet<QString>(titlesOfOther.begin(), titlesOfOther.end()), both);
    }

    void everyTextArrivesAsItWasWritten_data() {
        QTest::addColumn<QString>("text");
        for (const char16_t character : {u'\0', u'\r', u'\uFEFF', u'\uFFFE', u'\uFFFF'}) {
            QTest::addRow("U+%04X", character) << QString(QChar(character));
        }
    }
    void everyTextArrivesAsItWasWritten() {
        QFETCH(QString, text);
        const QString URLText = m_host->makeSyncStore(QStringLiteral("Shared"));
        const auto state = newState(first(), URLText);
        const auto otherState = newState(*m_other, URLText);
        Note note{{}, text, text + QStringLiteral("one") + text + text, {}};
        const Note written = note;
        QVERIFY(database(first())->saveNote(note));
        QCOMPARE(note.title, written.title);
        QCOMPARE(note.text, written.text);
        QCOMPARE(database(first())->notes().value(), QList{note});
        const QString name = text + QStringLiteral("name");
        QVERIFY(first().library()->renameDatabase(database(first()), name));
        synchronize(first(), state);
        QVERIFY(state->lastSynced().isValid());
        synchronize(*m_other, otherState);
        QCOMPARE(database(*m_other)->notes().value(), QList{note});
        QCOMPARE(database(*m_other)->name(), name);
        QVERIFY(database(*m_other)->removeNote(note));
        const auto versions = database(*m_other)->deletedNotes().value();
        const Note restored = database(*m_other)->noteOfVersion(versions.value(0)).value();
        QCOMPARE(restored.title, note.title);
        QCOMPARE(restored.text, note.text);
    }

    void anOpenedOrClosedDatabaseTriggersOnlyItsOwnEngine() {
        const QString URLText = m_host->makeSyncStore(QStringLiteral("Shared"));
        const auto state = newState(first(), URLText);
        const auto otherState = newState(*m_other, URLText);
        QVERIFY(state && otherState);
        for (const auto &each : {state, otherState}) {
            each->setSyncOnOpen(true);
            each->setSyncOnClose(true);
        }
        m_host->closeDatabase(database(first()));
        QVERIFY(!first().plugin().dispatcher()->activity().isEmpty());
        QVERIFY(m_other->plugin().dispatcher()->activity().isEmpty());
        QTRY_VERIFY(first().plugin().dispatcher()->activity().isEmpty());
        m_host->openDatabase(database(first()));
        QVERIFY(!first().plugin().dispatcher()->activity().isEmpty());
        QVERIFY(m_other->plugin().dispatcher()->activity().isEmpty());
        QTRY_VERIFY(first().plugin().dispatcher()->activity().isEmpty());
        QVERIFY(state->lastSynced().isValid());
        QVERIFY(!otherState->lastSynced().isValid());
    }

    void endingOneEngineLeavesTheOtherUsable() {
        const QString URLText = m_host->makeSyncStore(QStringLiteral("Shared"));
        const auto state = newState(first(), URLText);
        const auto otherState = newState(*m_other, URLText);
        QVERIFY(state && otherState);
        m_other->plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {otherState});
        m_other.reset();
        QVERIFY(saveNote(*database(first()), QStringLiteral("Afterwards")));
        synchronize(first(), state);
        QVERIFY(state->lastSynced().isValid());
    }

    void endingOneEngineLetsAStoreOperationOfTheOtherComplete() {
        std::promise<void> asked;
        std::promise<void> mayAnswer;
        const ScriptedServer server([&](ScriptedServer::Connection &connection) {
            connection.readRequest();
            asked.set_value();
            mayAnswer.get_future().wait();
            connection.answer("207 Multi-Status", StoreListing);
        });
        const auto store =
            first()
                .plugin()
                .newLocation(Url::fromString(server.URLText(QStringLiteral("Shared.qvSyncStore"))))
                ->createStore();
        std::promise<std::optional<Error>> opened;
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &error) { opened.set_value(error); });
        asked.get_future().wait();
        m_other.reset();
        mayAnswer.set_value();
        QCOMPARE(opened.get_future().get(), std::nullopt);
    }
};

VELMORA_TEST(TwoEnginesTest)
#include "TwoEnginesTest.moc"
