#include "Host/Notifications.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class EngineNoteLibraryTest : public QObject {
    Q_OBJECT
private:
    struct Posted {
        QString name;
        QObject *object;
        QString databaseName;
        qsizetype openCount;
        bool operator==(const Posted &) const = default;
    };
    QList<Posted> m_posted;

private Q_SLOTS:
    void init() {
        m_posted.clear();
        for (const QString &name : {QVSyncPluginDidOpenDatabase, QVSyncPluginDidCloseDatabase,
                                    QVDatabaseRenamedNotification}) {
            NotificationCenter::defaultCenter().addObserver(
                this, name, [this](const Notification &notification) {
                    m_posted.append({notification.name, notification.object,
                                     qobject_cast<QVDatabase *>(notification.object)->name(),
                                     QVDatabase::databases().size()});
                });
        }
    }

    void cleanup() { NotificationCenter::defaultCenter().removeObserver(this); }

    void aNewDatabaseIsOpenAndPosted() {
        TestHost host;
        QSignalSpy known(&host.library(), &NoteLibrary::knownDatabasesChanged);
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        QCOMPARE(known.count(), 1);
        QVERIFY(database->isOpen() && !database->isInbox());
        QVERIFY(!database->UUID().isEmpty());
        QCOMPARE(m_posted, (QList<Posted>{{QVSyncPluginDidOpenDatabase, database.get(),
                                           QStringLiteral("Letters"), 2}}));
        QCOMPARE(QVSyncPlugin::databaseForUUID(database->UUID(), false), database);
        host.restart();
        QCOMPARE(host.library().knownDatabases().last()->name(), QStringLiteral("Letters"));
    }

    void theOpenDatabasesHaveTheInboxFirstAndThenTheOldest() {
        TestHost host;
        const auto first = host.addDatabase(QStringLiteral("B"));
        const auto second = host.addDatabase(QStringLiteral("A"));
        QCOMPARE(QVDatabase::databases(),
                 (QList<std::shared_ptr<QVDatabase>>{host.inbox(), first, second}));
        QCOMPARE(NSApp()->inbox(), host.inbox());
    }

    void closingAndOpeningIsPostedOnceAndKept() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        m_posted.clear();
        QSignalSpy open(database.get(), &NoteDatabase::openChanged);
        host.closeDatabase(database);
        host.closeDatabase(database);
        QCOMPARE(open.count(), 1);
        QVERIFY(!database->isOpen());
        QCOMPARE(m_posted, (QList<Posted>{{QVSyncPluginDidCloseDatabase, database.get(),
                                           QStringLiteral("Letters"), 1}}));
        QCOMPARE(QVSyncPlugin::databaseForUUID(database->UUID(), false), database);
        QCOMPARE(QVSyncPlugin::databaseForUUID(database->UUID(), true), database);

        host.restart();
        const auto reopened = host.library().knownDatabases().last();
        QVERIFY(!reopened->isOpen());
        m_posted.clear();
        host.openDatabase(reopened);
        host.openDatabase(reopened);
        QCOMPARE(m_posted, (QList<Posted>{{QVSyncPluginDidOpenDatabase, reopened.get(),
                                           QStringLiteral("Letters"), 2}}));
    }

    void renamingAnnouncesNotifiesAndIsStored() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        m_posted.clear();
        QSignalSpy name(database.get(), &QVDatabase::nameChanged);
        host.renameDatabase(database, QStringLiteral("Post"));
        QCOMPARE(name.count(), 1);
        QCOMPARE(m_posted, (QList<Posted>{{QVDatabaseRenamedNotification, database.get(),
                                           QStringLiteral("Post"), 2}}));
        host.restart();
        QCOMPARE(host.library().knownDatabases().last()->name(), QStringLiteral("Post"));
    }

    void aNameMustNotBeEmpty() {
        TestHost host;
        for (const QString &name : {QString(), QStringLiteral(" \t")}) {
            QVERIFY(!host.library().createDatabase(name));
            QVERIFY(!host.library().renameDatabase(host.inbox(), name));
        }
        QCOMPARE(host.library().knownDatabases().size(), 1);
        QCOMPARE(host.inbox()->name(), QStringLiteral("Inbox"));
        QVERIFY(m_posted.isEmpty());
    }

    void aFailedWriteChangesNothing() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        m_posted.clear();
        host.makeSavesFail();
        Note note{{}, QStringLiteral("t"), QStringLiteral("x"), {}};
        QVERIFY(!host.library().createDatabase(QStringLiteral("New")));
        QVERIFY(!host.library().renameDatabase(database, QStringLiteral("Post")));
        QVERIFY(!host.library().closeDatabase(database));
        QVERIFY(!database->saveNote(note));
        QVERIFY(note.UUID.isEmpty());
        QCOMPARE(host.library().knownDatabases().size(), 2);
        QCOMPARE(database->name(), QStringLiteral("Letters"));
        QVERIFY(database->isOpen());
        QVERIFY(database->notes().value().isEmpty());
        QVERIFY(m_posted.isEmpty());
    }

    void notesAreKeptInTheOrderInWhichTheyWereAdded() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        QSignalSpy changed(database.get(), &NoteDatabase::notesChanged);
        Note first{{},
                   QStringLiteral("Zoë’s"),
                   QStringLiteral("Line\nTwo\0three 𝄞"),
                   QDateTime::fromMSecsSinceEpoch(1234567890123)};
        Note second{QStringLiteral("0f7e2f2c-9d1b-4a53-9c6e-0d9f6f3f8a11"), {}, {}, {}};
        QVERIFY(database->saveNote(first));
        QVERIFY(!first.UUID.isEmpty());
        QVERIFY(database->saveNote(second));
        QCOMPARE(second.UUID, QStringLiteral("0f7e2f2c-9d1b-4a53-9c6e-0d9f6f3f8a11"));
        first.title = QStringLiteral("Changed");
        QVERIFY(database->saveNote(first));
        QCOMPARE(changed.count(), 3);
        QCOMPARE(database->notes(), (QList<Note>{first, second}));
        host.restart();
        const auto again = host.library().knownDatabases().last();
        QCOMPARE(again->notes(), (QList<Note>{first, second}));
        QVERIFY(again->removeNote(first));
        QVERIFY(again->removeNote(Note{.UUID = QStringLiteral("none")}));
        QCOMPARE(again->notes(), (QList<Note>{second}));
        QVERIFY(host.inbox()->notes().value().isEmpty());
    }

    void aNoteThatCannotBeSynchronizedIsNotSaved() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        Note note{QStringLiteral("../../note"), QStringLiteral("t"), {}, {}};
        QVERIFY(!database->saveNote(note));
        note = {{}, QStringLiteral("t"), QString(Operation::NoteLimit, u'x'), {}};
        QVERIFY(!database->saveNote(note));
        QVERIFY(database->notes().value().isEmpty());
        QVERIFY(!host.library().createDatabase(QString(Operation::NameLimit + 1, u'x')));
        // What is no character would be another one on the next computer.
        note = {{}, QString(QChar(0xd800)), {}, {}};
        QVERIFY(database->saveNote(note));
        QVERIFY(note.title.isValidUtf16());
        QCOMPARE(database->notes(), QList<Note>{note});
    }

    /// What resolves a conflict follows from its edits, so a store can supersede it in advance.
    void aResolvedConflictSurvivesIfItsResultIsSupersededAlready() {
        TestHost host;
        const auto database = host.library().synchronizedDatabase(
            host.addDatabase(QStringLiteral("Letters"))->UUID());
        const QString UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
        const Operation one =
            Operation::make(UUID, QStringLiteral("t"), QStringLiteral("1"), 1, {});
        const Operation two =
            Operation::make(UUID, QStringLiteral("t"), QStringLiteral("2"), 2, {});
        const QList<OperationId> both{one.id, two.id};
        const Merge merge{.operations = {one, two}, .superseded = {one.resolving(both).id}};
        QVERIFY(database->merge(merge, [] { return Expected<void>(); }));
        QList<Note> edits = database->notes().value();
        QCOMPARE(edits.size(), 2);
        QVERIFY(database->resolveConflict(edits[1], edits[0]));
        const QList<Note> left = database->notes().value();
        QCOMPARE(left.size(), 1);
        QCOMPARE(left.first().UUID, UUID);
        QCOMPARE(left.first().text, QStringLiteral("1"));
        QCOMPARE(left.first().revision, edits[1].revision);
        // The kept edit is no earlier version of itself.
        QCOMPARE(database->earlierVersions({.UUID = UUID}).value().size(), 1);
    }

    void removingANoteWithoutUUIDRemovesNothing() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        QVERIFY(database->removeNote({}));
        QCOMPARE(host.library().synchronizedDatabase(database->UUID())->log().name(),
                 QStringLiteral("Letters"));
    }

    void twoDatabasesMayHoldNotesOfOneUUID() {
        TestHost host;
        const auto database = host.addDatabase(QStringLiteral("Letters"));
        Note note{
            QStringLiteral("0f7e2f2c-9d1b-4a53-9c6e-0d9f6f3f8a11"), QStringLiteral("a"), {}, {}};
        QVERIFY(database->saveNote(note));
        note.title = QStringLiteral("b");
        QVERIFY(host.inbox()->saveNote(note));
        QCOMPARE(database->notes().value().first().title, QStringLiteral("a"));
    }

    void anUnknownDatabaseIsNotFound() {
        TestHost host;
        QVERIFY(!QVSyncPlugin::databaseForUUID(QStringLiteral("@inbox"), true));
        QVERIFY(!QVSyncPlugin::databaseForUUID(QString(), true));
    }
};

VELMORA_TEST(EngineNoteLibraryTest)
#include "EngineNoteLibraryTest.moc"
