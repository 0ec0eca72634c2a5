#pragma once

#include <stdexcept>

#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Notes/NoteConversion.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/SyncStoreLayout.h"
#include "Support/Compaction.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// Base of tests that repeat the same operations, each time with another failure.
/// VELMORA_EVERY_FAULT=1 tries every failure rather than some of them.
class FaultTestCase : public QObject {
    Q_OBJECT
protected:
    /// The texts by title. The name of the database has the empty title.
    using Contents = QMap<QString, QString>;

    enum class Job { Synchronize, CleanUp, Merge };
    /// What a computer does with a store.
    struct StoreStory {
        /// The profile and the store that it begins with.
        QString profile;
        QString store;
        Job job = Job::Synchronize;
    };

    /// The stories by name. The profile and the store "Merged" are those of
    /// mergeWithoutRemoval(), and so on; the store "Damaged" is that of damage(), and "Empty" has
    /// nothing.
    static QMap<QString, StoreStory> storeStories() {
        const QString used = QStringLiteral("Used");
        const QString sound = QStringLiteral("Sound");
        const QString full = QStringLiteral("Full");
        const QString merged = QStringLiteral("Merged");
        return {{QStringLiteral("synchronize"), {used, sound}},
                {QStringLiteral("import"), {QStringLiteral("Unused"), sound}},
                {QStringLiteral("clean up"), {used, sound, Job::CleanUp}},
                {QStringLiteral("merge records"), {full, full, Job::Merge}},
                {QStringLiteral("resume merging"), {merged, merged, Job::Merge}},
                {QStringLiteral("repair"), {used, QStringLiteral("Damaged")}},
                {QStringLiteral("fill again"), {QStringLiteral("Other"), QStringLiteral("Empty")}}};
    }

    static inline const QString Changed = QStringLiteral("changed");

    static QString text() { return QString(3000, u'x'); }

    template <class Value>
    static void orThrow(const Expected<Value> &result) {
        if (!result) {
            throw std::runtime_error(result.error().localizedDescription.toStdString());
        }
    }

    static void copyProfile(const QString &source, const QString &destination) {
        QDir().mkpath(destination);
        const QStringList names = QDir(source).entryList(QDir::Files);
        for (const QString &name : names) {
            if (!QFile::copy(source + u'/' + name, destination + u'/' + name)) {
                throw std::runtime_error("cannot copy the profile");
            }
        }
    }

    /// A profile with one database that is synchronized.
    class Computer {
    public:
        explicit Computer(QString folder) : m_folder(std::move(folder)), m_library(m_profile) {}

        Expected<void> open() {
            return m_profile
                .open(
                    m_folder,
                    [this] { return writeFirstContents(m_profile, FirstContents::Inbox); },
                    [this] { return convertOldNotes(m_profile); })
                .and_then([this] { return m_library.load(); });
        }

        EngineNoteLibrary &library() { return m_library; }
        const ProfileDatabase &profile() const { return m_profile; }
        /// Null before the import.
        std::shared_ptr<NoteDatabase> database() const {
            return m_library.knownDatabases().value(1);
        }

        Contents contents() const {
            Contents contents;
            if (const auto known = database()) {
                contents.insert({}, known->name());
                const QList<Note> notes = known->notes().value();
                for (const Note &note : notes) {
                    contents.insert(note.title, note.text);
                }
            }
            return contents;
        }

        Expected<void> add(const QString &title) {
            Note note{{}, title, text(), {}};
            return database()->saveNote(note);
        }

        Expected<void> edit(const QString &title) {
            return note(title).and_then([this](Note edited) {
                edited.text = Changed;
                return database()->saveNote(edited);
            });
        }

        Expected<void> remove(const QString &title) {
            return note(title).and_then([this](const Note &removed) {
                return database()->removeNote(removed).map([](bool) {});
            });
        }

        static StoreSession::Subject subject(const QString &UUID) {
            return {UUID, QStringLiteral("Projects"), QStringLiteral("store")};
        }

        /// Returns the problems with single records.
        template <class Session>
        Expected<QList<Error>> run(const QString &UUID, BlobStore &store) {
            Session session(m_profile, m_library, subject(UUID));
            return runSession(session, store).map([&] { return session.problems().kept(); });
        }

