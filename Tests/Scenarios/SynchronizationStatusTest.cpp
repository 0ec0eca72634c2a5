#include <QtCore/QRegularExpression>
#include <QtGui/QClipboard>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QRadioButton>
#include <ctime>

#include "Controller/Preferences/ActivityStatus.h"
#include "Controller/Preferences/LocationRowStatus.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/Panel.h"
#include "Support/EventTimeout.h"
#include "Support/ScriptedServer.h"
#include "Support/TestHost.h"
#include "Support/WebDAVServer.h"
#include "View/TimeField.h"

/// The panel shows what the last synchronization did, and the ticks decide which locations it
/// includes.
class SynchronizationStatusTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;
    std::unique_ptr<Panel> m_panel;

    void showPanel() {
        m_panel = std::make_unique<Panel>();
        Panel::select(projectsRow());
    }

    static QWidget *projectsRow() { return Panel::databaseRow(QStringLiteral("Projects")); }
    static void tick(int location) {
        Panel::part<QCheckBox>(Panel::locationRow(location), "rowCheckBox")->click();
    }
    void syncNow() const { Panel::part<QAbstractButton>(projectsRow(), "rowSyncButton")->click(); }
    static QString databaseText() { return Panel::part<QLabel>(projectsRow(), "rowDate")->text(); }
    static QToolButton *databaseWarning() { return Panel::warning(projectsRow()); }
    static QString locationText(int index) {
        return Panel::part<QLabel>(Panel::locationRow(index), "rowType")->text();
    }
    static QToolButton *locationWarning(int index) {
        return Panel::warning(Panel::locationRow(index));
    }
    /// Synchronizes by the row's button and waits for the end.
    void synchronize() const {
        syncNow();
        QVERIFY(!isIdle());
        QTRY_VERIFY(isIdle());
    }
    QString scheduleText() const { return m_panel->text("nextScheduledDateLabel"); }
    /// Opens the editor of the location, pastes `text` over what its field `name` holds, and
    /// accepts.
    void edit(int location, const char *name, const QString &text) const {
        Panel::select(Panel::locationRow(location));
        m_panel->press("editLocationButton");
        auto *field = m_panel->inSheet<QLineEdit>(name);
        QTRY_VERIFY(field->isEnabled());
        field->selectAll();
        QGuiApplication::clipboard()->setText(text);
        field->paste();
        m_panel->inSheet<QPushButton>("acceptButton")->click();
        QVERIFY(!m_panel->sheet());
    }
    /// Makes the local time `time` now.
    static void setLocalTime(const QTime &time) {
        const int east = QDateTime::currentDateTimeUtc().time().secsTo(time);
        const QTime offset = QTime(0, 0).addSecs(std::abs(east));
        qputenv("TZ", "TST" + QByteArray(east < 0 ? "+" : "-") +
                          offset.toString(QStringLiteral("hh:mm:ss")).toLatin1());
        tzset();
    }
    bool isIdle() const { return m_host->engine().plugin().dispatcher()->activity().isEmpty(); }
    QStringList transactionsAt(const std::shared_ptr<QVSyncLocation> &location) const {
        return QDir(location->URL().path() + QStringLiteral("/transactions/") + m_database->UUID())
            .entryList(QDir::Files);
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
        qunsetenv("TZ");
        tzset();
        m_database.reset();
        m_host.reset();
    }

    void syncNowIncludesTickedLocationsOnly() {
        const auto ticked = m_host->addLocation();
        const auto unticked = m_host->addLocation();
        showPanel();
        tick(0);
        tick(1);
        tick(1);
        syncNow();
        QTRY_VERIFY(!transactionsAt(ticked).isEmpty());
        QTRY_VERIFY(isIdle());
        QCOMPARE(transactionsAt(unticked), QStringList());
        const auto state = unticked->stateForDatabaseWithUUID(m_database->UUID());
        QVERIFY(!state->lastSynced().isValid());
    }

    void aDoubleClickIncludesTickedLocationsOnly() {
        const auto ticked = m_host->addLocation();
        const auto unticked = m_host->addLocation();
        showPanel();
        tick(0);
        tick(1);
        tick(1);
        QWidget *row = projectsRow();
        QTest::mouseDClick(row, Qt::LeftButton, {}, row->rect().topLeft() + QPoint(3, 3));
        QTRY_VERIFY(!transactionsAt(ticked).isEmpty());
        QTRY_VERIFY(isIdle());
        QCOMPARE(transactionsAt(unticked), QStringList());
    }

    void aFailureIsShownUntilTheNextSuccess() {
        m_host->addLocation();
        const auto location = m_host->addLocation();
        const QString package = location->URL().path();
        showPanel();
        tick(0);
        tick(1);
        QCOMPARE(databaseText(), QStringLiteral("Never synchronized"));
        QCOMPARE(locationText(1), QStringLiteral("Local Sync Store · never synchronized"));
        QVERIFY(QDir().rename(package, package + u'x'));
        synchronize();
        QVERIFY(locationText(0).startsWith(
            QStringLiteral("Local Sync Store · synchronized today at ")));
        QVERIFY2(locationText(1).startsWith(QStringLiteral("Local Sync Store · failed today at ")),
                 qPrintable(locationText(1)));
        QVERIFY(locationText(1).endsWith(QStringLiteral(": not available")));
        QVERIFY(locationWarning(0)->isHidden());
        QVERIFY(locationWarning(1)->isVisible());
        QVERIFY2(databaseText().startsWith(
                     QStringLiteral("Synchronized with 1 of 2 locations · today at ")),
                 qPrintable(databaseText()));
        QVERIFY(databaseWarning()->isVisible());
        for (QToolButton *button : {locationWarning(1), databaseWarning()}) {
            button->click();
            QCOMPARE(m_host->application().presentedErrors().last().localizedDescription,
                     QStringLiteral("“Projects” could not be synchronized with “Store 1”: The sync "
                                    "store “%1” does not exist. Check whether it was moved or "
                                    "renamed.")
                         .arg(package));
        }

        QVERIFY(QDir().rename(package + u'x', package));
        synchronize();
        QVERIFY(locationText(1).startsWith(
            QStringLiteral("Local Sync Store · synchronized today at ")));
        QVERIFY(locationWarning(1)->isHidden());
        QVERIFY(databaseText().startsWith(QStringLiteral("Synchronized today at ")));
        QVERIFY(databaseWarning()->isHidden());
    }

    void theStateOfARowIsNotCutOff_data() {
        QTest::addColumn<int>("points");
        for (const int points : {10, 14, 18}) {
            QTest::addRow("%d", points) << points;
        }
    }
    void theStateOfARowIsNotCutOff() {
        QFETCH(int, points);
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        m_host->addLocation();
        const QString package = m_host->addLocation()->URL().path();
        QVERIFY(QDir(package).removeRecursively());
        showPanel();
        tick(0);
        tick(1);
        synchronize();
        QVERIFY(databaseText().startsWith(QStringLiteral("Synchronized with 1 of 2 locations")));
        for (QWidget *row : {projectsRow(), Panel::locationRow(1)}) {
            for (const char *name : {"rowDate", "rowType"}) {
                if (const auto *label = Panel::part<QLabel>(row, name)) {
                    QVERIFY(label->wordWrap());
                    QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
                    QTRY_VERIFY(row->rect().contains(label->geometry()));
                }
            }
        }
        QApplication::setFont(before);
    }

    void aFailureIsStillShownAfterARestart() {
        const auto location = m_host->addLocation();
        QVERIFY(QDir(location->URL().path()).removeRecursively());
        showPanel();
        tick(0);
        synchronize();
        const QString text = locationText(0);
        QVERIFY(text.contains(QStringLiteral("failed today at ")));
        QCOMPARE(databaseText(), QStringLiteral("Synchronization failed"));
        m_panel.reset();
        m_database.reset();
        m_host->restart();
        showPanel();
        QCOMPARE(locationText(0), text);
        QVERIFY(locationWarning(0)->isVisible());
        QCOMPARE(databaseText(), QStringLiteral("Synchronization failed"));
    }

    void aStoredFailureIsShownInTheUsersLanguage() {
        QVERIFY(QDir(m_host->addLocation()->URL().path()).removeRecursively());
        showPanel();
        tick(0);
        synchronize();
        m_panel.reset();
        m_database.reset();
        QLocale::setDefault(QLocale::German);
        m_host->restart();
        showPanel();
        locationWarning(0)->click();
        const Error presented = m_host->application().presentedErrors().last();
        QLocale::setDefault(QLocale::c());
        QCOMPARE(presented.localizedDescription,
                 QStringLiteral("„Projects“ konnte nicht mit „Store 0“ synchronisiert werden: "
                                "nicht verfügbar"));
        QVERIFY2(presented.details.contains(QStringLiteral("Check whether it was moved")),
                 qPrintable(presented.details));
    }

    void aFailureOfALocationThatIsUntickedIsNotMarked() {
        QVERIFY(QDir(m_host->addLocation()->URL().path()).removeRecursively());
        showPanel();
        tick(0);
        synchronize();
        QVERIFY(locationWarning(0)->isVisible());
        tick(0);
        QVERIFY(locationWarning(0)->isHidden());
        QVERIFY(databaseWarning()->isHidden());
        QCOMPARE(locationText(0), QStringLiteral("Local Sync Store · never synchronized"));
    }

    void aResultBelongsToTheSelectedDatabase() {
        m_host->addDatabase(QStringLiteral("Recipes"));
        QVERIFY(QDir(m_host->addLocation()->URL().path()).removeRecursively());
        showPanel();
        tick(0);
        synchronize();
        QVERIFY(locationWarning(0)->isVisible());
        Panel::select(Panel::databaseRow(QStringLiteral("Recipes")));
        QCOMPARE(locationText(0), QStringLiteral("Local Sync Store · never synchronized"));
        QVERIFY(locationWarning(0)->isHidden());
        Panel::select(projectsRow());
        QVERIFY(locationWarning(0)->isVisible());
    }

    void aWrongPasswordIsNamedAndAnAcceptedEditRemovesTheMark() {
        const WebDAVServer server({});
        QVERIFY(QDir().mkpath(server.folder()));
        server.storePassword(QStringLiteral("wrong"));
        m_host->addLocation(server.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        tick(0);
        synchronize();
        QVERIFY2(locationText(0).startsWith(QStringLiteral("WebDAV · failed today at ")),
                 qPrintable(locationText(0)));
        QVERIFY(locationText(0).endsWith(QStringLiteral(": wrong password")));
        // The check finds the same, and its error goes as well.
        Panel::select(Panel::locationRow(0));
        m_panel->choose("checkItem");
        QTRY_VERIFY(Panel::pane().synchronizationSelections().first()->error());
        edit(0, "passwordField", WebDAVServer::Password);
        QVERIFY(locationWarning(0)->isHidden());
        QCOMPARE(locationText(0), QStringLiteral("WebDAV · never synchronized"));
        synchronize();
        QVERIFY2(locationText(0).startsWith(QStringLiteral("WebDAV · synchronized today at ")),
                 qPrintable(locationText(0)));
    }

    void anAcceptedEditWithoutAChangeRemovesTheMark() {
        QVERIFY(QDir(m_host->addLocation()->URL().path()).removeRecursively());
        showPanel();
        tick(0);
        synchronize();
        QVERIFY(locationWarning(0)->isVisible());
        Panel::select(Panel::locationRow(0));
        m_panel->press("editLocationButton");
        m_panel->inSheet<QPushButton>("acceptButton")->click();
        QVERIFY(locationWarning(0)->isHidden());
        QVERIFY(databaseWarning()->isHidden());
        QCOMPARE(locationText(0), QStringLiteral("Local Sync Store · never synchronized"));
        m_panel.reset();
        m_database.reset();
        m_host->restart();
        showPanel();
        QVERIFY(locationWarning(0)->isHidden());
    }

    void aPartialFailureIsMarked() {
        m_host->leaveUnverified("the store keeps a file that is no record");
        const auto location = m_host->addLocation();
        showPanel();
        tick(0);
        synchronize();
        QFile record(location->URL().path() + QStringLiteral("/transactions/") +
                     m_database->UUID() + QStringLiteral("/0000000000000001-x.json"));
        QVERIFY(record.open(QIODevice::WriteOnly));
        record.write("damaged");
        record.close();
        synchronize();
        QVERIFY2(locationText(0).endsWith(QStringLiteral(", but 1 item failed")),
                 qPrintable(locationText(0)));
        QVERIFY2(databaseText().endsWith(QStringLiteral(", but some items failed")),
                 qPrintable(databaseText()));
        for (QToolButton *button : {locationWarning(0), databaseWarning()}) {
            QVERIFY(button->isVisible());
            button->click();
            QCOMPARE(
                m_host->application().presentedErrors().last().localizedDescription,
                QStringLiteral("Some items of “Projects” could not be synchronized with “Store "
                               "0”. Open the log to see which."));
        }
    }

    void storesOfOneNameAreShownWithTheirAddressesInTheirRows() {
        const QString first = QStringLiteral("http://ida@127.0.0.1:1/a/Shared.qvSyncStore");
        m_host->addLocation(first);
        showPanel();
        QCOMPARE(Panel::part<QLabel>(Panel::locationRow(0), "rowTitle")->text(),
                 QStringLiteral("127.0.0.1 – Shared"));
        m_host->addLocation(QStringLiteral("http://127.0.0.1:2/b/Shared.qvSyncStore"));
        m_host->save();
        QCOMPARE(Panel::part<QLabel>(Panel::locationRow(0), "rowTitle")->text(), first);
        QCOMPARE(
            Panel::part<QCheckBox>(Panel::locationRow(0), "rowCheckBox")->accessibleDescription(),
            QStringLiteral("Synchronizes “Projects” with “%1”").arg(first));
    }

    void aSuccessRemovesTheErrorOfACheck() {
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        tick(0);
        Panel::select(Panel::locationRow(0));
        QVERIFY(QDir().rename(package, package + u'x'));
        m_panel->choose("checkItem");
        QTRY_VERIFY(locationWarning(0)->isVisible());
        QVERIFY(QDir().rename(package + u'x', package));
        synchronize();
        QVERIFY(locationWarning(0)->isHidden());
    }

    void aFailureReplacesTheErrorOfACheck() {
        const QString package = m_host->addLocation()->URL().path();
        showPanel();
        tick(0);
        Panel::select(Panel::locationRow(0));
        QVERIFY(QDir().rename(package, package + u'x'));
        m_panel->choose("checkItem");
        QTRY_VERIFY(locationWarning(0)->isVisible());
        const auto *status = Panel::locationRow(0)->findChild<LocationRowStatus *>();
        const QString former = status->error()->localizedDescription;
        QFile file(package);
        QVERIFY(file.open(QIODevice::WriteOnly));
        synchronize();
        QVERIFY(locationWarning(0)->isVisible());
        const QString present = status->error()->localizedDescription;
        QVERIFY2(present != former, qPrintable(present));
        QVERIFY(QFile::remove(package));
        QVERIFY(QDir().rename(package + u'x', package));
    }

    void aRowShowsItsNewTitleAfterAnEdit() {
        m_host->addLocation(QStringLiteral("http://ida@localhost/dav/Shared.qvSyncStore"));
        showPanel();
        QCOMPARE(Panel::part<QLabel>(Panel::locationRow(0), "rowTitle")->text(),
                 QStringLiteral("localhost – Shared"));
        edit(0, "serverField", QStringLiteral("127.0.0.1"));
        QCOMPARE(Panel::part<QLabel>(Panel::locationRow(0), "rowTitle")->text(),
                 QStringLiteral("127.0.0.1 – Shared"));
        QCOMPARE(Panel::part<QCheckBox>(Panel::locationRow(0), "rowCheckBox")->accessibleName(),
                 QStringLiteral("127.0.0.1 – Shared"));
        QCOMPARE(m_panel->find<QPushButton>("removeLocationButton")->accessibleDescription(),
                 QStringLiteral("127.0.0.1 – Shared"));
    }

    void todayBecomesYesterdayAtMidnight() {
        setLocalTime(QTime(23, 59, 57));
        m_host->addLocation();
        showPanel();
        tick(0);
        synchronize();
        QVERIFY2(databaseText().startsWith(QStringLiteral("Synchronized today at ")),
                 qPrintable(databaseText()));
        QTRY_VERIFY(databaseText().startsWith(QStringLiteral("Synchronized yesterday at ")));
        QVERIFY(locationText(0).startsWith(
            QStringLiteral("Local Sync Store · synchronized yesterday at ")));
    }

    void tomorrowBecomesTodayAtMidnight() {
        setLocalTime(QTime(23, 59, 58));
        m_host->addLocation();
        showPanel();
        tick(0);
        m_panel->find<QRadioButton>("hourlyButton")->click();
        QVERIFY2(scheduleText().startsWith(QStringLiteral("Next synchronization: tomorrow at ")),
                 qPrintable(scheduleText()));
        QTRY_VERIFY(scheduleText().startsWith(QStringLiteral("Next synchronization: today at ")));
    }

    void theStatusLineShowsWhatRunsAndStopsIt() {
        const ScriptedServer silent(
            [](ScriptedServer::Connection &connection) { connection.waitUntilClosed(); });
        m_host->addLocation(silent.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        tick(0);
        auto *stop = m_panel->find<QPushButton>("stopButton");
        QVERIFY(stop->isHidden());
        QCOMPARE(m_panel->text("activityLabel"), QString());
        syncNow();
        QCOMPARE(m_panel->text("activityLabel"),
                 QStringLiteral("Synchronizing “Projects” with “127.0.0.1 – Shared”…"));
        QVERIFY(m_panel->find<QProgressBar>("activityBar")->isVisible());
        QTRY_COMPARE(silent.connections(), 1);
        QVERIFY(stop->isVisible());
        stop->click();
        QCOMPARE(m_panel->text("activityLabel"), QString());
        QVERIFY(stop->isHidden());
        QVERIFY(m_panel->find<QProgressBar>("activityBar")->isHidden());
        QCOMPARE(locationText(0), QStringLiteral("WebDAV · never synchronized"));
    }

    void theStatusLineShowsHowFarASynchronizationIs() {
        for (int i = 0; i < 100; ++i) {
            Note note{{}, QString::number(i), QString(100'000, u'x'), {}};
            QVERIFY(m_database->saveNote(note));
        }
        m_host->addLocation();
        showPanel();
        tick(0);
        const auto *label = m_panel->find<QLabel>("activityLabel");
        const auto *bar = m_panel->find<QProgressBar>("activityBar");
        QStringList texts;
        const auto recording = connect(m_panel->find<ActivityStatus>("activityStatus"),
                                       &ActivityStatus::changed, this, [&] {
                                           if (bar->maximum() > 0) {
                                               texts.append(label->text());
                                           }
                                       });
        synchronize();
        disconnect(recording);
        QVERIFY(!texts.isEmpty());
        for (const QString &text : std::as_const(texts)) {
            // 101 notes and the name of the database.
            static const QRegularExpression wanted(
                QStringLiteral("^Synchronizing “Projects” with “Store 0”… \\d+ of 102$"));
            QVERIFY2(wanted.match(text).hasMatch(), qPrintable(text));
        }
        QCOMPARE(label->text(), QString());
    }

    void aScheduleWithoutATickedLocationSaysWhatIsMissing() {
        m_host->addLocation();
        showPanel();
        const QString hint = QStringLiteral(
            "Tick a location first. A schedule belongs to the locations that are ticked.");
        QCOMPARE(scheduleText(), hint);
        m_panel->find<QRadioButton>("dailyButton")->click();
        QVERIFY(!m_panel->find<QRadioButton>("dailyButton")->isChecked());
        QCOMPARE(scheduleText(), hint);
        tick(0);
        QCOMPARE(scheduleText(), QStringLiteral("No synchronization is scheduled."));
        m_panel->find<QRadioButton>("dailyButton")->click();
        QVERIFY(scheduleText().startsWith(QStringLiteral("Next synchronization: ")));
        tick(0);
        QCOMPARE(scheduleText(), hint);
    }

    void aWeeklyScheduleWithoutDaysSaysSoAndCanBeRemoved() {
        m_host->addLocation();
        showPanel();
        tick(0);
        m_panel->find<QRadioButton>("weeklyButton")->click();
        for (auto *day : m_panel->find<QWidget>("weeklyDaysField")->findChildren<QToolButton *>()) {
            if (day->isChecked()) {
                day->click();
            }
        }
        QCOMPARE(scheduleText(),
                 QStringLiteral("Choose at least one day. Otherwise nothing is synchronized."));
        QVERIFY(m_panel->find<QPushButton>("disabledButton")->isEnabled());
        m_panel->press("disabledButton");
        QCOMPARE(scheduleText(), QStringLiteral("No synchronization is scheduled."));
        QVERIFY(!m_panel->find<QRadioButton>("weeklyButton")->isChecked());
    }

    void aDisabledTimeFieldShowsNoTimeOfAnotherDatabase_data() {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QByteArray>("field");
        QTest::newRow("daily") << QByteArray("dailyButton") << QByteArray("dailyTimeField");
        QTest::newRow("weekly") << QByteArray("weeklyButton") << QByteArray("weeklyTimeField");
    }
    void aDisabledTimeFieldShowsNoTimeOfAnotherDatabase() {
        QFETCH(const QByteArray, button);
        QFETCH(const QByteArray, field);
        m_host->addDatabase(QStringLiteral("Recipes"));
        m_host->addLocation();
        showPanel();
        tick(0);
        m_panel->find<QRadioButton>(button.constData())->click();
        auto *time = m_panel->find<TimeField>(field.constData());
        QVERIFY(time->isEnabled());
        time->setFocus();
        time->setTime(QTime(9, 30));
        const QString shown = time->text();
        QVERIFY(shown.contains(QStringLiteral("30")));
        Panel::select(Panel::databaseRow(QStringLiteral("Recipes")));
        QVERIFY(!time->isEnabled());
        QCOMPARE(time->text(), QString());
        Panel::select(projectsRow());
        QCOMPARE(time->text(), shown);
    }
};

VELMORA_TEST(SynchronizationStatusTest)
#include "SynchronizationStatusTest.moc"
