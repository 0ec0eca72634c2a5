#include "Engine/Schedules/EngineDailySchedule.h"
#include "Host/DefaultsKeys.h"
#include "Host/Notifications.h"
#include "Host/QVDirectConnectionServer.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/FreePort.h"
#include "Support/SetDefault.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// A snapshot of a profile that another engine has open, as a picture or a description shows it.
class ProfileSnapshotTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    int m_fired = 0;

    static Expected<void> openSnapshot(SyncEngine &engine, const QString &directory) {
        return engine.openProfile(directory, FirstContents::Welcome, ProfileUse::Snapshot);
    }

    /// Returns the paths of all files of the computer, and whether another connection has written
    /// the profile.
    std::pair<QStringList, QVariant> state() const {
        QStringList paths;
        QDirIterator each(QFileInfo(m_host->directory()).path(), QDir::Files | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (each.hasNext()) {
            paths.append(each.next());
        }
        paths.sort();
        return {paths,
                m_host->engine().profile().value(QStringLiteral("PRAGMA data_version")).value()};
    }

    /// Saves and ticks a database with a daily schedule that was missed when the next engine opens
    /// the profile.
    void missSchedule() {
        const auto state =
            m_host->addState(m_host->addLocation(), m_host->addDatabase(QStringLiteral("Plans")));
        state->setEnabled(true);
        const QTime later = QTime::currentTime().addSecs(12 * 60 * 60);
        state->setSchedule(
            std::make_shared<EngineDailySchedule>(HourAndMinute{later.hour(), later.minute()}));
        m_host->save();
        m_host->engine().triggers().checkSchedules(
            QDateTime(QDate::currentDate().addDays(-2), QTime::currentTime()));
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        NotificationCenter::defaultCenter().addObserver(
            this, QVSyncScheduleDidFireNotification,
            [this](const Notification & /*notification*/) { ++m_fired; });
    }
    void cleanup() {
        removeDefault(DefaultsKeys::DirectConnectionServerEnabled);
        removeDefault(DefaultsKeys::DirectConnectionServerPortNumber);
        NotificationCenter::defaultCenter().removeObserver(this);
        m_host.reset();
    }

    void containsWhatWasSavedUntilThen() {
        for (int i = 0; i < 20; ++i) {
            Note note{{}, QString::number(i), QString(1000, u'x'), {}};
            QVERIFY(m_host->inbox()->saveNote(note));
            SyncEngine snapshot;
            QVERIFY(openSnapshot(snapshot, m_host->directory()));
            QCOMPARE(snapshot.library()->inbox()->notes(), m_host->inbox()->notes());
        }
    }

    void containsNothingOfAnUnfinishedChange() {
        Note note{{}, QStringLiteral("saved"), {}, {}};
        QVERIFY(m_host->inbox()->saveNote(note));
        const QList<Note> saved = m_host->inbox()->notes().value();
        const ProfileDatabase &profile = m_host->engine().profile();
        QVERIFY(profile.write([&] {
            return profile.run(QStringLiteral("DELETE FROM operations")).map([&] {
                SyncEngine snapshot;
                QVERIFY(openSnapshot(snapshot, m_host->directory()));
                QCOMPARE(snapshot.library()->inbox()->notes().value(), saved);
            });
        }));
        QVERIFY(m_host->inbox()->notes().value().isEmpty());
    }

    void startsNoSynchronizationAndNoServerAndWritesNothing() {
        missSchedule();
        setDefault(DefaultsKeys::DirectConnectionServerEnabled, true);
        setDefault(DefaultsKeys::DirectConnectionServerPortNumber, freePort());
        const QString directory = m_host->directory();
        m_fired = 0;
        {
            const auto before = state();
            SyncEngine snapshot;
            QVERIFY(openSnapshot(snapshot, directory));
            QVERIFY(!snapshot.plugin().server()->isServing());
            QCOMPARE(m_fired, 0);
            QCOMPARE(snapshot.plugin().dispatcher()->activity(), QString());
            QCOMPARE(state(), before);
        }
        // A start does all of that.
        m_host->restart();
        QVERIFY(m_host->engine().plugin().server()->isServing());
        QCOMPARE(m_fired, 1);
        const auto missed =
            m_host->locations().syncLocations().first()->synchronizationStates().first();
        QTRY_VERIFY(missed->lastSynced().isValid());
    }
};

VELMORA_TEST(ProfileSnapshotTest)
#include "ProfileSnapshotTest.moc"
