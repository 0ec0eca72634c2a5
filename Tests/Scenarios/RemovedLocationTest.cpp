#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Application/LocationRemovals.h"
#include "Application/PreferencesWindow.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/QVDailySchedule.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/HostShortcuts.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// A location that the user has removed in Sync Preferences comes back with all that belongs to it.
class RemovedLocationTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;
    std::unique_ptr<LocationRemovals> m_removals;
    QPointer<PreferencesWindow> m_window;

    static QVSyncPreferences &pane() { return *QVSyncPreferences::preferences(); }
    static void click(const QVListView::Item &item) {
        QWidget *row = item->view();
        QTest::mouseClick(row, Qt::LeftButton, {}, row->rect().topLeft() + QPoint(3, 3));
    }
    static void selectDatabase() {
        for (const auto &item : pane().databasesView()->items()) {
            if (item->view()->findChild<QLabel *>(QStringLiteral("rowName"))->text() ==
                QStringLiteral("Projects")) {
                click(item);
            }
        }
    }
    static QStringList locationRows() {
        QStringList titles;
        for (const auto &item : pane().locationsView()->items()) {
            auto *box = item->view()->findChild<QCheckBox *>(QStringLiteral("rowCheckBox"));
            auto *name = item->view()->findChild<QLabel *>(QStringLiteral("rowTitle"));
            titles.append(name->text() +
                          (box->isChecked() ? QStringLiteral(" ticked") : QString()));
        }
        return titles;
    }
    void openWindow() {
        m_window = new PreferencesWindow(std::make_unique<QVSyncPreferences>());
        m_window->showRemovals(m_removals.get(), [] {
            return Expected<std::unique_ptr<PreferencePane>>(std::make_unique<QVSyncPreferences>());
        });
        m_window->show();
    }
    void closeWindow() const {
        if (m_window) {
            m_window->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Adds a WebDAV location with a password before the others.
    void addServer() const {
        const Url URL =
            Url::fromString(QStringLiteral("https://ida@dav.example/Shared.qvSyncStore"));
        for (const QString &method :
             {UrlAuthenticationMethodHttpBasic, UrlAuthenticationMethodHttpDigest}) {
            UrlCredentialStorage::shared().setCredentialForProtectionSpace(
                {.user = QStringLiteral("ida"),
                 .password = QStringLiteral("secret"),
                 .persistence = UrlCredential::Persistence::Permanent},
                UrlProtectionSpace::ofURL(URL, method));
        }
        QVERIFY(SecretStore::shared().finishWriting());
        m_host->locations().insertObjectInSyncLocationsAtIndex(m_host->newLocation(URL), 0);
        m_host->save();
    }
    QWidget *bar() const { return m_window->findChild<QWidget *>(QStringLiteral("removalBar")); }
    void removeFirst() const {
        selectDatabase();
        click(pane().locationsView()->items().first());
        m_window->findChild<QPushButton *>(QStringLiteral("removeLocationButton"))->click();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_database = m_host->addDatabase(QStringLiteral("Projects"));
        for (const char *name : {"Home", "Office"}) {
            const auto location =
                m_host->addLocation(m_host->makeSyncStore(QLatin1StringView(name)));
            const auto state = m_host->addState(location, m_database);
            state->setEnabled(true);
            state->setSyncOnClose(true);
            state->setSchedule(dailySchedule(9, 30));
        }
        m_host->save();
        m_removals = std::make_unique<LocationRemovals>(&m_host->locations());
        openWindow();
    }
    void cleanup() {
        closeWindow();
        m_removals.reset();
        m_database.reset();
        m_host.reset();
    }

    void theRemovalIsUndone() {
        selectDatabase();
        const QStringList both{QStringLiteral("Home ticked"), QStringLiteral("Office ticked")};
        QTRY_COMPARE(locationRows(), both);
        QVERIFY(!bar()->isVisible());
        removeFirst();
        QTRY_COMPARE(locationRows(), both.mid(1));
        QVERIFY(bar()->isVisible());
        QVERIFY(bar()->findChild<QLabel *>()->text().contains(QStringLiteral("“Home”")));
        bar()->findChild<QPushButton *>()->click();
        QVERIFY(!bar()->isVisible());
        selectDatabase();
        QTRY_COMPARE(locationRows(), both);
        closeWindow();
        m_removals.reset();
        const QString UUID = m_database->UUID();
        m_database.reset();
        m_host->restart();
        const auto locations = m_host->locations().syncLocations();
        QCOMPARE(locations.size(), 2);
        const auto state = locations.first()->stateForDatabaseWithUUID(UUID);
        QVERIFY(state->isEnabled() && state->syncOnClose());
        const auto schedule = std::dynamic_pointer_cast<const QVDailySchedule>(state->schedule());
        QVERIFY(schedule);
        QCOMPARE(schedule->hourAndMinute(), (HourAndMinute{9, 30}));
    }

    void afterwardsAControlHasTheFocus() {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        removeFirst();
        QTRY_VERIFY(bar()->isVisible());
        auto *button = bar()->findChild<QPushButton *>();
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(!bar()->isVisible());
        QTRY_VERIFY(m_window->focusWidget() && m_window->focusWidget()->isVisible());
        QVERIFY(m_window->focusWidget()->hasFocus());
    }

    void thePasswordIsKeptUntilTheRemovalCannotBeUndone() {
        const SecretService secrets;
        const auto countOfPasswords = [&] {
            return secrets.count({{QStringLiteral("host"), QStringLiteral("dav.example")}});
        };
        addServer();
        closeWindow();
        openWindow();
        m_host->engine().plugin().removedLocations().setUndoTime(std::chrono::milliseconds(0));
        removeFirst();
        bar()->findChild<QPushButton *>()->click();
        QTRY_COMPARE(locationRows().size(), 3);
        QCOMPARE(countOfPasswords(), 2);

        m_host->application().answerQuestions(true);
        removeFirst();
        QTRY_COMPARE(m_host->application().questions().size(), 1);
        QCOMPARE(m_host->application().questions().first().text,
                 QStringLiteral("Forget the password of “ida@dav.example”?"));
        QTRY_COMPARE(countOfPasswords(), 0);
        QCOMPARE(m_host->application().questions().size(), 1);
    }

    void severalRemovalsAreUndoneLastFirst() {
        removeFirst();
        removeFirst();
        QTRY_VERIFY(locationRows().isEmpty());
        QVERIFY(bar()->findChild<QLabel *>()->text().contains(QStringLiteral("“Office”")));
        bar()->findChild<QPushButton *>()->click();
        QVERIFY(bar()->isVisible());
        bar()->findChild<QPushButton *>()->click();
        QVERIFY(!bar()->isVisible());
        selectDatabase();
        QTRY_COMPARE(locationRows(),
                     QStringList({QStringLiteral("Home ticked"), QStringLiteral("Office ticked")}));
    }

    void theRestoredLocationIsSelectedForTheSameDatabase() {
        m_host->addDatabase(QStringLiteral("Attic"));
        closeWindow();
        openWindow();
        selectDatabase();
        click(pane().locationsView()->items().last());
        m_window->findChild<QPushButton *>(QStringLiteral("removeLocationButton"))->click();
        bar()->findChild<QPushButton *>()->click();
        const auto database = pane().localDatabaseForUUID(m_database->UUID());
        QCOMPARE(pane().databasesController()->lastSelectedObject(), QVariant::fromValue(database));
        const auto restored = pane().synchronizationSelections().last();
        QCOMPARE(restored->title(), QStringLiteral("Office"));
        QVERIFY(restored->isSelected());
        QCOMPARE(pane().syncLocationsController()->lastSelectedObject(),
                 QVariant::fromValue(restored));
    }

    void aFailedUndoCanBeRepeated() {
        removeFirst();
        m_host->makeSavesFail();
        bar()->findChild<QPushButton *>()->click();
        QVERIFY(!m_host->application().presentedErrors().isEmpty());
        QVERIFY(bar()->isVisible());
        QCOMPARE(m_host->locations().countOfSyncLocations(), 1);
        m_host->letSavesPass();
        bar()->findChild<QPushButton *>()->click();
        QCOMPARE(m_host->locations().countOfSyncLocations(), 2);
    }

    void afterAWhileItCannotBeUndone() {
        m_removals->setUndoTime(std::chrono::milliseconds(0));
        removeFirst();
        QTRY_VERIFY(!bar()->isVisible());
        QVERIFY(m_removals->isEmpty());
    }
};

VELMORA_TEST(RemovedLocationTest)
#include "RemovedLocationTest.moc"
