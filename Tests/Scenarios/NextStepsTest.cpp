#include <QtGui/QDesktopServices>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/Panel.h"
#include "Support/TestHost.h"

/// Receives the addresses that this process opens with the user's programs.
class OpenedAddresses : public QObject {
    Q_OBJECT
public:
    OpenedAddresses() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~OpenedAddresses() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Q_INVOKABLE void open(const QUrl &address) { addresses.append(address); }

    QList<QUrl> addresses;
};

/// Every command says what has happened and what to do next.
class NextStepsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;
    std::unique_ptr<Panel> m_panel;

    /// Shows the panel and ticks every location for the database "Projects".
    void showPanel() {
        m_panel = std::make_unique<Panel>();
        Panel::select(Panel::databaseRow(1));
        for (int i = 0; i < Panel::countOfLocations(); ++i) {
            Panel::locationRow(i)
                ->findChild<QCheckBox *>(QStringLiteral("rowCheckBox"))
                ->setChecked(true);
        }
    }
    void synchronize() {
        Panel::databaseRow(1)
            ->findChild<QAbstractButton *>(QStringLiteral("rowSyncButton"))
            ->click();
        awaitEndOfJob();
    }
    void awaitEndOfJob() {
        QTRY_VERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
    }
    const Error &presented() const { return m_host->application().presentedErrors().last(); }
    /// Opens the error of a row and returns the titles of the next steps.
    QStringList steps(QWidget *row) {
        Panel::warning(row)->click();
        QStringList titles;
        for (const RecoveryOption &option : presented().recoveryOptions) {
            titles.append(option.title);
        }
        return titles;
    }
    void take(const QString &title) {
        const QList<RecoveryOption> options = presented().recoveryOptions;
        for (const RecoveryOption &option : options) {
            if (option.title == title) {
                option.choose();
            }
        }
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_database = m_host->addDatabase(QStringLiteral("Projects"));
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        QVERIFY(m_database->saveNote(note));
    }
    void cleanup() {
        m_panel.reset();
        m_database.reset();
        m_host.reset();
    }

    void aFailedSynchronizationCanBeTriedAgain() {
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        QVERIFY(QDir().rename(package, package + u'x'));
        synchronize();
        QCOMPARE(steps(Panel::locationRow(0)),
                 QStringList({QStringLiteral("Edit Location…"), QStringLiteral("Try Again"),
                              QStringLiteral("Show Folder")}));
        QVERIFY(QDir().rename(package + u'x', package));
        take(QStringLiteral("Try Again"));
        awaitEndOfJob();
        QVERIFY(Panel::warning(Panel::locationRow(0))->isHidden());
    }

    void theLocationOfAnErrorCanBeEdited() {
        m_host->addLocation(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"));
        showPanel();
        synchronize();
        QCOMPARE(steps(Panel::locationRow(0)),
                 QStringList({QStringLiteral("Edit Location…"), QStringLiteral("Try Again")}));
        take(QStringLiteral("Edit Location…"));
        QVERIFY(m_panel->sheet());
        QCOMPARE(m_panel->inSheet<QLineEdit>("portField")->text(), QStringLiteral("1"));
        m_panel->inSheet<QPushButton>("cancelButton")->click();
        m_panel.reset();
        // The pane is gone.
        take(QStringLiteral("Edit Location…"));
    }

    void aFailedCheckCanBeTriedAgain() {
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        QVERIFY(QDir().rename(package, package + u'x'));
        Panel::select(Panel::locationRow(0));
        m_panel->choose("checkItem");
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(QDir().rename(package + u'x', package));
        take(QStringLiteral("Try Again"));
        QTRY_COMPARE(m_panel->text("checkLabel"),
                     QStringLiteral("“Store 0” can be read and written. 0 databases, 0 bytes."));
        QVERIFY(Panel::warning(Panel::locationRow(0))->isHidden());
        m_panel.reset();
        take(QStringLiteral("Try Again"));
    }

    void theErrorOfADatabaseHasTheStepsOfItsOnlyFailedLocation() {
        m_host->addLocation();
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        QVERIFY(QDir().rename(package, package + u'x'));
        synchronize();
        QCOMPARE(steps(Panel::databaseRow(1)),
                 QStringList({QStringLiteral("Edit Location…"), QStringLiteral("Try Again"),
                              QStringLiteral("Show Folder")}));
        QVERIFY(
            QDir(m_host->locations().syncLocations().first()->URL().path()).removeRecursively());
        synchronize();
        QCOMPARE(steps(Panel::databaseRow(1)), QStringList{QStringLiteral("Try Again")});
        QVERIFY(QDir().rename(package + u'x', package));
        take(QStringLiteral("Try Again"));
        awaitEndOfJob();
        QVERIFY(Panel::warning(Panel::locationRow(1))->isHidden());
        QVERIFY(Panel::warning(Panel::locationRow(0))->isVisible());
    }

    void aChangeThatCouldNotBeSavedCanBeSavedAgain() {
        m_host->addLocation();
        m_host->save();
        showPanel();
        m_host->makeSavesFail();
        Panel::locationRow(0)->findChild<QCheckBox *>(QStringLiteral("rowCheckBox"))->click();
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(presented().recoveryOptions.size(), 1);
        m_host->letSavesPass();
        take(QStringLiteral("Try Again"));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(m_host->engine()
                     .profile()
                     .value(QStringLiteral("SELECT count(*) FROM states"))
                     .value()
                     .toInt(),
                 1);
    }

    void cleaningUpSaysThatItIsDone() {
        m_host->addLocation();
        showPanel();
        synchronize();
        Panel::select(Panel::locationRow(0));
        m_panel->choose("cleanItem");
        QCOMPARE(m_panel->text("activityLabel"),
                 QStringLiteral("Cleaning up “Projects” at “Store 0”…"));
        QTRY_COMPARE(m_panel->text("activityLabel"),
                     QStringLiteral("“Projects” was cleaned up at “Store 0”."));
        synchronize();
        QTRY_COMPARE(m_panel->text("activityLabel"), QString());
    }

    void aFailedCleanUpCanBeTriedAgain() {
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        synchronize();
        QVERIFY(QDir().rename(package, package + u'x'));
        Panel::select(Panel::locationRow(0));
        m_panel->choose("cleanItem");
        awaitEndOfJob();
        steps(Panel::locationRow(0));
        QVERIFY2(presented().localizedDescription.startsWith(
                     QStringLiteral("“Projects” could not be cleaned up at “Store 0”: ")),
                 qPrintable(presented().localizedDescription));
        QVERIFY(QDir().rename(package + u'x', package));
        take(QStringLiteral("Try Again"));
        QTRY_COMPARE(m_panel->text("activityLabel"),
                     QStringLiteral("“Projects” was cleaned up at “Store 0”."));
        QVERIFY(Panel::warning(Panel::locationRow(0))->isHidden());
    }

    void theErrorOfADatabaseRepeatsAFailedCleanUp() {
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        synchronize();
        QVERIFY(QDir().rename(package, package + u'x'));
        Panel::select(Panel::locationRow(0));
        m_panel->choose("cleanItem");
        awaitEndOfJob();
        steps(Panel::databaseRow(1));
        QVERIFY(QDir().rename(package + u'x', package));
        take(QStringLiteral("Try Again"));
        QTRY_COMPARE(m_panel->text("activityLabel"),
                     QStringLiteral("“Projects” was cleaned up at “Store 0”."));
        QVERIFY(Panel::warning(Panel::databaseRow(1))->isHidden());
    }

    void withoutAvahiTheSheetOfADirectConnectionSaysSo() {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/there/is/no/bus");
        showPanel();
        m_panel->choose("addDirectConnectionItem");
        auto *hint = m_panel->inSheet<QLabel>("emptyLabel");
        QVERIFY2(hint->text().startsWith(QStringLiteral("No computer has been found yet.")),
                 qPrintable(hint->text()));
        QTRY_COMPARE(hint->text(),
                     QStringLiteral("Computers cannot be found, because the service “Avahi” is not "
                                    "running on this computer. Start it, or enter the address of "
                                    "the other computer."));
        QVERIFY(hint->isVisible());
        qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
    }

    void dropboxWithoutAnApplicationKeySaysWhatIsMissing() {
        showPanel();
        m_panel->choose("addDropboxItem");
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(presented().localizedDescription,
                 QStringLiteral("Dropbox cannot be used because no application key is configured. "
                                "Velmora’s documentation describes how to set one."));
        QCOMPARE(Panel::countOfLocations(), 0);
    }

    // The test has no session bus, and so no file manager on it.
    void withoutAFileManagerServiceTheFolderIsOpened() {
        const OpenedAddresses opened;
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        Panel::select(Panel::locationRow(0));
        m_panel->choose("revealItem");
        QTRY_COMPARE(opened.addresses, QList<QUrl>{QUrl::fromLocalFile(QFileInfo(package).path())});
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void withoutAnyFileManagerTheFolderIsNamed() {
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "");
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        Panel::select(Panel::locationRow(0));
        m_panel->choose("revealItem");
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        qputenv("PATH", path);
        QCOMPARE(presented().localizedDescription,
                 QStringLiteral("No file manager could be started. Install one, or open the folder "
                                "“%1” in another program.")
                     .arg(package));
    }
};

VELMORA_TEST(NextStepsTest)
#include "NextStepsTest.moc"