    private:
        Expected<Note> note(const QString &title) const {
            return database()->notes().map([&](const QList<Note> &notes) {
                return *std::find_if(notes.begin(), notes.end(),
                                     [&](const Note &each) { return each.title == title; });
            });
        }

        const QString m_folder;
        ProfileDatabase m_profile;
        EngineNoteLibrary m_library;
    };
    /// Another computer has changed "c" and added "remote", which the profile "Used" has not read;
    /// `store` does not have "unsent" yet.
    void writeProfiles(BlobStore &store) {
        Computer other(folder(QStringLiteral("Other")));
        orThrow(other.open());
        orThrow(other.library().createDatabase(QStringLiteral("Projects")));
        m_UUID = other.database()->UUID();
        for (const QString &title :
             {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}) {
            orThrow(other.add(title));
            orThrow(other.run<SyncSession>(m_UUID, store));
        }
        Computer used(folder(QStringLiteral("Used")));
        orThrow(used.open());
        orThrow(used.run<SyncSession>(m_UUID, store));
        orThrow(used.add(QStringLiteral("unsent")));
        orThrow(other.edit(QStringLiteral("c")));
        orThrow(other.add(QStringLiteral("remote")));
        orThrow(other.run<SyncSession>(m_UUID, store));
        orThrow(Computer(folder(QStringLiteral("Unused"))).open());
    }

    /// Makes the profile "Full" from "Used", which synchronizes single notes until the records in
    /// `blobs` fill a tier.
    void fillTier(MemoryStore::Blobs &blobs) const {
        copyProfile(folder(QStringLiteral("Used")), folder(QStringLiteral("Full")));
        Computer computer(folder(QStringLiteral("Full")));
        orThrow(computer.open());
        MemoryStore store(blobs);
        // Besides the record of the database.
        while (blobs.size() <= RecordTiers::MostInTier) {
            orThrow(computer.add(QString::number(blobs.size())));
            orThrow(computer.run<SyncSession>(m_UUID, store));
        }
    }
    /// Makes the profile "Merged" from "Full", which has merged the records in `blobs`, but has
    /// removed none.
    void mergeWithoutRemoval(MemoryStore::Blobs &blobs) const {
        copyProfile(folder(QStringLiteral("Full")), folder(QStringLiteral("Merged")));
        Computer computer(folder(QStringLiteral("Merged")));
        orThrow(computer.open());
        const size_t before = blobs.size();
        // The new record is written and read back, then nothing can be removed.
        MemoryStore store(blobs, [calls = 0]() mutable {
            return ++calls > 2 ? MemoryStore::Fault::Unreachable : MemoryStore::Fault::None;
        });
        if (computer.run<Compaction>(m_UUID, store) || blobs.size() != before + 1) {
            throw std::runtime_error("the records were not merged, or some were removed");
        }
    }

    /// Returns `blobs` with half of a record that the profile "Used" has read.
    MemoryStore::Blobs damage(MemoryStore::Blobs blobs) const {
        Computer used(folder(QStringLiteral("Used")));
        orThrow(used.open());
        const QString name = used.profile()
                                 .value(QStringLiteral("SELECT name FROM known_transactions"))
                                 .value()
                                 .toString();
        QByteArray &record =
            blobs.at(SyncStoreLayout::TransactionsFolder + u'/' + m_UUID + u'/' + name);
        record.truncate(record.size() / 2);
        return blobs;
    }

    QString UUID() const { return m_UUID; }
    QString folder(const QString &name) const { return m_folder.filePath(name); }
    QString newFolder() { return folder(QString::number(++m_count)); }

    /// What the computer has, if it can be asked.
    static Contents contentsAt(const QString &profile) {
        if (!QFileInfo::exists(profile)) {
            return {};
        }
        Computer computer(profile);
        orThrow(computer.open());
        return computer.contents();
    }

