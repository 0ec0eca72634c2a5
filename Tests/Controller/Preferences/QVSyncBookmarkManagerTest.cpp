#include "Controller/Preferences/QVSyncBookmarkManager.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/OpenPanel.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/HostShortcuts.h"
#include "Support/ScriptedHost.h"
#include "Support/ShownName.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const QString Work = QStringLiteral("/Users/x/Sync Stores/Work.qvSyncStore");
const QString Home = QStringLiteral("/Users/x/Home.v2.qvSyncStore");

QStringList &caughtMessages() {
    static QStringList messages;
    return messages;
}

void catchMessage(QtMsgType /*type*/, const QMessageLogContext &context, const QString &text) {
    if (qstrcmp(context.category, "default") != 0) {
        caughtMessages().append(text);
    }
}

}  // namespace

class QVSyncBookmarkManagerTest : public QObject {
    Q_OBJECT
    using DataSource = QVSyncBookmarkManagerDataSource;

    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<TestHost> m_realHost;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<QVSyncBookmarkManager> m_manager;

    template <class Widget>
    Widget *part(const char *name) {
        return m_manager->window()->findChild<Widget *>(QLatin1StringView(name));
    }
    TableView *table() { return part<TableView>("tableView"); }
    DataSource &dataSource() { return dynamic_cast<DataSource &>(*table()->tableDelegate()); }
    QStringList paths() {
        QStringList result;
        for (const QVariant &row : dataSource().tableContents()) {
            result.append(row.toMap().value(QStringLiteral("path")).toString());
        }
        return result;
    }
    QLabel *cellPart(int row, const char *name) {
        return table()->cellWidget(row, 0)->findChild<QLabel *>(QLatin1StringView(name));
    }
    /// Does `act` once the panel is up.
    static void inPanel(const std::function<void(OpenPanel &)> &act) {
        QTRY_VERIFY(qobject_cast<OpenPanel *>(QApplication::activeModalWidget()));
        act(*qobject_cast<OpenPanel *>(QApplication::activeModalWidget()));
    }
    void run(const std::function<void()> &act) {
        QTimer::singleShot(0, qApp, [&] {
            act();
            m_manager->acceptModalSheet(nullptr);
        });
        m_manager->runBookmarkManagerModalForWindow(m_parent.get());
    }
    void load(const QStringList &bookmarks) {
        m_host->bookmarks = bookmarks;
        m_manager->window();
    }
    template <class Act>
    static QStringList loggedBy(const Act &act) {
        caughtMessages().clear();
        const QtMessageHandler before = qInstallMessageHandler(&catchMessage);
        act();
        qInstallMessageHandler(before);
        return caughtMessages();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        setDebugging(Debugging::Off);
        m_host = std::make_unique<ScriptedHost>();
        m_parent = std::make_unique<QWidget>();
        m_manager = QVSyncBookmarkManager::bookmarkManager();
    }
    void cleanup() {
        m_manager.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_parent.reset();
        m_realHost.reset();
        m_host.reset();
    }

    void aRowHasIconNameAndPath() {
        const QVariantMap row = DataSource().dictionaryForPath(Work);
        QCOMPARE(row.keys(), QStringList({QStringLiteral("image"), QStringLiteral("name"),
                                          QStringLiteral("path")}));
        QVERIFY(!row[QStringLiteral("image")].value<QPixmap>().isNull());
        QCOMPARE(row[QStringLiteral("name")].toString(), QStringLiteral("Work"));
        QCOMPARE(row[QStringLiteral("path")].toString(), Work);
    }

    void onlyTheLastExtensionIsLeftOutOfAName() {
        QCOMPARE(DataSource().dictionaryForPath(Home)[QStringLiteral("name")].toString(),
                 QStringLiteral("Home.v2"));
    }

    void withoutBookmarksTheTableIsEmpty() {
        load({});
        QCOMPARE(table()->rowCount(), 0);
        QVERIFY(!dataSource().canRemove());
        QVERIFY(!part<QPushButton>("removeButton")->isEnabled());
    }

    void rowsStandInTheOrderOfTheHost() {
        load({Work, Home});
        QCOMPARE(paths(), QStringList({Work, Home}));
        QCOMPARE(table()->rowCount(), 2);
        QVERIFY(m_host->calls.isEmpty());
    }

    void rowsAreReadAnewByEachSheet() {
        load({Work});
        dataSource().insertDictionaryForPath(Home);
        dataSource().awakeFromNib();
        QCOMPARE(paths(), QStringList{Work});
    }

    void aCellShowsIconNameAndPath() {
        load({Home, Work});
        QCOMPARE(cellPart(1, "textField")->text(), QStringLiteral("Work"));
        QVERIFY(!cellPart(1, "imageView")->pixmap().isNull());
        QCOMPARE(table()->cellWidget(1, 0)->toolTip(), Work);
        QCOMPARE(cellPart(1, "textField")->toolTip(), Work);
    }

    void aCellShowsMarkupInItsPathAsItIs() {
        load({QStringLiteral("/home/") + ShownName::Hostile});
        const ShownName shown(ShownName::Hostile);
        QCOMPARE(shown.places().size(), 3);
        QCOMPARE(shown.misreadPlaces(), QStringList());
    }

