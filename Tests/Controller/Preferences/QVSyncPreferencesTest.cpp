#include "Controller/Preferences/QVSyncPreferences.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QToolButton>

#include "Controller/Preferences/QVSyncScheduleEditor.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/Notifications.h"
#include "Host/QVSyncLocationsController.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/HostShortcuts.h"
#include "Support/MessageRecorder.h"
#include "Support/ScriptedHost.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "View/ListScrollArea.h"

namespace {

QStringList names(const QList<QVSyncPreferences::StandIn> &rows) {
    QStringList result;
    for (const auto &row : rows) {
        result.append(row->name());
    }
    return result;
}

QString conditionOf(const std::function<void()> &call) {
    try {
        call();
    } catch (const AssertionFailure &failure) {
        return failure.sourceFile() == QLatin1StringView("Controller/Preferences/QVSyncPreferences")
                   ? failure.message()
                   : failure.sourceFile();
    }
    return QStringLiteral("nothing was raised");
}

}  // namespace

class QVSyncPreferencesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QVSyncPreferences> m_pane;

    /// Makes the pane as the application does and shows it.
    void showPane() {
        m_pane = std::make_unique<QVSyncPreferences>(
            QJsonObject{{QStringLiteral("CFBundleShortVersionString"), QStringLiteral("7.8")}});
        m_pane->loadMainView();
        m_pane->mainView()->resize(760, 600);
        m_pane->mainView()->show();
        m_pane->willSelect();
    }

    /// Selects the row of that name in the database list.
    void selectDatabase(const QString &name) {
        const auto index = names(m_pane->databases()).indexOf(name);
        QVERIFY(index >= 0);
        m_pane->databasesController()->setSelectionIndexes({index});
    }

    template <class Widget>
    Widget *rowPart(QVListView *list, qsizetype row, const char *name) const {
        return list->items().at(row)->view()->findChild<Widget *>(QLatin1StringView(name));
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        setDebugging(Debugging::Off);
    }
    void cleanup() {
        m_pane.reset();
        m_host.reset();
    }

    void itsNibIsSyncPreferences() {
        QCOMPARE(QVSyncPreferences().mainNibName(), QStringLiteral("Sync Preferences"));
    }

    void theLivePaneIsTheOneAwakenedLast() {
        QVERIFY(!QVSyncPreferences::preferences());
        showPane();
        QCOMPARE(QVSyncPreferences::preferences(), m_pane.get());
        m_pane.reset();
        QVERIFY(!QVSyncPreferences::preferences());
    }

    void awakingConnectsTheOutletsAndEmbedsTheScheduleEditor() {
        showPane();
        QVERIFY(m_pane->databasesController());
        QVERIFY(m_pane->syncLocationsController());
        QCOMPARE(m_pane->databasesView()->delegate(), m_pane.get());
        QCOMPARE(m_pane->locationsView()->delegate(), m_pane.get());
        QCOMPARE(m_pane->scheduleEditor()->view()->parentWidget(), m_pane->scheduleView());
        QCOMPARE(m_pane->scheduleEditor()->delegate(), m_pane.get());
        QVERIFY(!m_pane->warningIcon().isNull());
        QVERIFY(m_pane->warningIcon().isMask());
        QCOMPARE(m_pane->currentVersionString(), QStringLiteral("7.8"));
    }

    void theEditorsViewTakesTheContainersFrame() {
        QVSyncPreferences pane;
        pane.loadMainView();
        QCOMPARE(pane.scheduleEditor()->view()->geometry(), pane.scheduleView()->geometry());
        QVSyncScheduleEditor *editor = pane.scheduleEditor();
        pane.awakeFromNib();
        QCOMPARE(pane.scheduleEditor(), editor);
    }

    void openDatabasesAndTheInboxAreListedByName() {
        m_host->addDatabase(QStringLiteral("Zebra"));
        m_host->addDatabase(QStringLiteral("Apple"));
        const auto closed = m_host->addDatabase(QStringLiteral("Closed"));
        m_host->closeDatabase(closed);
        showPane();
        QStringList sorted{QStringLiteral("Zebra"), QStringLiteral("Apple"),
                           m_host->inbox()->name()};
        sorted.sort();
        QCOMPARE(names(m_pane->databases()), sorted);
        QCOMPARE(names(m_pane->localDatabases()), sorted);
        QCOMPARE(m_pane->databasesView()->items().size(), 3);
        QVERIFY(m_pane->localDatabaseForUUID(QStringLiteral("@inbox")));
        QVERIFY(!m_pane->localDatabaseForUUID(m_host->inbox()->UUID()));
        QVERIFY(!m_pane->localDatabaseForUUID(QStringLiteral("unknown")));
    }

    void aDoubleClickOnADatabaseSynchronizesItIfItCan() {
        const auto database = m_host->addDatabase(QStringLiteral("A database"));
        const auto location = m_host->addLocation(m_host->makeSyncStore(QStringLiteral("Store")));
        const auto state = m_host->addState(location, database);
        state->setEnabled(true);
        showPane();
        const auto doubleClick = [this](qsizetype row) {
            QWidget *view = m_pane->databasesView()->items().at(row)->view();
            QTest::mouseClick(view, Qt::LeftButton);
            QTest::mouseDClick(view, Qt::LeftButton);
        };
        QVERIFY(!m_pane->databases().at(1)->canSynchronize());
        doubleClick(1);
        QVERIFY(state->lastSynced().isNull());
        doubleClick(0);
        QTRY_VERIFY(!state->lastSynced().isNull());
    }

    void aRowHoldsItsStatesAndExistsLocally() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        const auto here = m_host->addLocation();
        const auto there = m_host->addLocation();
        const auto state = here->addStateForDatabaseWithUUID(database->UUID(), database->name());
        here->addStateForDatabaseWithUUID(QStringLiteral("other"), {});
        const auto inboxState = there->addStateForDatabaseWithUUID(QStringLiteral("@inbox"), {});
        showPane();
        const auto row = m_pane->localDatabaseForUUID(database->UUID());
        QCOMPARE(row->synchronizationStates(), QVSyncStates{state});
        QVERIFY(row->existsLocally());
        QCOMPARE(m_pane->localDatabaseForUUID(QStringLiteral("@inbox"))->synchronizationStates(),
                 QVSyncStates{inboxState});
    }

    void openDatabasesAreFreshRowsInTheHostsOrder() {
        const auto first = m_host->addDatabase(QStringLiteral("Zebra"));
        const auto second = m_host->addDatabase(QStringLiteral("Apple"));
        showPane();
        const QStringList all = names(m_pane->openDatabases());
        QCOMPARE(all.mid(all.size() - 2),
                 QStringList({QStringLiteral("Zebra"), QStringLiteral("Apple")}));
        QVERIFY(m_pane->openDatabases().first() != m_pane->openDatabases().first());
    }

    void databasesOfOneNameKeepTheOrderOfTheirKeys() {
        for (int i = 0; i < 4; ++i) {
            m_host->addDatabase(QStringLiteral("Same"));
        }
        showPane();
        QStringList keys;
        for (const auto &row : m_pane->databases()) {
            if (row->name() == QLatin1StringView("Same")) {
                keys.append(row->UUID());
            }
        }
        QStringList sorted = keys;
        sorted.sort();
        QCOMPARE(keys, sorted);
    }

    void openingADatabaseAddsItsRowAndClosingDropsIt() {
        showPane();
        AnnouncementRecorder recorder(m_pane.get());
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        QVERIFY(m_pane->localDatabaseForUUID(database->UUID()));
        QCOMPARE(recorder.announced(), QByteArrayList({"localDatabases", "databases"}));
        QCOMPARE(m_pane->databasesView()->items().size(), 2);
        m_host->closeDatabase(database);
        QVERIFY(!m_pane->localDatabaseForUUID(database->UUID()));
        QCOMPARE(recorder.announced(),
                 QByteArrayList({"localDatabases", "databases", "localDatabases", "databases"}));
        QCOMPARE(m_pane->databasesView()->items().size(), 1);
    }

    void openingADatabaseThatIsListedAddsNothing() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        showPane();
        const auto row = m_pane->localDatabaseForUUID(database->UUID());
        AnnouncementRecorder recorder(m_pane.get());
        auto &center = NotificationCenter::defaultCenter();
        center.post(QVSyncPluginDidOpenDatabase, database.get());
        center.post(QVSyncPluginDidOpenDatabase, m_host->inbox().get());
        QVERIFY(recorder.announced().isEmpty());
        QCOMPARE(m_pane->localDatabaseForUUID(database->UUID()), row);
    }

    void closingTheInboxKeepsItsRow() {
        showPane();
        NotificationCenter::defaultCenter().post(QVSyncPluginDidCloseDatabase,
                                                 m_host->inbox().get());
        QVERIFY(m_pane->localDatabaseForUUID(QStringLiteral("@inbox")));
        QCOMPARE(m_pane->databasesView()->items().size(), 1);
    }

    void renamingADatabaseChangesItsRowAtOnce() {
        const auto database = m_host->addDatabase(QStringLiteral("Before"));
        showPane();
        m_host->renameDatabase(database, QStringLiteral("After"));
        QVERIFY(names(m_pane->databases()).contains(QStringLiteral("After")));
        const auto index = m_pane->databasesController()->arrangedObjects().indexOf(
            QVariant::fromValue(m_pane->localDatabaseForUUID(database->UUID())));
        QCOMPARE(rowPart<QLabel>(m_pane->databasesView(), index, "rowName")->text(),
                 QStringLiteral("After"));
    }

    void rowsOfStatesAndOfRemoteDatabases() {
        const auto location = m_host->addLocation();
        const auto state =
            location->addStateForDatabaseWithUUID(QStringLiteral("R"), QStringLiteral("Remote"));
        showPane();
        const auto row = m_pane->standInForSynchronizationState(state);
        QCOMPARE(row->UUID(), QStringLiteral("R"));
        QCOMPARE(row->name(), QStringLiteral("Remote"));
        QCOMPARE(row->synchronizationStates(), QVSyncStates{state});
        QVERIFY(!row->existsLocally());
    }

    void everyLocationGetsARowInTheHostsOrder() {
        const auto first = m_host->addLocation();
        const auto second = m_host->addLocation(QStringLiteral("gopher://strange/place"));
        const auto third = m_host->addLocation(QString());
        showPane();
        QCOMPARE(m_pane->synchronizationSelections().size(), 3);
        QCOMPARE(m_pane->synchronizationSelections()[0]->location(), first);
        QCOMPARE(m_pane->synchronizationSelections()[1]->location(), second);
        QCOMPARE(m_pane->synchronizationSelections()[2]->location(), third);
        QCOMPARE(m_pane->locationsView()->items().size(), 3);
    }

    void showingAgainAppendsFurtherRowsAndMenuItems() {
        m_host->addLocation();
        showPane();
        m_pane->willDeselect();
        m_pane->willSelect();
        QCOMPARE(m_pane->synchronizationSelections().size(), 2);
        QStringList titles;
        for (const QAction *item : m_pane->locationEditMenu()->actions()) {
            titles.append(item->text());
            QVERIFY(item->shortcut().isEmpty());
        }
        const QStringList once{QStringLiteral("New"), QStringLiteral("Open"),
                               QStringLiteral("Save")};
        QCOMPARE(titles, once + once);
    }

    void theRowsShowTheSelectedDatabase() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        const auto location = m_host->addLocation();
        location->addStateForDatabaseWithUUID(database->UUID(), database->name())->setEnabled(true);
        showPane();
        auto *checkBox = rowPart<QCheckBox>(m_pane->locationsView(), 0, "rowCheckBox");
        selectDatabase(QStringLiteral("Data"));
        QVERIFY(checkBox->isChecked());
        QVERIFY(checkBox->isEnabled());
        selectDatabase(m_host->inbox()->name());
        QVERIFY(!checkBox->isChecked());
    }

    void showingThePaneTicksNothing() {
        const auto location = m_host->addLocation();
        m_host->addDatabase(QStringLiteral("Data"));
        showPane();
        QVERIFY(location->synchronizationStates().isEmpty());
    }

    void tickingALocationEnablesItAndSaves() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        m_host->addLocation();
        m_host->save();
        showPane();
        selectDatabase(QStringLiteral("Data"));
        rowPart<QCheckBox>(m_pane->locationsView(), 0, "rowCheckBox")->click();
        QVERIFY(m_pane->localDatabaseForUUID(database->UUID())->canSynchronize());

        m_pane.reset();
        m_host->restart();
        const auto state =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(database->UUID());
        QVERIFY(state);
        QVERIFY(state->isEnabled());
    }

    void choosingAScheduleSavesIt() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        m_host->addLocation()->addStateForDatabaseWithUUID(database->UUID(), database->name());
        m_host->save();
        showPane();
        selectDatabase(QStringLiteral("Data"));
        m_pane->scheduleEditor()
            ->view()
            ->findChild<QRadioButton *>(QStringLiteral("weeklyButton"))
            ->click();
        QVERIFY(m_pane->scheduleEditor()->isWeekly());

        m_pane.reset();
        m_host->restart();
        const auto state =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(database->UUID());
        QVERIFY(state->schedule() && state->schedule()->isWeekly());
    }

    void leavingThePaneSavesAndStopsFollowing() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        m_host->addLocation()->addStateForDatabaseWithUUID(database->UUID(), database->name());
        m_host->save();
        showPane();
        selectDatabase(QStringLiteral("Data"));
        m_pane->scheduleEditor()->setSyncOnOpen(true);
        m_pane->willDeselect();
        QVERIFY(m_pane->localDatabases().isEmpty());
        QVERIFY(!m_pane->localDatabasesByUUID());
        AnnouncementRecorder recorder(m_pane.get());
        AnnouncementRecorder editorRecorder(m_pane->scheduleEditor());
        m_host->addDatabase(QStringLiteral("Later"));
        NotificationCenter::defaultCenter().post(QVSyncScheduleDidFireNotification, nullptr);
        m_pane->databasesController()->setSelectionIndexes({});
        QVERIFY(recorder.announced().isEmpty());
        QVERIFY(editorRecorder.announced().isEmpty());

        m_pane.reset();
        m_host->restart();
        QVERIFY(m_host->locations()
                    .syncLocations()
                    .first()
                    ->stateForDatabaseWithUUID(database->UUID())
                    ->syncOnOpen());
    }

    void aFailedSaveIsPresentedAndNothingIsTakenBack() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        m_host->addLocation();
        m_host->save();
        showPane();
        selectDatabase(QStringLiteral("Data"));
        const auto isTicked = [&] {
            const auto location = m_host->locations().syncLocations().constFirst();
            const auto state = location->stateForDatabaseWithUUID(database->UUID());
            return state && state->isEnabled();
        };
        m_host->makeSavesFail();
        rowPart<QCheckBox>(m_pane->locationsView(), 0, "rowCheckBox")->click();
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(!m_host->application().presentedErrors().first().localizedDescription.isEmpty());
        QCOMPARE(m_pane->synchronizationSelections().size(), 1);
        QVERIFY(isTicked());

        m_host->letSavesPass();
        m_pane->saveAndPresentError();
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        m_pane.reset();
        m_host->restart();
        QVERIFY(isTicked());
    }

    void aFailureWithoutAReasonIsPresentedToo() {
        m_host.reset();
        ScriptedHost host;
        host.saves = false;
        QVSyncPreferences().saveAndPresentError();
        QCOMPARE(host.application.presentedErrors().size(), 1);
        const Error presented = host.application.presentedErrors().first();
        QVERIFY2(presented.localizedDescription.contains(QStringLiteral("Check the space")),
                 qPrintable(presented.localizedDescription));
        QCOMPARE(presented.recoveryOptions.size(), 1);
    }

    void anErrorOfARowIsPresentedByItsButton() {
        m_host->addLocation();
        showPane();
        auto *button = rowPart<QToolButton>(m_pane->locationsView(), 0, "rowWarningButton");
        QVERIFY(button->isHidden());
        const Error error{.domain = QStringLiteral("test"),
                          .localizedDescription = QStringLiteral("broken")};
        m_pane->synchronizationSelections().first()->setError(error);
        QVERIFY(!button->isHidden());
        button->click();
        QCOMPARE(m_host->application().presentedErrors(), QList<Error>{error});
    }

    void activityOfARowIsShown() {
        m_host->addLocation();
        showPane();
        auto *activity = rowPart<QWidget>(m_pane->locationsView(), 0, "rowActivity");
        QVERIFY(activity->isHidden());
        m_pane->synchronizationSelections().first()->setActive(true);
        QVERIFY(!activity->isHidden());
    }

    void aNewRowIsSwitchedOnForTheSelectedDatabase() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        showPane();
        selectDatabase(QStringLiteral("Data"));
        const auto location = m_host->addLocation();
        AnnouncementRecorder recorder(m_pane.get());
        m_pane->addSelectionForLocation(location);
        QCOMPARE(recorder.announced(), QByteArrayList{"synchronizationSelections"});
        QVERIFY(location->stateForDatabaseWithUUID(database->UUID())->isEnabled());
        QCOMPARE(m_pane->locationsView()->items().size(), 1);
    }

    void removingARowDisablesItsStatesAndUpdatesTheDatabase() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        const auto location = m_host->addLocation();
        const auto state =
            location->addStateForDatabaseWithUUID(database->UUID(), database->name());
        state->setEnabled(true);
        showPane();
        selectDatabase(QStringLiteral("Data"));
        const auto row = m_pane->localDatabaseForUUID(database->UUID());
        row->removeSynchronizationStatesObject(state);
        QVERIFY(row->canSynchronize());
        AnnouncementRecorder recorder(m_pane.get());
        m_pane->removeSynchronizationSelectionsObject(m_pane->synchronizationSelections().first());
        QVERIFY(!state->isEnabled());
        QVERIFY(!row->canSynchronize());
        QVERIFY(m_pane->synchronizationSelections().isEmpty());
        QCOMPARE(recorder.announced(), QByteArrayList{"synchronizationSelections"});
        QVERIFY(m_pane->locationsView()->items().isEmpty());
    }

    void rowsAreFoundByStateAndByURL() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        m_host->addLocation();
        const auto location = m_host->addLocation(QStringLiteral("http://u@h/A.qvSyncStore"));
        const auto state =
            location->addStateForDatabaseWithUUID(database->UUID(), database->name());
        showPane();
        selectDatabase(QStringLiteral("Data"));
        const auto expected = m_pane->synchronizationSelections()[1];
        const auto row = m_pane->localDatabaseForUUID(database->UUID());
        QCOMPARE(m_pane->synchronizationSelectionForState(state, row), expected);
        QVERIFY(!m_pane->synchronizationSelectionForState(
            state, m_pane->localDatabaseForUUID(QStringLiteral("@inbox"))));
        QCOMPARE(m_pane->synchronizationSelectionForSyncLocationWithURL(
                     Url::fromString(QStringLiteral("http://u@h/A.qvSyncStore"))),
                 expected);
        QVERIFY(!m_pane->synchronizationSelectionForSyncLocationWithURL(
            Url::fromString(QStringLiteral("http://h/A.qvSyncStore"))));
    }

    void foundRowsAreLoggedUnderBothDefaults() {
        const auto location = m_host->addLocation(QStringLiteral("http://u@h/A.qvSyncStore"));
        const auto state = location->addStateForDatabaseWithUUID(QStringLiteral("@inbox"), {});
        showPane();
        selectDatabase(m_host->inbox()->name());
        setDebugging(Debugging::High);
        const MessageRecorder recorder;
        m_pane->synchronizationSelectionForState(
            state, m_pane->localDatabaseForUUID(QStringLiteral("@inbox")));
        QCOMPARE(recorder.messages().size(), 1);
        QVERIFY(recorder.messages().first().startsWith(
            QStringLiteral("Found synchronization selection ")));
    }

    void noRowBelongsToAnAbsentState() {
        m_host->addLocation();
        showPane();
        QVERIFY(!m_pane->synchronizationSelectionForState(
            nullptr, m_pane->localDatabaseForUUID(QStringLiteral("@inbox"))));
    }

    void eachRowIsAnnouncedByItself_data() {
        QTest::addColumn<int>("locations");
        QTest::newRow("none") << 0;
        QTest::newRow("one") << 1;
        QTest::newRow("three") << 3;
    }
    void eachRowIsAnnouncedByItself() {
        QFETCH(int, locations);
        QList<std::shared_ptr<QVSyncLocation>> expected;
        for (int i = 0; i < locations; ++i) {
            expected.append(m_host->addLocation());
        }
        QVSyncPreferences pane;
        pane.loadMainView();
        QList<qsizetype> rows;
        QList<qsizetype> rowsInList;
        const auto observation = KeyValue::observe(&pane, "synchronizationSelections", [&] {
            rows.append(pane.synchronizationSelections().size());
            rowsInList.append(pane.locationsView()->items().size());
        });
        pane.willSelect();
        QList<qsizetype> counts;
        for (int i = 1; i <= locations; ++i) {
            counts.append(i);
        }
        QCOMPARE(rows, counts);
        QCOMPARE(rowsInList, counts);
        QList<std::shared_ptr<QVSyncLocation>> shown;
        for (const auto &selection : pane.synchronizationSelections()) {
            shown.append(selection->location());
        }
        QCOMPARE(shown, expected);
        pane.willDeselect();
    }

    void rowsFarFromWhatIsSeenHaveNoViews() {
        for (int i = 0; i < 150; ++i) {
            m_host->addDatabase(QStringLiteral("Database %1").arg(i, 3, 10, QLatin1Char('0')));
            m_host->addLocation(
                QStringLiteral("https://u@host%1.example/Store.qvSyncStore").arg(i));
        }
        showPane();
        for (QVListView *list : {m_pane->databasesView(), m_pane->locationsView()}) {
            const auto items = list->items();
            QVERIFY(items.size() >= 150);
            QVERIFY(items.constFirst()->existingView());
            QVERIFY(!items.constLast()->existingView());
            const QString name = items.constLast()->name();
            QVERIFY(!name.isEmpty());
            QVERIFY(!items.constLast()->existingView());
            const QRect frame = list->frameOfRow(149);
            QCOMPARE(items.at(149)->view()->geometry(), frame);
            QCOMPARE(items.constLast()->view()->accessibleName(), name);
            auto *area = qobject_cast<ListScrollArea *>(list->parentWidget()->parentWidget());
            QVERIFY(area->selectRow(140));
            QVERIFY(
                list->items().at(140)->existingView()->visibleRegion().boundingRect().isValid());
        }
    }

    void aRowWithoutAViewForgetsItsErrorWhenSomethingNewerIsKnown_data() {
        QTest::addColumn<bool>("isSynchronized");
        QTest::newRow("a synchronization has ended") << true;
        QTest::newRow("the URL is another one") << false;
    }
    void aRowWithoutAViewForgetsItsErrorWhenSomethingNewerIsKnown() {
        QFETCH(bool, isSynchronized);
        for (int i = 0; i < 60; ++i) {
            m_host->addLocation(
                QStringLiteral("https://u@host%1.example/Store.qvSyncStore").arg(i));
        }
        showPane();
        m_pane->databasesController()->setSelectionIndexes({0});
        const auto row = m_pane->synchronizationSelections().constLast();
        row->setSelected(true);
        row->setError(Error{.localizedDescription = QStringLiteral("It was not there.")});
        if (isSynchronized) {
            const auto inbox = m_pane->databases().constFirst();
            TestHost::setLastSynced(row->location()->stateForDatabaseWithUUID(inbox->UUID()),
                                    QDateTime::currentDateTime());
        } else {
            row->location()->setURL(
                Url::fromString(QStringLiteral("https://u@elsewhere.example/Store.qvSyncStore")));
        }
        QVERIFY(!row->error());
        QVERIFY(!m_pane->locationsView()->items().constLast()->existingView());
    }

    void anAppendedLocationGivesEveryRowANewView() {
        m_host->addLocation();
        m_host->addLocation();
        showPane();
        const auto before = m_pane->locationsView()->items();
        QList<QPointer<QWidget>> views;
        for (const auto &item : before) {
            views.append(item->view());
        }
        m_pane->addSelectionForLocation(m_host->addLocation());
        const auto after = m_pane->locationsView()->items();
        QCOMPARE(after.size(), 3);
        for (qsizetype i = 0; i < before.size(); ++i) {
            QVERIFY(after.at(i) != before.at(i));
            QVERIFY(after.at(i)->view() != views.at(i));
        }
        QTRY_VERIFY(!views.at(0) && !views.at(1));
        QCOMPARE(rowPart<QLabel>(m_pane->locationsView(), 2, "rowTitle")->text(),
                 QStringLiteral("Store 2"));
    }

    void theRowsByUUIDAreAbsentWhileThePaneIsNotShown() {
        m_pane = std::make_unique<QVSyncPreferences>();
        m_pane->loadMainView();
        const auto row = std::make_shared<QVStandInDatabase>();
        QVERIFY(!m_pane->localDatabasesByUUID());
        m_pane->addLocalDatabasesObject(row);
        m_pane->removeLocalDatabasesObject(row);
        QVERIFY(!m_pane->localDatabasesByUUID());
        AnnouncementRecorder recorder(m_pane.get());
        m_pane->willSelect();
        QCOMPARE(recorder.count("localDatabasesByUUID"), 1);
        QCOMPARE(m_pane->localDatabasesByUUID()->size(), std::size_t(1));
        m_pane->willDeselect();
        QCOMPARE(recorder.count("localDatabasesByUUID"), 2);
        QVERIFY(!m_pane->localDatabasesByUUID());
        QVERIFY(m_pane->databases().isEmpty());
    }

    void theScheduleEditorIsAnObservableKey() {
        QVSyncPreferences pane;
        AnnouncementRecorder recorder(&pane);
        pane.loadMainView();
        QCOMPARE(recorder.count("scheduleEditor"), 1);
        QCOMPARE(KeyValue::value(&pane, "scheduleEditor").value<QVSyncScheduleEditor *>(),
                 pane.scheduleEditor());
    }

    void leavingThePaneReleasesRowsAndHostObjects() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        const auto state = m_host->addState(m_host->addLocation(), database);
        const auto local = m_host->localLocation();
        const long stateOwners = state.use_count();
        const long localOwners = local.use_count();
        showPane();
        selectDatabase(QStringLiteral("Data"));
        const std::weak_ptr<QVStandInDatabase> row = m_pane->localDatabaseForUUID(database->UUID());
        QVERIFY(state.use_count() > stateOwners);
        m_pane->willDeselect();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(row.expired());
        QCOMPARE(state.use_count(), stateOwners);
        QCOMPARE(local.use_count(), localOwners);
        QCOMPARE(m_pane->synchronizationSelections().size(), 1);
    }

    void showingAgainTicksNothing() {
        m_host->addDatabase(QStringLiteral("Data"));
        const auto location = m_host->addLocation();
        showPane();
        selectDatabase(QStringLiteral("Data"));
        m_pane->willDeselect();
        m_pane->willSelect();
        QVERIFY(location->synchronizationStates().isEmpty());
    }

    void theAppendedMenuItemsAreNotTranslated() {
        m_host.reset();
        QLocale::setDefault(QLocale(QLocale::German));
        m_host = std::make_unique<TestHost>();
        showPane();
        QLocale::setDefault(QLocale::c());
        QStringList titles;
        for (const QAction *item : m_pane->locationEditMenu()->actions()) {
            titles.append(item->text());
        }
        QCOMPARE(titles, QStringList({QStringLiteral("New"), QStringLiteral("Open"),
                                      QStringLiteral("Save")}));
    }

    void absentArgumentsAreProgrammingErrors() {
        showPane();
        const QString prefix = QStringLiteral("Invalid parameter not satisfying: ");
        QCOMPARE(conditionOf([&] { m_pane->addSynchronizationSelectionsObject(nullptr); }),
                 prefix + QStringLiteral("selection != nil"));
        QCOMPARE(conditionOf([&] { m_pane->removeSynchronizationSelectionsObject(nullptr); }),
                 prefix + QStringLiteral("selection != nil"));
        QCOMPARE(conditionOf([&] { m_pane->addSelectionForLocation(nullptr); }),
                 prefix + QStringLiteral("location != nil"));
        QCOMPARE(conditionOf([&] { m_pane->synchronizationSelectionForSyncLocationWithURL({}); }),
                 prefix + QStringLiteral("URL != nil"));
        QCOMPARE(conditionOf([&] { m_pane->presentSynchronizationSelectionError({}); }),
                 prefix + QStringLiteral("error != nil"));
        QCOMPARE(conditionOf([&] { m_pane->addLocalDatabasesObject(nullptr); }),
                 prefix + QStringLiteral("database != nil"));
        QCOMPARE(conditionOf([&] { m_pane->removeLocalDatabasesObject(nullptr); }),
                 prefix + QStringLiteral("database != nil"));
        QVERIFY(m_pane->synchronizationSelections().isEmpty());
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void databaseRowsCanBeSelectedButNoStringsAndPlaceholders() {
        showPane();
        CollectionViewItem item([](CollectionViewItem *) { return new QWidget; });
        QVERIFY(
            !m_pane->collectionViewItemPrototypeForRepresentedObject(m_pane->databasesView(), {}));
        item.setRepresentedObject(QStringLiteral("heading"));
        QVERIFY(!m_pane->collectionViewShouldSelectItem(m_pane->databasesView(), &item));
        QVERIFY(m_pane->collectionViewShouldSelectItem(m_pane->locationsView(), &item));
        item.setRepresentedObject(QVariant::fromValue(nullptr));
        QVERIFY(!m_pane->collectionViewShouldSelectItem(m_pane->databasesView(), &item));
        item.setRepresentedObject(QVariant::fromValue(m_pane->databases().first()));
        QVERIFY(m_pane->collectionViewShouldSelectItem(m_pane->databasesView(), &item));
        QVListView other;
        QVERIFY(!m_pane->collectionViewShouldSelectItem(&other, &item));
    }

    void onlyAFolderIsRevealable() {
        m_host->addLocation();
        m_host->addLocation(QStringLiteral("http://u@h/A.qvSyncStore"));
        showPane();
        m_pane->syncLocationsController()->setSelectionIndexes({0});
        QVERIFY(m_pane->isRevealableInFinder());
        m_pane->syncLocationsController()->setSelectionIndexes({1});
        QVERIFY(!m_pane->isRevealableInFinder());
        m_pane->syncLocationsController()->setSelectionIndexes({});
        QVERIFY(!m_pane->isRevealableInFinder());
    }

    void itIsSandboxedAsTheHostSays() {
        showPane();
        QCOMPARE(m_pane->isSandboxed(), m_pane->plugin()->usesSandboxedAccess());
        QCOMPARE(m_pane->plugin(), QVSyncPlugin::plugin());
    }

    void everyControlHasAnAccessibleName() {
        m_host->addLocation();
        showPane();
        QStringList nameless;
        for (QWidget *control : m_pane->mainView()->findChildren<QWidget *>()) {
            const bool isControl = qobject_cast<QAbstractButton *>(control) ||
                                   qobject_cast<QAbstractSpinBox *>(control) ||
                                   qobject_cast<ListScrollArea *>(control);
            QAccessibleInterface *accessible =
                isControl ? QAccessible::queryAccessibleInterface(control) : nullptr;
            if (accessible && accessible->text(QAccessible::Name).isEmpty()) {
                nameless.append(control->objectName());
            }
        }
        QCOMPARE(nameless, QStringList());
    }
};

VELMORA_TEST(QVSyncPreferencesTest)
#include "QVSyncPreferencesTest.moc"
