#include "Application/UnsavedTexts.h"

#include <sys/mount.h>
#include <sys/syscall.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>
#include <QtCore/QUuid>
#include <QtWidgets/QPlainTextEdit>
#include <algorithm>
#include <cerrno>

#include "Application/NotesView.h"
#include "Platform/Foundation/ExactText.h"
#include "Support/FailingSystemCall.h"
#include "Support/PrivateVolume.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Typed text while the disk of the profile is full.
class UnsavedTextsTest : public QObject {
    Q_OBJECT
private:
    static constexpr qint64 VolumeSize = 4 << 20;
    /// Leaves room for the reserve.
    static constexpr qint64 LargeVolumeSize = 96 << 20;

    QTemporaryDir m_folder;
    std::unique_ptr<PrivateVolume> m_volume;
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;

    QString volume() const { return m_folder.filePath(QStringLiteral("volume")); }
    QString filler() const { return volume() + QStringLiteral("/filler"); }
    QString cache() const {
        return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    }

    void fillVolume() const {
        m_volume->fill();
        QCOMPARE(QStorageInfo(volume()).bytesAvailable(), 0);
    }
    static QStringList journalIn(const QString &folder) {
        return QDir(folder).entryList({QStringLiteral("unsaved-*")});
    }
    UnsavedTexts unsavedTexts() const { return unsavedTexts(m_host->directory()); }
    UnsavedTexts unsavedTexts(const QString &folder) const {
        return {folder, m_host->inbox()->UUID()};
    }
    QString reserve() const { return m_host->directory() + QStringLiteral("/reserve"); }
    static QString newUUID() { return QUuid::createUuid().toString(QUuid::WithoutBraces); }
    void openDatabase() { m_database = m_host->library().knownDatabases().last(); }

    void start(qint64 volumeSize) {
        qputenv("XDG_CACHE_HOME", m_folder.filePath(QStringLiteral("cache")).toUtf8());
        m_volume = std::make_unique<PrivateVolume>(volume(), volumeSize);
        // TestHost makes its profile there.
        qputenv("TMPDIR", volume().toUtf8());
        m_host = std::make_unique<TestHost>();
        m_host->addDatabase(QStringLiteral("Plans"));
        openDatabase();
        Note note{.title = QStringLiteral("Trip"), .text = QStringLiteral("Pack ")};
        QVERIFY(m_database->saveNote(note));
    }

private Q_SLOTS:
    void init() { start(VolumeSize); }
    void cleanup() {
        m_database.reset();
        QFile::remove(filler());
        m_host.reset();
        m_volume.reset();
        qunsetenv("TMPDIR");
    }