    void theNameOfASelectedRowCanBeRead() {
        load({Home});
        m_manager->addBookmarksObject(Work);
        table()->selectRow(0);
        const QLabel *name = cellPart(0, "textField");
        QCOMPARE(name->palette().color(name->foregroundRole()),
                 table()->palette().color(QPalette::HighlightedText));
    }

    void onlyTheBookmarkColumnHasViews() {
        load({Work});
        QVERIFY(!dataSource().tableViewViewForTableColumnRow(table(), QStringLiteral("Other"), 0));
        QVERIFY(!dataSource().tableViewViewForTableColumnRow(table(),
                                                             QStringLiteral("BookmarkCell"), 1));
        const std::unique_ptr<QWidget> view(dataSource().tableViewViewForTableColumnRow(
            table(), QStringLiteral("BookmarkCell"), 0));
        QVERIFY(view);
    }

    void aRowIsKnownByItsPathAlone() {
        load({Work});
        QVERIFY(dataSource().containsRow({{QStringLiteral("path"), Work}}));
        QVERIFY(!dataSource().containsRow({{QStringLiteral("path"), Work.toLower()}}));
        QVERIFY(!dataSource().containsRow({{QStringLiteral("name"), QStringLiteral("Work")}}));
    }

    void aPathIsInsertedOnceAtTheEnd() {
        load({Work});
        dataSource().insertDictionaryForPath(Home);
        dataSource().insertDictionaryForPath(Work);
        QCOMPARE(paths(), QStringList({Work, Home}));
        QVERIFY(m_host->calls.isEmpty());
    }

    void anAbsentPathIsAProgrammingError() {
        try {
            DataSource().insertDictionaryForPath(QString());
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: _path != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/Preferences/QVSyncBookmarkManagerDataSource"));
            QCOMPARE(failure.line(), 58);
        }
    }

    void removingAPathRemovesEveryRowWithIt() {
        load({Work, Home});
        QVariantList rows = dataSource().tableContents();
        rows.append(rows.first());
        dataSource().setTableContents(rows);
        dataSource().removeDictionaryForPath(Work);
        QCOMPARE(paths(), QStringList{Home});
        dataSource().removeDictionaryForPath(Work);
        QCOMPARE(paths(), QStringList{Home});
    }

    void addingCallsTheHostEachTimeAndShowsOneRow() {
        load({});
        m_manager->addBookmarksObject(Work);
        m_manager->addBookmarksObject(Work);
        const QString call = QStringLiteral("bookmark ") + Url::fileURL(Work).absoluteString();
        QCOMPARE(m_host->calls, QStringList({call, call}));
        QCOMPARE(paths(), QStringList{Work});
        QCOMPARE(table()->rowCount(), 1);
        QCOMPARE(cellPart(0, "textField")->text(), QStringLiteral("Work"));
    }

    void removingCallsTheHostAndRemovesTheRow() {
        load({Work, Home});
        m_manager->removeBookmarksObject(Work);
        QCOMPARE(m_host->calls,
                 QStringList{QStringLiteral("remove ") + Url::fileURL(Work).absoluteString()});
        QCOMPARE(paths(), QStringList{Home});
        QCOMPARE(table()->rowCount(), 1);
        QCOMPARE(table()->cellWidget(0, 0)->toolTip(), Home);
    }

    void removingIsPossibleWhileARowIsSelected() {
        load({Work, Home});
        AnnouncementRecorder recorder(&dataSource());
        table()->selectRow(1);
        QVERIFY(dataSource().canRemove());
        QVERIFY(recorder.count("canRemove") > 0);
        QVERIFY(part<QPushButton>("removeButton")->isEnabled());
        table()->clearSelection();
        QVERIFY(!dataSource().canRemove());
        QVERIFY(!part<QPushButton>("removeButton")->isEnabled());
    }

    void theRemoveButtonRemovesTheSelectedRow() {
        load({Work, Home});
        table()->selectRow(1);
        part<QPushButton>("removeButton")->click();
        QCOMPARE(paths(), QStringList{Work});
        QCOMPARE(m_host->calls,
                 QStringList{QStringLiteral("remove ") + Url::fileURL(Home).absoluteString()});
        QVERIFY(!dataSource().canRemove());
    }

    void theKeyDeleteRemovesTheSelectedRow() {
        load({Work, Home});
        table()->selectRow(1);
        QTest::keyClick(table(), Qt::Key_Delete);
        QCOMPARE(paths(), QStringList{Work});
    }

    void removingWithoutSelectionRemovesNothing() {
        load({Work});
        m_manager->removeSelectedBookmarksObject(nullptr);
        QCOMPARE(paths(), QStringList{Work});
    }

