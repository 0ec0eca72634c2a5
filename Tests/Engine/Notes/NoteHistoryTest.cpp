#include "Engine/Notes/NoteHistory.h"

#include "Engine/Profile/ProfileFolder.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/FileSizeLimit.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/StallMeter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// What a profile keeps of notes that were replaced or deleted, in whatever way.
class NoteHistoryTest : public QObject {
    Q_OBJECT
private:
    const QString m_here = QStringLiteral("Profile");
    const QString m_there = QStringLiteral("Other");
    std::unique_ptr<TestHost> m_host;
    MemoryStore::Blobs m_blobs;

    const ProfileDatabase &profile() const { return m_host->engine().profile(); }
    std::shared_ptr<NoteDatabase> inbox() const { return m_host->inbox(); }

    Note add(const QString &title, const QString &text) const {
        Note note{{}, title, text, {}};
        return inbox()->saveNote(note) ? note : Note();
    }
    Note noteWithTitle(const QString &title) const {
        const QList<Note> notes = inbox()->notes().value();
        const auto found = std::find_if(notes.begin(), notes.end(),
                                        [&](const Note &each) { return each.title == title; });
        return found == notes.end() ? Note() : *found;
    }
    void edit(const QString &title, const QString &text) const {
        Note note = noteWithTitle(title);
        note.text = text;
        QVERIFY(inbox()->saveNote(note));
    }

