#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/QVFolderLocationEditor.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/QVWebDAVLocationEditor.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/InboxUUID.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncLocationsController.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Interface/PackagePanel.h"
#include "Platform/Interface/SheetWindow.h"
#include "Platform/Interface/TableView.h"
#include "Support/HostShortcuts.h"
#include "Support/MessageRecorder.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// The condition, and where it stands, of the assertion that `call` ends in.
QString failureOf(const std::function<void()> &call) {
    try {
        call();
    } catch (const AssertionFailure &failure) {
        return failure.message() + QLatin1StringView(" in ") + failure.sourceFile();
    }
    return QStringLiteral("nothing was raised");
}

QString failure(const char *condition) {
    return QStringLiteral(
               "Invalid parameter not satisfying: %1 in Controller/Preferences/"
               "QVSyncPreferences")
        .arg(QLatin1StringView(condition));
}

}  // namespace

/// The pane's commands on locations, triggered as by the user: through its buttons and menus.
class LocationCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QVSyncPreferences> m_pane;

    void showPane() {
        m_pane = std::make_unique<QVSyncPreferences>();
        m_pane->loadMainView();
        m_pane->mainView()->show();
        m_pane->willSelect();
    }
    template <class Part>
    Part *part(const char *name) const {
        return m_pane->mainView()->findChild<Part *>(QLatin1StringView(name));
    }
    void click(const char *name) const { part<QPushButton>(name)->click(); }
    /// Chooses an item of a menu as the user does: it is enabled when the menu opens.
    void choose(const char *menu, const char *item) const {
        Q_EMIT part<QMenu>(menu)->aboutToShow();
        part<QAction>(item)->trigger();
    }
    SheetWindow *sheet() const {
        const auto windows = m_pane->mainView()->window()->findChildren<SheetWindow *>();
        for (SheetWindow *window : windows) {
            if (window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    void pressInSheet(const char *name) const {
        sheet()->findChild<QPushButton *>(QLatin1StringView(name))->click();
    }
    void typeInSheet(const char *name, const QString &text) const {
        QTest::keyClicks(sheet()->findChild<QLineEdit *>(QLatin1StringView(name)), text);
    }
    static void doubleClick(QVListView *list, qsizetype row) {
        QWidget *view = list->items().at(row)->view();
        QTest::mouseClick(view, Qt::LeftButton);
        QTest::mouseDClick(view, Qt::LeftButton);
    }
    void selectLocation(qsizetype index) const {
        m_pane->syncLocationsController()->setSelectionIndexes({index});
    }
    QStringList URLs() const {
        QStringList result;
        for (const auto &location : m_host->locations().syncLocations()) {
            result.append(location->URL().absoluteString());
        }
        return result;
    }
    /// What a restart would find.
    qsizetype savedCount() const {
        return m_host->engine()
            .profile()
            .value(QStringLiteral("SELECT count(*) FROM locations"))
            .value()
            .toLongLong();
    }
    /// Drags `dropped` onto the list of locations, and drops them if it accepts them. Returns
    /// whether it does.
    bool drop(const QList<QUrl> &dropped) const {
        QMimeData data;
        data.setUrls(dropped);
        QWidget *list = m_pane->locationsView()->parentWidget();
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::LinkAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list, &enter);
        if (enter.isAccepted()) {
            QDropEvent event({5, 5}, Qt::CopyAction | Qt::LinkAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(list, &event);
        }
        return enter.isAccepted();
    }
    void inPanel(const std::function<void(PackagePanel &)> &act) const {
        auto *timer = new QTimer(qApp);
        connect(timer, &QTimer::timeout, timer, [timer, act] {
            if (auto *panel = qobject_cast<PackagePanel *>(QApplication::activeModalWidget())) {
                timer->deleteLater();
                act(*panel);
            }
        });
        timer->start(0);
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_folder = std::make_unique<QTemporaryDir>();
        setDebugging(Debugging::Off);
    }
    void cleanup() {
        m_pane.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_host.reset();
    }

    void theImportCommandDoesNothingWhileItsSheetIsUp() {
        showPane();
        m_pane->showImportDatabasesSheet(nullptr);
        const QPointer<QWidget> first = sheet();
        QVERIFY(first);
        m_pane->showImportDatabasesSheet(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first);
        QCOMPARE(sheet(), first);
        QTest::keyClick(first, Qt::Key_Escape);
        QVERIFY(!sheet());
        m_pane->showImportDatabasesSheet(nullptr);
        QVERIFY(sheet());
    }

    void aDoubleClickOnALocationOpensItsEditor() {
        m_host->addLocation(QStringLiteral("http://h/S.qvSyncStore"));
        m_host->addLocation(QStringLiteral("unknown://h"));
        showPane();
        doubleClick(m_pane->locationsView(), 1);
        QVERIFY(!sheet());
        doubleClick(m_pane->locationsView(), 0);
        QVERIFY(sheet());
        QCOMPARE(sheet()->findChild<QLineEdit *>(QStringLiteral("serverField"))->text(),
                 QStringLiteral("h"));
    }

    void acceptingAWebDAVLocationAppendsItSelectsItAndSaves() {
        m_host->addLocation();
        m_host->save();
        showPane();
        m_pane->databasesController()->setSelectionIndexes({0});
        choose("addMenu", "addWebDAVItem");
        QVERIFY(!sheet()->findChild<QPushButton *>(QStringLiteral("cancelButton"))->isHidden());
        typeInSheet("serverField", QStringLiteral("host"));
        typeInSheet("storeField", QStringLiteral("Store"));
        pressInSheet("acceptButton");
        QCOMPARE(URLs().last(), QStringLiteral("http://@host/Store.qvSyncStore"));
        QCOMPARE(savedCount(), 2);
        const auto row = m_pane->synchronizationSelections().constLast();
        QCOMPARE(row->location()->URL().absoluteString(), URLs().last());
        QVERIFY(row->isSelected());
        QCOMPARE(m_pane->syncLocationsController()->lastSelectedObject(), QVariant::fromValue(row));
        QCOMPARE(row->title(), QStringLiteral("host – Store"));
    }

    void cancellingANewLocationAddsAndSavesNothing() {
        showPane();
        m_host->makeSavesFail();
        choose("addMenu", "addWebDAVItem");
        pressInSheet("cancelButton");
        QVERIFY(URLs().isEmpty());
        QVERIFY(m_pane->synchronizationSelections().isEmpty());
        QVERIFY(m_host->application().presentedErrors().isEmpty());
        m_host->letSavesPass();
    }

    void editingAnExistingLocationSavesItWithoutASecondCopy() {
        m_host->addLocation(QStringLiteral("velmora://host:8442"));
        m_host->save();
        showPane();
        selectLocation(0);
        click("editLocationButton");
        QVERIFY(sheet()->findChild<QPushButton *>(QStringLiteral("cancelButton"))->isHidden());
        auto *host = sheet()->findChild<QLineEdit *>(QStringLiteral("hostField"));
        host->selectAll();
        QTest::keyClicks(host, QStringLiteral("other"));
        QTest::keyClick(host, Qt::Key_Return);
        QCOMPARE(URLs(), QStringList{QStringLiteral("velmora://other:8442")});
        m_host->restart();
        QCOMPARE(URLs(), QStringList{QStringLiteral("velmora://other:8442")});
    }

    void everyRowWhoseEditButtonIsEnabledCanBeEdited() {
        m_host->addLocation();
        const QStringList withSheet{QStringLiteral("http://h/S.qvSyncStore"),
                                    QStringLiteral("https://ida@h:8443/a/S.qvSyncStore"),
                                    QStringLiteral("http://local%20host/S.qvSyncStore"),
                                    QStringLiteral("http://h"),
                                    QStringLiteral("velmora://h:8442"),
                                    QStringLiteral("velmora://[fe80::1]:8442")};
        for (const QString &address : withSheet) {
            m_host->addLocation(address);
        }
        showPane();
        const auto *button = part<QPushButton>("editLocationButton");
        for (qsizetype row = 0; row <= withSheet.size(); ++row) {
            selectLocation(row);
            QVERIFY(button->isEnabled());
            click("editLocationButton");
            QVERIFY2(sheet(), qPrintable(URLs().at(row)));
            QTest::keyClick(sheet(), Qt::Key_Escape);
            QVERIFY(!sheet());
        }
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void aDropboxLocationWithoutAnApplicationKeySaysSoWhenItIsEdited() {
        m_host->addLocation(QStringLiteral("dropbox://ada@dropbox.com"));
        showPane();
        selectLocation(0);
        QVERIFY(part<QPushButton>("editLocationButton")->isEnabled());
        click("editLocationButton");
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
    }

    void theEditButtonOfALocationOfAnUnknownKindIsDisabled() {
        m_host->addLocation(QStringLiteral("unknown://h"));
        showPane();
        selectLocation(0);
        QVERIFY(!part<QPushButton>("editLocationButton")->isEnabled());
    }

    void theSelectedLocationIsKnownAndCanBeSelectedAgain() {
        m_host->addLocation();
        const auto second = m_host->addLocation(QStringLiteral("unknown://h"));
        showPane();
        m_pane->selectLocation(second);
        QCOMPARE(m_pane->selectedLocation(), second);
        selectLocation(0);
        QCOMPARE(m_pane->selectedLocation(), m_host->locations().syncLocations().constFirst());
    }

    void aFolderLocationIsEditedInItsSheet() {
        m_host->addLocation();
        showPane();
        selectLocation(0);
        click("editLocationButton");
        QCOMPARE(sheet()->findChild<QLineEdit *>(QStringLiteral("packageField"))->text(),
                 m_host->locations().syncLocations().constFirst()->URL().path());
        pressInSheet("acceptButton");
        QCOMPARE(URLs().size(), 1);
    }

    void editingWithoutASelectedRowDoesNothing() {
        m_host->addLocation();
        m_host->save();
        showPane();
        m_pane->syncLocationsController()->setSelectionIndexes({});
        const QStringList before = URLs();
        m_pane->editSelectedSyncLocation(nullptr);
        QVERIFY(!sheet());
        QCOMPARE(URLs(), before);
        QCOMPARE(savedCount(), 1);
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void aNewPackageBecomesALocation() {
        showPane();
        inPanel([this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(QStringLiteral("Work"));
            QMetaObject::invokeMethod(&panel, "accept");
        });
        choose("addMenu", "createFolderItem");
        QCOMPARE(URLs(),
                 QStringList{Url::fileURL(m_folder->filePath(QStringLiteral("Work.qvSyncStore")))
                                 .absoluteString()});
        QCOMPARE(savedCount(), 1);
    }

    void anExistingPackageBecomesALocation() {
        const QString package = m_folder->filePath(QStringLiteral("Work.qvSyncStore"));
        QVERIFY(QDir().mkdir(package));
        showPane();
        inPanel([=, this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(package);
            QMetaObject::invokeMethod(&panel, "accept");
        });
        choose("addMenu", "selectFolderItem");
        QCOMPARE(URLs(), QStringList{Url::fileURL(package).absoluteString()});
    }

    void aPackageThatIsDroppedBecomesALocationOnce() {
        const QString package = m_folder->filePath(QStringLiteral("Work.qvSyncStore"));
        QVERIFY(QDir().mkdir(package));
        showPane();
        QVERIFY(!drop({QUrl::fromLocalFile(m_folder->path())}));
        QVERIFY(!drop({QUrl(QStringLiteral("https://h/S.qvSyncStore"))}));
        QCOMPARE(URLs(), QStringList());
        for (int i = 0; i < 2; ++i) {
            QVERIFY(drop({QUrl::fromLocalFile(package + u'/'), QUrl::fromLocalFile(package)}));
            QCOMPARE(URLs(), QStringList{Url::fileURL(package).absoluteString()});
            QCOMPARE(savedCount(), 1);
        }
        QCOMPARE(m_pane->syncLocationsController()->lastSelectedObject(),
                 QVariant::fromValue(m_pane->synchronizationSelections().constFirst()));
    }

    // The result is 1 whenever the panel was confirmed.
    void aLocationIsAddedWithoutURLIfItsPackageCannotBeCreated() {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("Work.qvSyncStore")));
        showPane();
        inPanel([this](PackagePanel &panel) {
            panel.setDirectory(m_folder->path());
            panel.selectFile(QStringLiteral("Work.qvSyncStore"));
            QMetaObject::invokeMethod(&panel, "accept");
        });
        m_pane->createFolder(nullptr);
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(m_host->locations().countOfSyncLocations(), 1);
        QVERIFY(m_host->locations().syncLocations().constFirst()->URL().isNil());
    }

    void aCancelledPanelAddsNothing() {
        showPane();
        for (void (QVSyncPreferences::*command)(QObject *) :
             {&QVSyncPreferences::createFolder, &QVSyncPreferences::selectFolder}) {
            inPanel([](PackagePanel &panel) { panel.reject(); });
            (m_pane.get()->*command)(nullptr);
        }
        QVERIFY(URLs().isEmpty());
    }

    void addFileLocationRunsTheFolderSheet() {
        showPane();
        m_pane->addFileLocation(nullptr);
        QVERIFY(sheet()->findChild<QLineEdit *>(QStringLiteral("packageField")));
        QVERIFY(!sheet()->findChild<QPushButton *>(QStringLiteral("cancelButton"))->isHidden());
        pressInSheet("cancelButton");
    }

    void theEditorIsChosenByTheExactScheme() {
        showPane();
        const auto editorFor = [this](const char *text) {
            return m_pane->locationEditorForLocation(
                m_host->newLocation(Url::fromString(QLatin1StringView(text))));
        };
        const auto isA = [](const auto &editor, const QMetaObject &meta) {
            return editor && editor->metaObject() == &meta;
        };
        QVERIFY(isA(editorFor("file:///a.qvSyncStore"), QVFolderLocationEditor::staticMetaObject));
        QVERIFY(isA(editorFor("http://h/a"), QVWebDAVLocationEditor::staticMetaObject));
        QVERIFY(isA(editorFor("https://h/a"), QVWebDAVLocationEditor::staticMetaObject));
        QVERIFY(
            isA(editorFor("velmora://h:1"), QVDirectConnectionLocationEditor::staticMetaObject));
        for (const char *other : {"HTTP://h/a", "File:///a", "Velmora://h:1", "ftp://h/a", ""}) {
            QVERIFY2(!editorFor(other), other);
        }
    }

    void aLocationOfAnUnknownSchemeCannotBeEdited() {
        m_host->addLocation(QStringLiteral("HTTP://host/a"));
        showPane();
        selectLocation(0);
        QCOMPARE(failureOf([this] { m_pane->editSelectedSyncLocation(nullptr); }),
                 failure("editor != nil"));
    }

    void absentArgumentsAreProgrammingErrors() {
        showPane();
        const auto location = m_host->newLocation(Url());
        QCOMPARE(failureOf([this] { m_pane->addSyncLocation(nullptr); }),
                 failure("location != nil"));
        QCOMPARE(failureOf([this] { m_pane->editSyncLocation(nullptr); }),
                 failure("editor != nil"));
        QCOMPARE(failureOf([this] { m_pane->removeSyncSelection(nullptr); }),
                 failure("selection != nil"));
        QCOMPARE(failureOf([this] { m_pane->editSyncSelection(nullptr); }),
                 failure("selection != nil"));
        QCOMPARE(failureOf([this] { m_pane->synchronizeDatabase(nullptr); }),
                 failure("database != nil"));
        QCOMPARE(failureOf([this] { m_pane->cleanSelectedSyncLocation(nullptr); }),
                 failure("_location != nil"));
        QCOMPARE(failureOf([&] { m_pane->cleanLocationForDatabaseWithUUID(location, {}); }),
                 failure("_UUID != nil"));
    }

    void bothRowsOfALocationCanBeRemoved() {
        m_host->addLocation();
        showPane();
        m_pane->willDeselect();
        m_pane->willSelect();
        const auto rows = m_pane->synchronizationSelections();
        QCOMPARE(rows.size(), 2);
        m_pane->removeSyncSelection(rows[0]);
        m_pane->removeSyncSelection(rows[1]);
        QVERIFY(m_pane->synchronizationSelections().isEmpty());
        QVERIFY(URLs().isEmpty());
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void cleaningWithoutAStateFinishes() {
        const auto location = m_host->addLocation();
        showPane();
        setDebugging(Debugging::Normal);
        const MessageRecorder recorder;
        m_pane->cleanLocationForDatabaseWithUUID(location, QStringLiteral("no such database"));
        location->setURL(Url::fromString(QStringLiteral("http://u:geheim@h/moved.qvSyncStore")));
        QTRY_COMPARE(recorder.messages().size(), 2);
        QCOMPARE(recorder.messages()[1],
                 QStringLiteral("Finished cleaning location http://u@h/moved.qvSyncStore"));
    }

    void onlyALocationWithAnEditorCanBeEdited() {
        m_host->addLocation(QStringLiteral("gopher://h/a"));
        m_host->addLocation(QStringLiteral("dropbox://u@h"));
        showPane();
        selectLocation(0);
        QVERIFY(!part<QPushButton>("editLocationButton")->isEnabled());
        selectLocation(1);
        QVERIFY(part<QPushButton>("editLocationButton")->isEnabled());
    }

    void onlyASelectedRowOfACleanableKindCanBeCleanedUp() {
        const auto database = m_host->addDatabase(QStringLiteral("Data"));
        const QString direct = QVDirectConnectionServer::URLScheme() + QStringLiteral("://h:4711");
        m_host->addState(m_host->addLocation(), database)->setEnabled(true);
        m_host->addState(m_host->addLocation(direct), database)->setEnabled(true);
        showPane();
        m_pane->databasesController()->setSelectionIndexes({0});
        QCOMPARE(m_pane->databases().first()->name(), QStringLiteral("Data"));
        for (const qsizetype index : {0, 1}) {
            selectLocation(index);
            Q_EMIT part<QMenu>("moreMenu")->aboutToShow();
            QCOMPARE(part<QAction>("cleanItem")->isEnabled(), index == 0);
        }
    }

    void removingALocationTakesItsStatesFromEveryRowFirst() {
        const auto first = m_host->addDatabase(QStringLiteral("First"));
        const auto second = m_host->addDatabase(QStringLiteral("Second"));
        const auto location = m_host->addLocation();
        m_host->addState(location, first)->setEnabled(true);
        m_host->addState(location, second)->setEnabled(true);
        m_host->addLocation(QStringLiteral("http://u@kept/a"));
        m_host->save();
        showPane();
        bool wereRowsFree = false;
        const auto rows = m_pane->databases();
        const auto statesOfRows = [&] {
            qsizetype count = 0;
            for (const auto &row : rows) {
                count += row->synchronizationStates().size();
            }
            return count;
        };
        QCOMPARE(statesOfRows(), 2);
        connect(location->stateForDatabaseWithUUID(first->UUID()).get(),
                &QVSyncState::enabledChanged, this, [&] { wereRowsFree = statesOfRows() == 0; });
        selectLocation(0);
        click("removeLocationButton");
        QVERIFY(wereRowsFree);
        QCOMPARE(URLs(), QStringList{QStringLiteral("http://u@kept/a")});
        QCOMPARE(m_pane->synchronizationSelections().size(), 1);
        QCOMPARE(savedCount(), 1);
        QVERIFY(!location->stateForDatabaseWithUUID(first->UUID())->isEnabled());
    }

    void aFailedSaveIsPresentedAndTheLocationStays() {
        showPane();
        m_host->makeSavesFail();
        choose("addMenu", "addWebDAVItem");
        typeInSheet("serverField", QStringLiteral("host"));
        typeInSheet("storeField", QStringLiteral("Store"));
        pressInSheet("acceptButton");
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(URLs().size(), 1);
        m_host->letSavesPass();
    }

    void cleaningIsLoggedAndReturnsAtOnce() {
        const auto database = m_host->addDatabase(QStringLiteral("Cleaned"));
        const auto location = m_host->addLocation();
        m_host->addState(location, database)->setEnabled(true);
        showPane();
        setDebugging(Debugging::Normal);
        QTest::ignoreMessage(
            QtInfoMsg, QRegularExpression(QStringLiteral("^Attempting to clean location file:")));
        QTest::ignoreMessage(
            QtInfoMsg, QRegularExpression(QStringLiteral("^Finished cleaning location file:")));
        bool isFinished = false;
        m_pane->cleanLocationForDatabaseWithUUID(location, database->UUID());
        QVERIFY(!m_pane->plugin()->dispatcher()->activity().isEmpty());
        m_pane->plugin()->dispatcher()->cleanRemoteStoreWithSynchronizationState(
            location->stateForDatabaseWithUUID(database->UUID()),
            [&] { QMetaObject::invokeMethod(qApp, [&] { isFinished = true; }); });
        QTRY_VERIFY(isFinished);
    }

    void theEndOfACleanUpIsLoggedWithTheAddressOfThen() {
        const auto location = m_host->addLocation();
        showPane();
        setDebugging(Debugging::Normal);
        QTest::ignoreMessage(
            QtInfoMsg, QRegularExpression(QStringLiteral("^Attempting to clean location file:")));
        QTest::ignoreMessage(QtInfoMsg, "Finished cleaning location https://elsewhere/a");
        bool isFinished = false;
        m_pane->cleanLocationForDatabaseWithUUID(location, QStringLiteral("unknown"));
        location->setURL(Url::fromString(QStringLiteral("https://elsewhere/a")));
        m_pane->plugin()->dispatcher()->cleanRemoteStoreWithSynchronizationState(
            nullptr, [&] { MainQueue::dispatchAsync([&] { isFinished = true; }); });
        QTRY_VERIFY(isFinished);
    }

    void buttonsNeedASelectedRow() {
        m_host->addLocation();
        showPane();
        for (const char *name : {"removeLocationButton", "editLocationButton", "moreButton"}) {
            m_pane->syncLocationsController()->setSelectionIndexes({});
            QVERIFY2(!part<QPushButton>(name)->isEnabled(), name);
            selectLocation(0);
            QVERIFY2(part<QPushButton>(name)->isEnabled(), name);
        }
    }

    void menuItemsAreEnabledAfreshWhenTheMenuOpens() {
        m_host->addLocation();
        m_host->addLocation(QStringLiteral("http://u@h/a"));
        showPane();
        selectLocation(0);
        Q_EMIT part<QMenu>("moreMenu")->aboutToShow();
        QVERIFY(part<QAction>("revealItem")->isEnabled());
        QVERIFY(!part<QAction>("cleanItem")->isEnabled());
        selectLocation(1);
        Q_EMIT part<QMenu>("moreMenu")->aboutToShow();
        QVERIFY(!part<QAction>("revealItem")->isEnabled());
        QVERIFY(part<QAction>("checkItem")->isEnabled());
    }

    void checkingShowsActivityAndThenWhatWentWrong() {
        m_host->addLocation(QStringLiteral("file:///missing.qvSyncStore"));
        showPane();
        selectLocation(0);
        const auto row = m_pane->synchronizationSelections().constFirst();
        QList<bool> activity;
        connect(row.get(), &QVSynchronizationSelection::activeChanged, this,
                [&, raw = row.get()] { activity.append(raw->isActive()); });
        choose("moreMenu", "checkItem");
        QTRY_COMPARE(activity, QList<bool>({true, false}));
        QVERIFY(row->error());
        auto *warning = m_pane->locationsView()->items().at(0)->view()->findChild<QToolButton *>(
            QStringLiteral("rowWarningButton"));
        QVERIFY(!warning->isHidden());
        QCOMPARE(m_host->application().presentedErrors(), QList<Error>{*row->error()});
        warning->click();
        QCOMPARE(m_host->application().presentedErrors(),
                 QList<Error>({*row->error(), *row->error()}));
    }

    void checkingAgainForgetsWhatWasWrongBefore() {
        m_host->addLocation();
        showPane();
        selectLocation(0);
        const auto row = m_pane->synchronizationSelections().constFirst();
        row->setError(Error{.localizedDescription = QStringLiteral("It was not there.")});
        QSignalSpy activity(row.get(), &QVSynchronizationSelection::activeChanged);
        choose("moreMenu", "checkItem");
        QTRY_COMPARE(activity.count(), 2);
        QVERIFY(!row->error());
    }

    void databasesAreImportedFromALocationAddedForThat_data() {
        QTest::addColumn<bool>("isAdded");
        QTest::newRow("added") << true;
        QTest::newRow("cancelled") << false;
    }
    void databasesAreImportedFromALocationAddedForThat() {
        QFETCH(bool, isAdded);
        showPane();
        m_pane->addLocationOfKind(QStringLiteral("webDAV"),
                                  LocationAdding::Next::DatabasesToImport);
        const QPointer<SheetWindow> editor = sheet();
        typeInSheet("serverField", QStringLiteral("127.0.0.1"));
        typeInSheet("storeField", QStringLiteral("Shared"));
        pressInSheet(isAdded ? "acceptButton" : "cancelButton");
        QTRY_VERIFY(!editor || !editor->isVisible());
        QCOMPARE(URLs().size(), isAdded ? 1 : 0);
        QTRY_COMPARE(sheet() != nullptr, isAdded);
        if (isAdded) {
            const auto location = m_host->locations().syncLocations().constFirst();
            QVERIFY(location->synchronizationStates().constFirst()->isEnabled());
            QTest::keyClick(sheet(), Qt::Key_Escape);
        }
    }

    void anImportedDatabaseIsSelected_data() {
        QTest::addColumn<QStringList>("selectsMeanwhile");
        QTest::addColumn<bool>("opensAnother");
        QTest::addColumn<QString>("selectedAtLast");
        QTest::newRow("it is awaited") << QStringList() << false << QStringLiteral("Attic");
        QTest::newRow("another is opened before")
            << QStringList() << true << QStringLiteral("Attic");
        QTest::newRow("the user goes on")
            << QStringList{QStringLiteral("Projects")} << false << QStringLiteral("Projects");
        QTest::newRow("the user goes on and returns")
            << QStringList{QStringLiteral("Projects"), QStringLiteral("Inbox")} << false
            << QStringLiteral("Inbox");
    }
    void anImportedDatabaseIsSelected() {
        QFETCH(const QStringList, selectsMeanwhile);
        QFETCH(const bool, opensAnother);
        QFETCH(const QString, selectedAtLast);
        const QString imported = QStringLiteral("5c9f2f6e-3f4f-4b55-8a52-0c8a2a0a1b11");
        putDatabaseRecord(m_host->addLocation(), imported, QStringLiteral("Attic"));
        const QHash<QString, QString> rows = {
            {QStringLiteral("Attic"), imported},
            {QStringLiteral("Projects"), m_host->addDatabase(QStringLiteral("Projects"))->UUID()},
            {QStringLiteral("Inbox"), InboxUUID}};
        showPane();
        m_pane->selectDatabase(InboxUUID);
        m_pane->showImportDatabasesSheet(nullptr);
        sheet()->findChild<TableView *>(QStringLiteral("locationsTable"))->selectRow(0);
        pressInSheet("continueButton");
        auto *databases = sheet()->findChild<TableView *>(QStringLiteral("databasesTable"));
        QTRY_COMPARE(databases->rowCount(), 1);
        databases->selectRow(0);
        QTRY_VERIFY(sheet()->findChild<QPushButton *>(QStringLiteral("actionButton"))->isEnabled());
        pressInSheet("actionButton");
        for (const QString &name : selectsMeanwhile) {
            m_pane->selectDatabase(rows.value(name));
        }
        if (opensAnother) {
            m_host->addDatabase(QStringLiteral("Another"));
        }
        QTRY_COMPARE(m_pane->databasesView()->items().size(), opensAnother ? 4 : 3);
        QCOMPARE(m_pane->selectedDatabase(), rows.value(selectedAtLast));
    }

    void theFirstLocationIsTickedForEveryDatabase() {
        for (const char *name : {"Projects", "Letters"}) {
            m_host->addDatabase(QString::fromLatin1(name));
        }
        showPane();
        inPanel([](PackagePanel &panel) { panel.reject(); });
        m_pane->addLocationOfKind(QStringLiteral("folder"), LocationAdding::Next::Nothing);
        QVERIFY(URLs().isEmpty());
        m_pane->addLocationOfKind(QStringLiteral("webDAV"), LocationAdding::Next::Nothing);
        const QPointer<SheetWindow> editor = sheet();
        typeInSheet("serverField", QStringLiteral("127.0.0.1"));
        typeInSheet("storeField", QStringLiteral("Shared"));
        pressInSheet("acceptButton");
        QTRY_VERIFY(!editor || !editor->isVisible());
        const auto location = m_host->locations().syncLocations().constFirst();
        const QVSyncStates states = location->synchronizationStates();
        QCOMPARE(states.size(), m_host->library().knownDatabases().size());
        for (const auto &state : states) {
            QVERIFY(state->isEnabled());
        }
        // A later one only for the selected database.
        m_pane->addWebDAVLocation(nullptr);
        typeInSheet("serverField", QStringLiteral("127.0.0.1"));
        typeInSheet("storeField", QStringLiteral("Other"));
        pressInSheet("acceptButton");
        QTRY_COMPARE(URLs().size(), 2);
        QVERIFY(m_host->locations().syncLocations().constLast()->synchronizationStates().size() <
                2);
    }

    void aSheetMayOutliveThePane() {
        showPane();
        QWidget window;
        m_pane->mainView()->setParent(&window);
        m_pane->addWebDAVLocation(nullptr);
        const QPointer<SheetWindow> sheet = window.findChild<SheetWindow *>();
        QVERIFY(sheet);
        m_pane.reset();
        if (sheet) {
            sheet->findChild<QPushButton *>(QStringLiteral("cancelButton"))->click();
        }
        QVERIFY(URLs().isEmpty());
    }
};

VELMORA_TEST(LocationCommandsTest)
#include "LocationCommandsTest.moc"