    void aTextIsKeptOnAnotherDiskAndSavedAtTheNextStart() {
        fillVolume();
        // More than the free part of the database's pages.
        const QString typed(200'000, u'y');
        {
            NotesView view{unsavedTexts()};
            view.setDatabase(m_database);
            view.findChild<QPlainTextEdit *>()->setPlainText(typed);
            QVERIFY(!view.commit());
        }
        QVERIFY(journalIn(m_host->directory()).isEmpty());
        QCOMPARE(journalIn(cache()).size(), 1);
        QCOMPARE(QFileInfo(QDir(cache()).filePath(journalIn(cache()).first())).permissions() &
                     (QFile::ReadGroup | QFile::ReadOther),
                 QFile::Permissions());

        m_database.reset();
        QVERIFY(QFile::remove(filler()));
        m_host->restart();
        openDatabase();
        QCOMPARE(unsavedTexts().restore(m_host->library()).titles,
                 QStringList{QStringLiteral("Trip")});
        QCOMPARE(m_database->notes().value().size(), 1);
        QCOMPARE(m_database->notes().value().first().text, typed);
        QVERIFY(journalIn(cache()).isEmpty());
    }

    void everyCharacterIsKept() {
        Note note = m_database->notes().value().first();
        note.title = QStringLiteral("\uFEFF\uFFFE title");
        note.text = QStringLiteral("\uFEFF\r\n\uFFFF text");
        const UnsavedTexts journal = unsavedTexts();
        QVERIFY(journal.keep(m_database->UUID(), note));
        QVERIFY(journal.restore(m_host->library()).result);
        QCOMPARE(m_database->notes().value().first().title, note.title);
        QCOMPARE(m_database->notes().value().first().text, note.text);
    }

    void theTextOfADeletedDatabaseIsInTheInbox() {
        Note note = m_database->notes().value().first();
        note.text = QStringLiteral("Pack the tent.");
        QVERIFY(unsavedTexts().keep(m_database->UUID(), note));
        QVERIFY(m_host->library().deleteDatabase(m_database));
        m_database.reset();
        m_host->restart();
        QCOMPARE(unsavedTexts().restore(m_host->library()).titles,
                 QStringList{QStringLiteral("Trip")});
        const QList<Note> notes = m_host->inbox()->notes().value();
        QVERIFY(std::any_of(notes.begin(), notes.end(),
                            [&](const Note &each) { return each.text == note.text; }));
        QVERIFY(journalIn(cache()).isEmpty() && journalIn(m_host->directory()).isEmpty());
    }

    void aTextThatStillCannotBeSavedStaysThere() {
        fillVolume();
        Note note{.UUID = newUUID(), .title = QStringLiteral("Trip")};
        note.text = QString(200'000, u'y');
        const UnsavedTexts texts = unsavedTexts();
        QVERIFY(texts.keep(m_database->UUID(), note));
        QVERIFY(!texts.restore(m_host->library()).result);
        const QStringList kept = journalIn(cache());
        QCOMPARE(kept.size(), 1);
        // What the user does with the note afterwards leaves the text alone.
        QVERIFY(texts.keep(m_database->UUID(), {.UUID = note.UUID, .text = QStringLiteral("b")}));
        QCOMPARE(journalIn(cache()).size(), 2);
        QVERIFY(texts.remove(note.UUID));
        QCOMPARE(journalIn(cache()), kept);
        QVERIFY(!texts.restore(m_host->library()).result);
        QCOMPARE(journalIn(cache()), kept);
        QVERIFY(QFile::remove(filler()));
        const UnsavedTexts::Restored restored = texts.restore(m_host->library());
        QVERIFY(restored.result);
        QCOMPARE(restored.titles, QStringList{note.title});
        QCOMPARE(m_database->notes().value().last().text, note.text);
        QVERIFY(journalIn(cache()).isEmpty());
    }

    void aTextThatCannotBeRestoredStopsNoOther() {
        const QString damaged = m_host->directory() + QStringLiteral("/unsaved-0-0-0.json");
        QFile file(damaged);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write("{"), 1);
        file.close();
        const UnsavedTexts texts = unsavedTexts();
        const Note refused{
            .UUID = newUUID(), .title = QStringLiteral("Refused"), .text = QString(9 << 20, u'y')};
        QVERIFY(texts.keep(m_database->UUID(), refused));
        fillVolume();
        const Note accepted{
            .UUID = newUUID(), .title = QStringLiteral("Accepted"), .text = QStringLiteral("text")};
        QVERIFY(texts.keep(m_database->UUID(), accepted));
        QVERIFY(QFile::remove(filler()));
        QCOMPARE(journalIn(cache()).size(), 2);

        const UnsavedTexts::Restored restored = texts.restore(m_host->library());
        QCOMPARE(restored.titles, QStringList{accepted.title});
        QCOMPARE(m_database->notes().value().size(), 2);
        QVERIFY(!restored.result);
        const QStringList left = journalIn(cache()) + journalIn(m_host->directory());
        QCOMPARE(left.size(), 2);
        for (const QString &name : left) {
            QVERIFY(restored.result.error().localizedFailureReason.contains(name));
        }
        QVERIFY(QFile::remove(cache() + u'/' + left.first()));
    }

    void aFileThatLacksAPartIsDamaged_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QJsonValue>("value");
        for (const char *key : {"database", "note", "revision", "title", "text", "modified"}) {
            QTest::addRow("without %s", key)
                << QString::fromLatin1(key) << QJsonValue(QJsonValue::Undefined);
            QTest::addRow("another type of %s", key)
                << QString::fromLatin1(key) << QJsonValue(QJsonArray{1});
        }
    }
    void aFileThatLacksAPartIsDamaged() {
        QFETCH(const QString, key);
        QFETCH(const QJsonValue, value);
        const UnsavedTexts texts = unsavedTexts();
        Note note = m_database->notes().value().first();
        note.text = QStringLiteral("typed");
        QVERIFY(texts.keep(m_database->UUID(), note));
        const QString path = m_host->directory() + u'/' + journalIn(m_host->directory()).first();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QJsonObject object = ExactText::objectIn(file.readAll());
        file.close();
        QVERIFY(object.contains(key));
        object[key] = value;
        const QByteArray damaged = ExactText::json(object);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(damaged), damaged.size());
        file.close();

