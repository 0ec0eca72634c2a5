#include <sys/syscall.h>

#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/Profile/BackupSchedule.h"
#include "Engine/Profile/ProfileBackups.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Host/QVDirectConnectionServer.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/FreePort.h"
#include "Support/TestAuthority.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// A profile whose folder is replaced by a copy, or deleted, while the engine has it open.
class ReplacedProfileTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;

    EngineSyncPlugin &plugin() { return m_host->engine().plugin(); }
    QString aside() const { return m_host->directory() + QStringLiteral(" aside"); }

    /// Moves the profile away and puts a copy of its files in its place.
    void replaceProfile() {
        const QString profile = m_host->directory();
        QVERIFY(QFile::rename(profile, aside()));
        QVERIFY(QDir().mkdir(profile));
        const QStringList names = QDir(aside()).entryList(QDir::Files);
        for (const QString &name : names) {
            QVERIFY(QFile::copy(aside() + u'/' + name, profile + u'/' + name));
        }
    }

    static QStringList namesIn(const QString &folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
    static bool isAboutReplacement(const QString &text) {
        return text.contains(QStringLiteral("was moved, deleted or replaced"));
    }
    void expectOneError() {
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        const Error error = m_host->application().presentedErrors().first();
        QVERIFY2(isAboutReplacement(error.localizedDescription),
                 qPrintable(error.localizedDescription));
    }
    /// Puts the profile back and returns the number of rows of a table that meet `condition`.
    int rowsInProfile(const QString &tableAndCondition) {
        QDir(m_host->directory()).removeRecursively();
        if (!QFile::rename(aside(), m_host->directory())) {
            return -1;
        }
        const auto count = m_host->engine().profile().value(
            QStringLiteral("SELECT count(*) FROM ") + tableAndCondition);
        return count ? count->toInt() : -1;
    }

private Q_SLOTS:
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() {
        const QString left = aside();
        if (QFileInfo::exists(left) || !m_host->engine().profile().checkFiles()) {
            m_host->leaveUnverified("the files of the profile are elsewhere");
        }
        m_host.reset();
        if (QFileInfo::exists(left + QStringLiteral("/profile.sqlite"))) {
            QCOMPARE(Verification::problems(left), QStringList());
        }
        QDir(left).removeRecursively();
    }

    void aFolderThatCannotBeSearchedIsNotTakenForMoved() {
        const ProfileDatabase &profile = m_host->engine().profile();
        const ProfileFiles files = profile.files();
        Expected<void> checked;
        runWithFailingSystemCall(SYS_newfstatat, EACCES, [&] { checked = files.check(); });
        QCOMPARE(code(checked), EngineErrorCode::ProfileNotWritten);
        const QString text = description(checked);
        QVERIFY2(!isAboutReplacement(text), qPrintable(text));
        QVERIFY2(text.startsWith(QStringLiteral("The profile file “%1").arg(profile.directory())),
                 qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("cannot be reached, so nothing can be saved: "
                                              "Permission denied.")),
                 qPrintable(text));
        QVERIFY(files.check());
        ProfileFiles others;
        runWithFailingSystemCall(SYS_newfstatat, EIO,
                                 [&] { checked = others.add(profile.path()); });
        QVERIFY(!checked);
    }

    void aFolderGrantIsAnError() {
        replaceProfile();
        plugin().bookmarkURL(Url::fileURL(QStringLiteral("/a")));
        expectOneError();
        QCOMPARE(rowsInProfile(QStringLiteral("grants")), 0);
    }

    void withdrawingAFolderGrantIsAnError() {
        plugin().bookmarkURL(Url::fileURL(QStringLiteral("/a")));
        replaceProfile();
        plugin().removeBookmarkForURL(Url::fileURL(QStringLiteral("/a")));
        expectOneError();
        QCOMPARE(rowsInProfile(QStringLiteral("grants")), 1);
    }

    void theSandboxSettingIsAnError() {
        replaceProfile();
        const Expected<void> set = plugin().setUsesSandboxedAccess(true);
        QVERIFY(!set);
        QVERIFY(isAboutReplacement(set.error().localizedDescription));
        QVERIFY(!plugin().usesSandboxedAccess());
    }

    void trustInACertificateIsAnError() {
        const TestAuthority authority;
        const auto identity = authority.issue(QStringLiteral("DNS:localhost"));
        const auto location = m_host->addLocation();
        m_host->save();
        m_host->application().answerQuestions(true);
        replaceProfile();
        plugin().context().certificateTrust->ask(
            std::dynamic_pointer_cast<EngineSyncLocation>(location)->identifier(),
            QStringLiteral("localhost"), QSslCertificate::fromPath(identity.certificate).value(0),
            {});
        expectOneError();
        QCOMPARE(rowsInProfile(QStringLiteral("trusted_certificates")), 0);
    }

    void aPairingIsAnError() {
        const QString key = QStringLiteral("key identifier");
        replaceProfile();
        plugin().context().pairings->keep(key, "fingerprint", QByteArray("secret"));
        expectOneError();
        QCOMPARE(rowsInProfile(QStringLiteral("settings WHERE key LIKE '%key identifier'")), 0);
    }

    void forgettingAPairingIsAnError() {
        const QString key = QStringLiteral("key identifier");
        const auto &pairings = plugin().context().pairings;
        pairings->keep(key, "fingerprint", QByteArray("secret"));
        QTRY_VERIFY(
            m_host->engine()
                .profile()
                .value(QStringLiteral("SELECT 1 FROM settings WHERE key LIKE '%' || ?"), {key})
                .value()
                .isValid());
        replaceProfile();
        const Expected<void> forgotten = pairings->forget(QStringLiteral("identifier"));
        QVERIFY(!forgotten);
        QVERIFY(isAboutReplacement(forgotten.error().localizedDescription));
        QCOMPARE(pairings->fingerprint(key), QByteArray("fingerprint"));
        QCOMPARE(rowsInProfile(QStringLiteral("settings WHERE key LIKE '%key identifier'")), 1);
    }

    void aSynchronizationDoesNotCountAsDone() {
        const auto state =
            m_host->addState(m_host->addLocation(), m_host->addDatabase(QStringLiteral("Notes")));
        state->setEnabled(true);
        m_host->save();
        replaceProfile();
        bool isDone = false;
        plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        const auto entries = m_host->application().logEntries();
        QVERIFY(std::any_of(entries.begin(), entries.end(),
                            [](const auto &entry) { return isAboutReplacement(entry.info); }));
        QVERIFY(!state->lastSynced().isValid());
        QCOMPARE(rowsInProfile(QStringLiteral("states WHERE last_synced IS NOT NULL")), 0);
    }

    void aSingleStatementIsAnErrorToo() {
        replaceProfile();
        const Expected<void> done = m_host->engine().profile().run(
            QStringLiteral("UPDATE states SET last_synced = 1, database_name = 'x'"));
        QVERIFY(!done);
        QVERIFY(isAboutReplacement(done.error().localizedDescription));
    }

    void theServerDoesNotStartInAnotherFolder() {
        replaceProfile();
        const QStringList before = namesIn(m_host->directory());
        plugin().server()->setPort(freePort());
        plugin().server()->startServing();
        expectOneError();
        QVERIFY(!plugin().server()->isServing());
        QCOMPARE(namesIn(m_host->directory()), before);
    }

    void noBackupIsMadeInAnotherFolder() {
        replaceProfile();
        const QStringList before = namesIn(m_host->directory());
        BackupSchedule &backups = m_host->engine().backups();
        const QSignalSpy ended(&backups, &BackupSchedule::ended);
        backups.check();
        QTRY_COMPARE(ended.size(), 1);
        const auto entries = m_host->application().logEntries();
        QVERIFY(std::any_of(entries.begin(), entries.end(),
                            [](const auto &entry) { return isAboutReplacement(entry.info); }));
        QCOMPARE(namesIn(m_host->directory()), before);
    }

    void noBackupIsMadeIfTheFolderIsReplacedMeanwhile_data() {
        QTest::addColumn<int>("atCheck");
        QTest::addRow("before the copy") << 1;
        QTest::addRow("before the copy gets its name") << 2;
    }
    void noBackupIsMadeIfTheFolderIsReplacedMeanwhile() {
        QFETCH(int, atCheck);
        int checks = 0;
        const Expected<void> made =
            ProfileBackups(m_host->directory()).make(QDate(2026, 11, 22), nullptr, [&] {
                if (++checks == atCheck) {
                    replaceProfile();
                }
                return m_host->engine().profile().files().check();
            });
        QVERIFY(!made);
        QVERIFY(isAboutReplacement(made.error().localizedDescription));
        QVERIFY(!namesIn(m_host->directory()).contains(ProfileBackups::FolderName));
    }

    void aBackupInAFolderThatIsReplacedMeanwhileIsAnError() {
        BackupSchedule &backups = m_host->engine().backups();
        const QSignalSpy ended(&backups, &BackupSchedule::ended);
        backups.check();
        replaceProfile();
        QTRY_COMPARE(ended.size(), 1);
        QVERIFY(ended.first().first().value<std::optional<Error>>().has_value());
    }

    void nothingIsWrittenWhereTheFolderWasDeleted() {
        QVERIFY(QDir(m_host->directory()).removeRecursively());
        plugin().bookmarkURL(Url::fileURL(QStringLiteral("/a")));
        expectOneError();
        QVERIFY(!QFileInfo::exists(m_host->directory()));
    }
};

VELMORA_TEST(ReplacedProfileTest)
#include "ReplacedProfileTest.moc"