    /// All of both is there, in either state, and nothing else.
    static void verifyBetween(const Contents &found, const Contents &before,
                              const Contents &after) {
        for (auto each = found.begin(); each != found.end(); ++each) {
            const bool isOld = before.contains(each.key()) && before[each.key()] == each.value();
            const bool isNew = after.contains(each.key()) && after[each.key()] == each.value();
            QVERIFY2(isOld || isNew, qPrintable(each.key()));
        }
        for (auto each = before.keyBegin(); each != before.keyEnd(); ++each) {
            QVERIFY2(found.contains(*each) || !after.contains(*each), qPrintable(*each));
        }
    }

    /// Returns the codes of the problems that a job has reported.
    static QList<int> codes(const Expected<QList<Error>> &problems) {
        QList<int> codes;
        for (const Error &problem : problems.value_or(QList<Error>())) {
            codes.append(static_cast<int>(problem.code));
        }
        return codes;
    }

    /// Returns the problems with single records. Merge must follow a synchronization.
    Expected<QList<Error>> perform(Job job, Computer &computer, BlobStore &store) const {
        if (Expected<void> opened = store.open(EngineFuture()); !opened) {
            return failure(opened.error());
        }
        if (job == Job::Merge) {
            return computer.run<Compaction>(m_UUID, store);
        }
        return computer.run<SyncSession>(m_UUID, store).and_then([&](const QList<Error> &problems) {
            return job == Job::CleanUp
                       ? computer.run<CleanSession>(m_UUID, store)
                             .map([&](const QList<Error> &others) { return problems + others; })
                       : problems;
        });
    }

    /// Profile and store are sound, and contain the same.
    void verifySound(const QString &profile, BlobStore &store) const {
        SyncEngine engine;
        orThrow(engine.openProfile(profile, FirstContents::Inbox, ProfileUse::Edit));
        QCOMPARE(Verification::problems(engine.verify(VerificationMode::Report)), QStringList());
        QCOMPARE(Verification::problems(engine.profile(), *engine.library(),
                                        Computer::subject(m_UUID), store),
                 QStringList());
    }

    /// The profile is sound, and after synchronizing without a failure everyone has everything.
    void verifyNothingIsLost(const QString &profile, BlobStore &store) {
        QCOMPARE(Verification::problems(profile), QStringList());
        const QString third = newFolder();
        verifyContents(profile, third, store);
        verifySound(profile, store);
        verifySound(third, store);
    }

    static bool isThorough() { return qEnvironmentVariableIsSet("VELMORA_EVERY_FAULT"); }

    /// Calls `verify` with the numbers of the calls that are to fail, until one of them fails the
    /// test: with all of them, or with no more than `usually`. Another `row` begins with another
    /// call.
    static void forCalls(qint64 calls, qint64 usually, const std::function<void(qint64)> &verify,
                         qint64 row = 0) {
        const qint64 step = isThorough() ? 1 : (calls + usually - 1) / usually;
        for (qint64 call = 1 + row % qMax(step, 1LL); call <= calls; call += step) {
            verify(call);
            if (QTest::currentTestFailed()) {
                QFAIL(qPrintable(QStringLiteral("call %1 of %2").arg(call).arg(calls)));
            }
        }
    }

private:
    /// Synchronizes the computer at `profile` and a new one at `third`.
    void verifyContents(const QString &profile, const QString &third, BlobStore &store) const {
        Computer computer(profile);
        orThrow(computer.open());
        Contents expected = computer.contents();
        const bool isImported = expected.size() > 1;
        if (!isImported) {
            expected = {{{}, QStringLiteral("Projects")},
                        {QStringLiteral("a"), text()},
                        {QStringLiteral("b"), text()}};
        }
        expected.insert(QStringLiteral("c"), Changed);
        expected.insert(QStringLiteral("remote"), text());
        orThrow(computer.run<SyncSession>(m_UUID, store));
        orThrow(computer.run<CleanSession>(m_UUID, store));
        QCOMPARE(computer.contents(), expected);
        copyProfile(folder(QStringLiteral("Unused")), third);
        Computer other(third);
        orThrow(other.open());
        orThrow(other.run<SyncSession>(m_UUID, store));
        QCOMPARE(other.contents(), expected);
    }

    QTemporaryDir m_folder;
    QString m_UUID;
    int m_count = 0;
};