        const UnsavedTexts::Restored restored = texts.restore(m_host->library());
        QCOMPARE(restored.titles, QStringList());
        QVERIFY(!restored.result);
        const QString told = restored.result.error().localizedFailureReason;
        QVERIFY2(told.contains(QStringLiteral("The file is damaged.")), qPrintable(told));
        QCOMPARE(journalIn(m_host->directory()).size(), 1);
        const QList<Note> notes = m_database->notes().value();
        QCOMPARE(notes.size(), 1);
        QCOMPARE(notes.first().text, QStringLiteral("Pack "));
        QVERIFY(m_host->inbox()->notes().value().isEmpty());
    }

    /// A regular file whose reads fail.
    void aFileThatCannotBeReadIsNotDamaged() {
        const QString unreadable = QStringLiteral("/proc/self/mem");
        QVERIFY(
            QFile::link(unreadable, m_host->directory() + QStringLiteral("/unsaved-0-0-0.json")));
        const UnsavedTexts texts = unsavedTexts();
        for (int start = 0; start < 2; ++start) {
            const UnsavedTexts::Restored restored = texts.restore(m_host->library());
            QVERIFY(!restored.result);
            const QString told = restored.result.error().localizedFailureReason;
            QVERIFY2(told.contains(QStringLiteral("The file cannot be read (")), qPrintable(told));
            QVERIFY2(!told.contains(QStringLiteral("damaged")), qPrintable(told));
            const QStringList kept = journalIn(m_host->directory());
            QCOMPARE(kept.size(), 1);
            QCOMPARE(QFile::symLinkTarget(m_host->directory() + u'/' + kept.first()), unreadable);
        }
        const QStringList left = journalIn(m_host->directory());
        QVERIFY(QFile::remove(m_host->directory() + u'/' + left.first()));
    }

    void aFolderThatCannotBeReadIsReported() {
        const UnsavedTexts texts = unsavedTexts();
        UnsavedTexts::Restored restored;
        runWithFailingSystemCall(SYS_getdents64, EIO,
                                 [&] { restored = texts.restore(m_host->library()); });
        QVERIFY(!restored.result);
        QVERIFY(restored.result.error().localizedFailureReason.contains(m_host->directory()));
    }

    void aProfileThatCannotBeReachedIsReported() {
        const UnsavedTexts texts = unsavedTexts();
        UnsavedTexts::Restored restored;
        Expected<void> removed;
        runWithFailingSystemCall(SYS_newfstatat, EACCES, [&] {
            restored = texts.restore(m_host->library());
            removed = texts.remove(newUUID());
        });
        QVERIFY(!restored.result);
        const QString reason = restored.result.error().localizedFailureReason;
        QVERIFY2(reason.contains(m_host->directory()), qPrintable(reason));
        QVERIFY2(reason.contains(QStringLiteral("Permission denied")), qPrintable(reason));
        QVERIFY(!removed);
        QVERIFY(texts.restore(m_host->library()).result);
    }

    void anotherProfilesTextsAreLeftAlone() {
        fillVolume();
        const UnsavedTexts texts = unsavedTexts();
        QVERIFY(texts.keep(m_database->UUID(), {.UUID = QStringLiteral("a")}));
        QVERIFY(QFile::remove(filler()));
        QVERIFY(UnsavedTexts(volume(), newUUID()).restore(m_host->library()).titles.isEmpty());
        QCOMPARE(journalIn(cache()).size(), 1);
        QVERIFY(texts.remove(QStringLiteral("a")));
    }

    void aTextThatCannotBeRemovedIsNamed() {
        const UnsavedTexts texts = unsavedTexts();
        const Note note{.UUID = newUUID(), .title = QStringLiteral("a")};
        QVERIFY(texts.keep(m_database->UUID(), note));
        const QStringList kept = journalIn(m_host->directory());
        QCOMPARE(kept.size(), 1);
        runWithFailingSystemCall(SYS_unlinkat, EACCES, [&] {
            const Expected<void> removed = texts.remove(note.UUID);
            QVERIFY(!removed);
            const QString told = removed.error().localizedDescription;
            QVERIFY2(told.contains(kept.first()), qPrintable(told));
            QVERIFY2(told.contains(QStringLiteral("Permission denied")), qPrintable(told));
        });
        QCOMPARE(journalIn(m_host->directory()), kept);
        QVERIFY(texts.remove(note.UUID));
        QVERIFY(journalIn(m_host->directory()).isEmpty());
    }

    void aRestoredTextThatCannotBeRemovedIsNamed() {
        const UnsavedTexts texts = unsavedTexts();
        const Note note{.UUID = newUUID(), .title = QStringLiteral("a")};
        QVERIFY(texts.keep(m_database->UUID(), note));
        const QString name = journalIn(m_host->directory()).value(0);
        const QByteArray path = QFile::encodeName(m_host->directory() + u'/' + name);
        // A file that is a mount point cannot be removed.
        QCOMPARE(::mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr), 0);
        const UnsavedTexts::Restored restored = texts.restore(m_host->library());
        QCOMPARE(::umount2(path.constData(), MNT_DETACH), 0);
        QCOMPARE(restored.titles, QStringList{note.title});
        QVERIFY(!restored.result);
        const QString told = restored.result.error().localizedDescription;
        QVERIFY2(told.contains(name), qPrintable(told));
        // The next start does not save it twice.
        QVERIFY(texts.restore(m_host->library()).result);
        QVERIFY(journalIn(m_host->directory()).isEmpty());
        QCOMPARE(m_database->notes().value().size(), 2);
    }

    void aTextThatCannotBeFlushedIsNotKept() {
        const Note note{.UUID = QStringLiteral("u"), .title = QStringLiteral("t"), .text = {}};
        Expected<void> kept;
        runWithFailingSystemCall(SYS_fsync, ENOSPC,
                                 [&] { kept = unsavedTexts().keep(QStringLiteral("d"), note); });
        QVERIFY(!kept);
        const QString reason = kept.error().localizedFailureReason;
        QVERIFY2(reason.contains(qt_error_string(ENOSPC)), qPrintable(reason));
        QVERIFY(journalIn(m_host->directory()).isEmpty());
        QVERIFY(unsavedTexts().keep(QStringLiteral("d"), note));
        QCOMPARE(journalIn(m_host->directory()).size(), 1);
    }

    void textsAreFoundThroughASymbolicLink() {
        const QString link = volume() + QStringLiteral("/link");
        QVERIFY(QFile::link(m_host->directory(), link));
        Note note = m_database->notes().value().first();
        note.text = QStringLiteral("typed");
        QVERIFY(unsavedTexts(link).keep(m_database->UUID(), note));
        QCOMPARE(unsavedTexts().restore(m_host->library()).titles,
                 QStringList{QStringLiteral("Trip")});
        QCOMPARE(m_database->notes().value().first().text, note.text);
        QVERIFY(journalIn(m_host->directory()).isEmpty());
    }

    void aTextIsFoundAfterTheProfileWasMoved() {
        fillVolume();
        const Note note{.UUID = newUUID(), .title = QStringLiteral("Trip")};
        QVERIFY(unsavedTexts().keep(m_database->UUID(), note));
        QVERIFY(QFile::remove(filler()));
        QCOMPARE(
            unsavedTexts(volume() + QStringLiteral("/moved")).restore(m_host->library()).titles,
            QStringList{note.title});
        QVERIFY(journalIn(cache()).isEmpty());
    }

    void aTextIsFoundAfterTheProfileWasBegunAgain() {
        fillVolume();
        const Note note{.UUID = newUUID(), .title = QStringLiteral("Trip")};
        QVERIFY(UnsavedTexts(m_host->directory(), newUUID()).keep(m_database->UUID(), note));
        QVERIFY(QFile::remove(filler()));
        QCOMPARE(unsavedTexts().restore(m_host->library()).titles, QStringList{note.title});
        QVERIFY(journalIn(cache()).isEmpty());
    }

    void theReserveTakesTheTextIfAllDisksAreFull() {
        cleanup();
        start(LargeVolumeSize);
        qputenv("XDG_CACHE_HOME", (volume() + QStringLiteral("/cache")).toUtf8());
        const UnsavedTexts texts = unsavedTexts();
        QVERIFY(texts.restore(m_host->library()).result);
        QCOMPARE(QFileInfo(reserve()).size(), UnsavedTexts::ReserveSize);
        fillVolume();
        const Note note{.UUID = newUUID(), .title = {}, .text = QString(7 << 20, u'y')};
        // The second one replaces the first.
        for (int i = 0; i < 2; ++i) {
            QVERIFY(texts.keep(m_database->UUID(), note));
            QCOMPARE(journalIn(m_host->directory()).size(), 1);
            QVERIFY(!QFile::exists(reserve()));
        }
        QVERIFY(texts.remove(note.UUID));
        QVERIFY(!QFile::exists(reserve()));
        QVERIFY(QFile::remove(filler()));
        QVERIFY(texts.remove(note.UUID));
        QCOMPARE(QFileInfo(reserve()).size(), UnsavedTexts::ReserveSize);
    }

    void withoutAnyPlaceItIsAnError() {
        fillVolume();
        const QString noFolder = filler() + QStringLiteral("/none");
        qputenv("XDG_CACHE_HOME", noFolder.toUtf8());
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_RUNTIME_DIR", noFolder.toUtf8());
        const Expected<void> kept =
            unsavedTexts().keep(m_database->UUID(), {.title = QStringLiteral("Trip")});
        qputenv("XDG_RUNTIME_DIR", runtime);
        QVERIFY(!kept);
        QVERIFY(kept.error().localizedDescription.contains(QStringLiteral("Trip")));
    }
};

VELMORA_TEST_PROGRAM(UnsavedTextsTest)(int argumentCount, char **arguments) {
    enterPrivateMounts();
    prepareTestProcess();
    const QApplication application(argumentCount, arguments);
    UnsavedTextsTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "UnsavedTextsTest.moc"