    void theAddButtonAsksForAFolder() {
        QTemporaryDir folder;
        load({});
        run([&] {
            part<QPushButton>("addButton")->click();
            inPanel([&](OpenPanel &panel) {
                QCOMPARE(panel.windowTitle(),
                         QStringLiteral("Give Velmora access to any folder where indexed items "
                                        "may be kept."));
                QCOMPARE(panel.parentWidget(), m_manager->window());
                QCOMPARE(panel.windowModality(), Qt::WindowModal);
                panel.selectFile(folder.path());
                QMetaObject::invokeMethod(&panel, "accept");
            });
        });
        QCOMPARE(paths(), QStringList{folder.path()});
        QCOMPARE(m_host->calls, QStringList{QStringLiteral("bookmark ") +
                                            Url::fileURL(folder.path()).absoluteString()});
    }

    void aChosenFolderIsSelected() {
        QTemporaryDir folder;
        load({folder.path(), Work});
        const auto choose = [&](const QString &path) {
            run([&] {
                part<QPushButton>("addButton")->click();
                inPanel([&](OpenPanel &panel) {
                    panel.selectFile(path);
                    QMetaObject::invokeMethod(&panel, "accept");
                });
            });
        };
        QTemporaryDir other;
        choose(other.path());
        QCOMPARE(table()->selectionIndexes(), IndexSet{2});
        QVERIFY(dataSource().canRemove());
        // One that is listed already.
        choose(folder.path());
        QCOMPARE(table()->selectionIndexes(), IndexSet{0});
    }

    void cancellingThePanelAddsNothing() {
        load({});
        run([&] {
            part<QPushButton>("addButton")->click();
            inPanel([](OpenPanel &panel) { panel.reject(); });
        });
        QVERIFY(m_host->calls.isEmpty());
        QVERIFY(paths().isEmpty());
    }

    void theRealHostKeepsWhatIsGranted() {
        m_host.reset();
        m_realHost = std::make_unique<TestHost>();
        m_manager->window();
        m_manager->addBookmarksObject(Work);
        m_manager->addBookmarksObject(Home);
        m_manager->removeBookmarksObject(Work);
        m_manager = QVSyncBookmarkManager::bookmarkManager();
        QCOMPARE(paths(), QStringList{Home});
    }

    void runningReturnsOnlyWhenTheSheetHasClosed() {
        QWidget parent;
        bool wasVisible = false;
        QTimer::singleShot(0, qApp, [&] {
            wasVisible = m_manager->window()->isVisible();
            QCOMPARE(m_manager->window()->parentWidget(), &parent);
            part<QPushButton>("closeButton")->click();
        });
        m_manager->runBookmarkManagerModalForWindow(&parent);
        QVERIFY(wasVisible);
        QVERIFY(!m_manager->window()->isVisible());
    }

    void escapeCloses() {
        QWidget parent;
        QTimer::singleShot(0, qApp, [&] { QTest::keyClick(m_manager->window(), Qt::Key_Escape); });
        m_manager->runBookmarkManagerModalForWindow(&parent);
        QVERIFY(!m_manager->window()->isVisible());
    }

    void anAbsentWindowIsAProgrammingError() {
        try {
            m_manager->runBookmarkManagerModalForWindow(nullptr);
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: _parentWindow != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/Preferences/QVSyncBookmarkManager"));
            QCOMPARE(failure.line(), 52);
        }
    }

    void everyStepIsLoggedWhileBothDefaultsAskForIt() {
        m_host->bookmarks = {Work};
        setDebugging(Debugging::High);
        const QStringList loading = loggedBy([this] { m_manager->window(); });
        QCOMPARE(loading.size(), 3);
        QCOMPARE(loading[0], QStringLiteral("Requesting view for column BookmarkCell at row 0"));
        QVERIFY(loading[1].startsWith(QStringLiteral("Returning view ")));
        QVERIFY(loading[1].endsWith(QStringLiteral(" for column BookmarkCell at row 0")));
        QVERIFY(loading[2].startsWith(
            QStringLiteral("Bookmark manager sucessfully initialized: window ")));
        QCOMPARE(loggedBy([this] { m_manager->addBookmarksObject(Work); }).constFirst(),
                 QStringLiteral("Adding object for path: ") + Work);
        QCOMPARE(loggedBy([this] { m_manager->removeBookmarksObject(Work); }).constFirst(),
                 QStringLiteral("Received path: ") + Work);
        QCOMPARE(loggedBy([this] {
                     dataSource().tableViewViewForTableColumnRow(table(), QStringLiteral("X"), 5);
                 }),
                 QStringList({QStringLiteral("Requesting view for column X at row 5"),
                              QStringLiteral("Returning view (null) for column X at row 5")}));
    }

    void nothingIsLoggedOtherwise() {
        m_host->bookmarks = {Work};
        for (const Debugging debugging : {Debugging::Off, Debugging::Normal}) {
            setDebugging(debugging);
            m_manager = QVSyncBookmarkManager::bookmarkManager();
            QCOMPARE(loggedBy([this] {
                         m_manager->window();
                         m_manager->addBookmarksObject(Home);
                         m_manager->removeBookmarksObject(Home);
                     }),
                     QStringList());
        }
    }
};

VELMORA_TEST(QVSyncBookmarkManagerTest)
#include "QVSyncBookmarkManagerTest.moc"