    template <class Session>
    void run() {
        Session session(
            profile(), m_host->library(),
            {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store"), QStringLiteral("Home")});
        MemoryStore store(m_blobs);
        QVERIFY(runSession(session, store));
    }
    void goTo(const QString &computer) {
        m_host->goToComputer(computer);
        run<SyncSession>();
    }

    Expected<void> pruneAll(const QDateTime &now) const {
        Expected<bool> remains = NoteHistory::exceedsLimits(profile(), now);
        while (remains && *remains) {
            remains = NoteHistory::prune(profile(), now).and_then([&] {
                return NoteHistory::exceedsLimits(profile(), now);
            });
        }
        return remains.map([](bool) {});
    }
    /// Adds 30 versions of 1 MiB.
    void addLargeVersions(const QDateTime &ended) const {
        QVERIFY(profile().run(
            QStringLiteral("INSERT INTO versions (ended, size, database, note_uuid, place, title,"
                           " text) WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT n + 1"
                           " FROM number WHERE n < 30) SELECT ?, 1048576, databases.id,"
                           " 'u' || n, '', '', '' FROM number, databases WHERE is_inbox"),
            {ended.toMSecsSinceEpoch()}));
    }
    int countOfVersions() const {
        return profile().value(QStringLiteral("SELECT count(*) FROM versions")).value().toInt();
    }

    QStringList textsOf(const QList<NoteVersion> &versions) const {
        QStringList texts;
        for (const NoteVersion &version : versions) {
            texts.append(inbox()->noteOfVersion(version).value().text);
        }
        return texts;
    }
    QStringList deletedTexts() const { return textsOf(inbox()->deletedNotes().value()); }
    QStringList earlierTexts(const QString &title) const {
        return textsOf(inbox()->earlierVersions(noteWithTitle(title)).value());
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_blobs.clear();
    }
    void cleanup() { m_host.reset(); }

    void aNoteThatIsDeletedHereIsKept_data() {
        QTest::addColumn<bool>("isSent");
        QTest::addRow("never synchronized") << false;
        QTest::addRow("synchronized") << true;
    }
    void aNoteThatIsDeletedHereIsKept() {
        QFETCH(bool, isSent);
        const Note note = add(QStringLiteral("a"), QStringLiteral("one"));
        add(QStringLiteral("b"), QStringLiteral("two"));
        if (isSent) {
            run<SyncSession>();
        }
        QVERIFY(inbox()->removeNote(note));
        const QList<NoteVersion> deleted = inbox()->deletedNotes().value();
        QCOMPARE(deleted.size(), 1);
        QCOMPARE(deleted.first().title, QStringLiteral("a"));
        QCOMPARE(deleted.first().place, QString());
        QVERIFY(deleted.first().ended.secsTo(QDateTime::currentDateTime()) < 60);
        Note kept = inbox()->noteOfVersion(deleted.first()).value();
        QCOMPARE(kept.UUID, note.UUID);
        QCOMPARE(kept.text, QStringLiteral("one"));
        // Restoring is a new edit, which other computers receive.
        QVERIFY(inbox()->saveNote(kept));
        QVERIFY(inbox()->deletedNotes().value().isEmpty());
        QCOMPARE(textsOf(inbox()->earlierVersions(note).value()),
                 QStringList{QStringLiteral("one")});
        run<SyncSession>();
        goTo(m_there);
        QCOMPARE(noteWithTitle(QStringLiteral("a")).text, QStringLiteral("one"));
    }

    void theVersionThatAnEditReplacesIsKept() {
        add(QStringLiteral("a"), QStringLiteral("sent"));
        run<SyncSession>();
        edit(QStringLiteral("a"), QStringLiteral("not sent"));
        edit(QStringLiteral("a"), QStringLiteral("last"));
        QCOMPARE(earlierTexts(QStringLiteral("a")),
                 QStringList({QStringLiteral("not sent"), QStringLiteral("sent")}));
        QVERIFY(inbox()->deletedNotes().value().isEmpty());
    }

    /// The text is saved whenever the user pauses.
    void typingAddsNoVersions() {
        add(QStringLiteral("a"), QStringLiteral("The end"));
        edit(QStringLiteral("a"), QStringLiteral("The happy end"));
        edit(QStringLiteral("a"), QStringLiteral("The happy end."));
        QVERIFY(earlierTexts(QStringLiteral("a")).isEmpty());
        edit(QStringLiteral("a"), QStringLiteral("The end."));
        QCOMPARE(earlierTexts(QStringLiteral("a")), QStringList{QStringLiteral("The happy end.")});
        run<SyncSession>();
        edit(QStringLiteral("a"), QStringLiteral("The end. No."));
        QCOMPARE(earlierTexts(QStringLiteral("a")),
                 QStringList({QStringLiteral("The end."), QStringLiteral("The happy end.")}));
    }

    void theVersionThatASynchronizationReplacesOrDeletesIsKept_data() {
        QTest::addColumn<bool>("isCleanedUp");
        QTest::addRow("at once") << false;
        QTest::addRow("after a clean-up") << true;
    }
    void theVersionThatASynchronizationReplacesOrDeletesIsKept() {
        QFETCH(bool, isCleanedUp);
        add(QStringLiteral("a"), QStringLiteral("one"));
        add(QStringLiteral("b"), QStringLiteral("two"));
        run<SyncSession>();
        goTo(m_there);
        edit(QStringLiteral("a"), QStringLiteral("changed"));
        QVERIFY(inbox()->removeNote(noteWithTitle(QStringLiteral("b"))));
        run<SyncSession>();
        if (isCleanedUp) {
            run<CleanSession>();
        }
        goTo(m_here);
        QCOMPARE(earlierTexts(QStringLiteral("a")), QStringList{QStringLiteral("one")});
        QCOMPARE(deletedTexts(), QStringList{QStringLiteral("two")});
        QCOMPARE(inbox()->deletedNotes().value().first().place, QStringLiteral("Home"));
        run<CleanSession>();
        m_host->restart();
        QCOMPARE(deletedTexts(), QStringList{QStringLiteral("two")});
    }

    void aConflictingEditThatIsReplacedIsKept() {
        add(QStringLiteral("a"), QStringLiteral("one"));
        run<SyncSession>();
        goTo(m_there);
        edit(QStringLiteral("a"), QStringLiteral("there"));
        run<SyncSession>();
        m_host->goToComputer(m_here);
        edit(QStringLiteral("a"), QStringLiteral("here"));
        run<SyncSession>();
        const QList<Note> notes = inbox()->notes().value();
        QCOMPARE(notes.size(), 2);
        const QString lost = notes.at(1).text;
        QVERIFY(inbox()->removeNote(notes.at(1)));
        QVERIFY(earlierTexts(QStringLiteral("a")).contains(lost));
    }

    void versionsAreKeptForThirtyDays() {
        QCOMPARE(m_host->library().historyLimits().value(), (HistoryLimits{30, 256}));
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("old"))));
        QVERIFY(inbox()->removeNote(add(QStringLiteral("b"), QStringLiteral("new"))));
        const auto age = [this](const QString &title, int days) {
            const QDateTime ended = QDateTime::currentDateTime().addDays(-days).addSecs(60);
            QVERIFY(profile().run(QStringLiteral("UPDATE versions SET ended = ? WHERE title = ?"),
                                  {ended.toMSecsSinceEpoch(), title}));
        };
        age(QStringLiteral("a"), 30);
        add(QStringLiteral("c"), {});
        QCOMPARE(deletedTexts().size(), 2);
        age(QStringLiteral("a"), 31);
        add(QStringLiteral("d"), {});
        QCOMPARE(deletedTexts(), QStringList{QStringLiteral("new")});
        age(QStringLiteral("b"), 8);
        QCOMPARE(m_host->library().countOfVersionsBeyond({9, 256}).value(), 0);
        QCOMPARE(m_host->library().countOfVersionsBeyond({7, 256}).value(), 1);
        QVERIFY(m_host->library().setHistoryLimits({7, 256}));
        QVERIFY(deletedTexts().isEmpty());
        QCOMPARE(profile().value(QStringLiteral("SELECT bytes FROM size_of_versions")).value(), 0);
    }

    void theOldestGoFirstBeyondTheSize() {
        QVERIFY(m_host->library().setHistoryLimits({30, 1}));
        m_host->restart();
        QCOMPARE(m_host->library().historyLimits().value(), (HistoryLimits{30, 1}));
        for (int i = 0; i < 6; ++i) {
            const QString text(300000, QChar(u'0' + i));
            QVERIFY(inbox()->removeNote(add(QString::number(i), text)));
        }
        QStringList titles;
        const QList<NoteVersion> deleted = inbox()->deletedNotes().value();
        for (const NoteVersion &version : deleted) {
            titles.append(version.title);
        }
        QCOMPARE(titles,
                 QStringList({QStringLiteral("5"), QStringLiteral("4"), QStringLiteral("3")}));
        QVERIFY(
            profile().value(QStringLiteral("SELECT bytes FROM size_of_versions"))->toLongLong() <=
            1 << 20);
        // Many small ones take space, too.
        for (int i = 0; i < 700; ++i) {
            QVERIFY(profile().run(
                QStringLiteral("INSERT INTO versions (ended, size, database, note_uuid, place,"
                               " title, text) SELECT ended, 2000, database, 'u', '', '', ''"
                               " FROM versions LIMIT 1")));
        }
        add(QStringLiteral("last"), {});
        QVERIFY(
            profile().value(QStringLiteral("SELECT bytes FROM size_of_versions"))->toLongLong() <=
            1 << 20);
    }

    /// Of 20,000 versions, every second one is too old.
    void oldVersionsAreRemovedAfterTheStart() {
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("kept"))));
        QVERIFY(profile().run(
            QStringLiteral("INSERT INTO versions (ended, size, database, note_uuid, place, title,"
                           " text) WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT n + 1"
                           " FROM number WHERE n < 20000) SELECT ended - (n % 2) * ?, 2000,"
                           " database, 'u' || n, '', '', '' FROM number, versions"),
            {QVariant::fromValue(31LL * 24 * 3600 * 1000)}));
        m_host->restart();
        const auto count = [this] {
            return profile().value(QStringLiteral("SELECT count(*) FROM versions")).value();
        };
        QCOMPARE(count(), 20001);
        StallMeter meter;
        QTRY_COMPARE(count(), 10001);
        QVERIFY2(meter.longestWork() < 1000, qPrintable(QString::number(meter.longestWork())));
        QCOMPARE(profile().value(QStringLiteral("SELECT bytes FROM size_of_versions")).value(),
                 profile().value(QStringLiteral("SELECT sum(size) FROM versions")).value());
        QVERIFY(deletedTexts().contains(QStringLiteral("kept")));
    }

    /// Removing large texts takes long.
    void versionsAreRemovedByTheirSize_data() {
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("megabytes");
        QTest::newRow("too old") << 31 << 256;
        QTest::newRow("too large together") << 0 << 1;
    }
    void versionsAreRemovedByTheirSize() {
        QFETCH(const int, days);
        QFETCH(const int, megabytes);
        const QDateTime now = QDateTime::currentDateTime();
        QVERIFY(m_host->library().setHistoryLimits({30, megabytes}));
        addLargeVersions(now.addDays(-days));
        QVERIFY(profile().write([&] { return NoteHistory::prune(profile(), now); }));
        QCOMPARE(countOfVersions(), 30 - 8);
        QVERIFY(profile().write([&] { return pruneAll(now); }));
        QCOMPARE(countOfVersions(), days > 0 ? 0 : 1);
    }

    void lowerLimitsRemoveInShortSteps() {
        addLargeVersions(QDateTime::currentDateTime());
        QVERIFY(m_host->library().setHistoryLimits({30, 1}));
        QCOMPARE(countOfVersions(), 30 - 8);
        QTRY_COMPARE(countOfVersions(), 1);
        QVERIFY(m_host->application().logEntries().isEmpty());
    }

    void removingWaitsForALaterTimeIfTheLogCannotBeMoved() {
        // The oldest ones are at the end of the file.
        QVERIFY(profile().run(
            QStringLiteral("INSERT INTO versions (ended, size, database, note_uuid, place, title,"
                           " text) WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT n + 1"
                           " FROM number WHERE n < 64) SELECT ? - n, 1048576, databases.id,"
                           " 'u' || n, '', '', hex(zeroblob(524288))"
                           " FROM number, databases WHERE is_inbox"),
            {QDateTime::currentMSecsSinceEpoch()}));
        m_host->restart();
        const auto &logged = m_host->application().logEntries();
        const qsizetype before = logged.size();
        qint64 left = 0;
        {
            const FileSizeLimit half(32 << 20);
            QVERIFY(m_host->library().setHistoryLimits({30, 1}));
            QTRY_COMPARE_GE(logged.size(), before + 1);
            left = countOfVersions();
            QCOMPARE_GT(left, 1);
            // Many times longer than the pause between two steps.
            QTest::qWait(500);
        }
        QCOMPARE(logged.size(), before + 1);
        QCOMPARE(countOfVersions(), left);
        QVERIFY(m_host->library().setHistoryLimits({30, 1}));
        QTRY_COMPARE(countOfVersions(), 1);
    }

    /// What is deleted is overwritten, by way of the log.
    void theLogStaysShortWhileMuchIsRemoved() {
        QVERIFY(profile().run(
            QStringLiteral("INSERT INTO versions (ended, size, database, note_uuid, place, title,"
                           " text) WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT n + 1"
                           " FROM number WHERE n < 64) SELECT ?, 1048576, databases.id,"
                           " 'u' || n, '', '', hex(zeroblob(524288))"
                           " FROM number, databases WHERE is_inbox"),
            {QDateTime::currentMSecsSinceEpoch()}));
        m_host->restart();
        QVERIFY(m_host->library().setHistoryLimits({30, 1}));
        QTRY_COMPARE(countOfVersions(), 1);
        QCOMPARE_LT(QFileInfo(ProfileFolder::logOf(profile().path())).size(), 24 << 20);
    }

    void aClockThatIsAheadOnceRemovesNothing() {
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("kept"))));
        const auto start = [this](const QDateTime &now) {
            QVERIFY(profile().write([&] {
                return NoteHistory::advanceTime(profile(), now).and_then([&] {
                    return pruneAll(now);
                });
            }));
        };
        // Later than the removal, which may have been in the same millisecond.
        const QDateTime now = QDateTime::currentDateTime().addMSecs(1);
        start(now);
        start(now.addDays(400));
        QVERIFY(profile().write([&] { return pruneAll(now.addDays(400)); }));
        QCOMPARE(deletedTexts(), QStringList{QStringLiteral("kept")});
        // Setting the clock right brings the time back.
        start(now);
        for (int day = 1; day < 30; ++day) {
            start(now.addDays(400));
        }
        QCOMPARE(deletedTexts(), QStringList{QStringLiteral("kept")});
        start(now.addDays(400));
        QVERIFY(deletedTexts().isEmpty());
    }

    /// What was deleted by a clock that was behind has not aged when the clock is right again.
    void aClockThatIsBehindOnceRemovesNothing() {
        const QDateTime right = QDateTime::currentDateTime().addDays(400);
        QVERIFY(profile().run(
            QStringLiteral("INSERT OR IGNORE INTO settings VALUES ('historyTime', 0)")));
        QVERIFY(
            profile().run(QStringLiteral("UPDATE settings SET value = ? WHERE key = 'historyTime'"),
                          {right.toMSecsSinceEpoch()}));
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("kept"))));
        QVERIFY(profile().write([&] { return pruneAll(right); }));
        QCOMPARE(deletedTexts(), QStringList{QStringLiteral("kept")});
    }

    void versionsThatCannotBeRemovedAreReported() {
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("old"))));
        QVERIFY(profile().run(QStringLiteral("UPDATE versions SET ended = 0")));
        m_host->restart();
        m_host->makeSavesFail();
        const auto &entries = m_host->application().logEntries();
        QTRY_COMPARE(entries.size(), 1);
        QVERIFY(entries.first().info.contains(QStringLiteral("cannot be read or written")));
        QCOMPARE(deletedTexts().size(), 1);
    }

    void nothingIsRemovedIfALimitIsNotANumber() {
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("old"))));
        QVERIFY(profile().run(QStringLiteral("UPDATE versions SET ended = 1")));
        for (const char *value : {"-5", "forever", ""}) {
            QVERIFY(profile().run(
                QStringLiteral("INSERT OR REPLACE INTO settings VALUES ('historyDays', ?)"),
                {QString::fromLatin1(value)}));
            QVERIFY(m_host->library().historyLimits().value().days > 365'000);
            QVERIFY(!NoteHistory::exceedsLimits(profile(), QDateTime::currentDateTime()).value());
            QVERIFY(pruneAll(QDateTime::currentDateTime()));
            QCOMPARE(deletedTexts(), QStringList{QStringLiteral("old")});
        }
    }

    void aVersionThatIsGoneCannotBeRestored() {
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("one"))));
        const NoteVersion version = inbox()->deletedNotes().value().first();
        QVERIFY(profile().run(QStringLiteral("DELETE FROM versions")));
        const Expected<Note> note = inbox()->noteOfVersion(version);
        QCOMPARE(code(note), EngineErrorCode::InvalidDatabase);
        QVERIFY(description(note).contains(QStringLiteral("“a”")));
    }

    void aProfileWithoutHistoryIsUpgraded() {
        add(QStringLiteral("a"), QStringLiteral("one"));
        for (const char *statement :
             {"DROP TABLE versions", "DROP TABLE size_of_versions", "PRAGMA user_version = 2"}) {
            QVERIFY(profile().run(QString::fromLatin1(statement)));
        }
        m_host->restart();
        QCOMPARE(profile().value(QStringLiteral("PRAGMA user_version")).value(),
                 ProfileInspection::SchemaVersion);
        edit(QStringLiteral("a"), QStringLiteral("changed"));
        QCOMPARE(earlierTexts(QStringLiteral("a")), QStringList{QStringLiteral("one")});
    }

    void aFailedReadIsAnError_data() {
        QTest::addColumn<int>("fault");
        QTest::addRow("all rows") << static_cast<int>(FailingTable::Fault::AllRows);
        QTest::addRow("later rows") << static_cast<int>(FailingTable::Fault::LaterRows);
    }
    void aFailedReadIsAnError() {
        QFETCH(int, fault);
        const Note kept = add(QStringLiteral("c"), QStringLiteral("one"));
        edit(QStringLiteral("c"), QStringLiteral("two"));
        edit(QStringLiteral("c"), QStringLiteral("three"));
        QVERIFY(inbox()->removeNote(add(QStringLiteral("a"), QStringLiteral("x"))));
        QVERIFY(inbox()->removeNote(add(QStringLiteral("b"), QStringLiteral("y"))));
        const NoteVersion last = inbox()->deletedNotes().value().first();
        Note note = noteWithTitle(QStringLiteral("c"));
        note.text = QStringLiteral("lost");
        const FailingTable failing(profile(), QStringLiteral("versions"),
                                   static_cast<FailingTable::Fault>(fault));
        QCOMPARE(code(inbox()->deletedNotes()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(inbox()->noteOfVersion(last)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(inbox()->earlierVersions(kept)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(inbox()->saveNote(note)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(m_host->library().setHistoryLimits({1, 1})),
                 EngineErrorCode::ProfileNotWritten);
        const QDateTime now = QDateTime::currentDateTime();
        QCOMPARE(code(NoteHistory::exceedsLimits(profile(), now)),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(NoteHistory::countBeyond(profile(), {1, 1}, now)),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(noteWithTitle(QStringLiteral("c")).text, QStringLiteral("three"));
    }

    void aFailedReadOfTheLimitsIsAnError() {
        Note note = add(QStringLiteral("a"), QStringLiteral("one"));
        const FailingTable failing(profile(), QStringLiteral("settings"),
                                   FailingTable::Fault::AllRows);
        QCOMPARE(code(m_host->library().historyLimits()), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(inbox()->removeNote(note)), EngineErrorCode::ProfileNotWritten);
        QCOMPARE(noteWithTitle(QStringLiteral("a")).text, QStringLiteral("one"));
    }

    void aFailedReadOfTheSizeIsAnError() {
        Note note = add(QStringLiteral("a"), QStringLiteral("one"));
        const FailingTable failing(profile(), QStringLiteral("size_of_versions"),
                                   FailingTable::Fault::AllRows);
        QCOMPARE(code(inbox()->removeNote(note)), EngineErrorCode::ProfileNotWritten);
    }
};

VELMORA_TEST(NoteHistoryTest)
#include "NoteHistoryTest.moc"
