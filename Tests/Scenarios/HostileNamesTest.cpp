#include <QtGui/QHelpEvent>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolTip>
#include <future>

#include "Application/ConflictDialog.h"
#include "Application/EventLog.h"
#include "Application/HistoryDialog.h"
#include "Application/LogWindow.h"
#include "Application/MainWindow.h"
#include "Application/PreferencesWindow.h"
#include "Application/QuestionBox.h"
#include "Application/RemovalDialog.h"
#include "Application/UnsavedTextDialog.h"
#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/QVServerPreferencesController.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Engine/DirectConnection/DirectConnection.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/TextLabel.h"
#include "Platform/Security/Keychain.h"
#include "Support/HostShortcuts.h"
#include "Support/ScriptedServer.h"
#include "Support/ShownName.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Names that another computer controls, full of markup: wherever they are shown, they are shown
/// as they are.
class HostileNamesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<QVSyncLocation> m_location;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<LogWindow> m_logWindow;
    std::unique_ptr<PreferencesWindow> m_preferences;

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }

    void init() {
        m_host = std::make_unique<TestHost>();
        const auto database = m_host->addDatabase(ShownName::Hostile);
        Note note{.title = ShownName::Hostile, .text = ShownName::Hostile};
        QVERIFY(database->saveNote(note));
        m_location = m_host->addLocation(m_host->makeSyncStore(ShownName::Hostile));
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_window->show();
        m_window->findChild<QListWidget *>(QStringLiteral("databases"))->setCurrentRow(1);
        m_log.append(ShownName::Hostile, ShownName::Hostile);
        m_logWindow = std::make_unique<LogWindow>(&m_log, nullptr);
        m_logWindow->show();
        m_preferences = std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
        m_preferences->show();
        QVSyncPreferences::preferences()->databasesController()->setSelectionIndexes({0});
        QVSyncPreferences::preferences()->syncLocationsController()->setSelectionIndexes({0});
    }

    void cleanup() {
        m_preferences.reset();
        m_logWindow.reset();
        m_window.reset();
        m_location.reset();
        m_host.reset();
    }

    void theWindowsShowThemAsTheyAre() {
        const ShownName shown(ShownName::Hostile);
        for (const char *place :
             {"TextLabel rowName", "TextLabel rowTitle", "QListWidget databases", "NotesList ",
              "PlaceholderField ", "NoteTextEdit ", "QTreeView "}) {
            QVERIFY2(shown.places().contains(QLatin1StringView(place)), place);
        }
        QCOMPARE(shown.misreadPlaces(), QStringList());
    }

    void theToolTipsOfElidedNamesShowThemAsTheyAre() {
        for (const char *name : {"rowName", "rowTitle"}) {
            const auto labels = m_preferences->findChildren<TextLabel *>(QLatin1StringView(name));
            const auto found = std::find_if(labels.begin(), labels.end(), [](TextLabel *label) {
                return label->text().contains(ShownName::Hostile);
            });
            QVERIFY(found != labels.end());
            (*found)->resize(20, (*found)->height());
            QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), (*found)->mapToGlobal(QPoint(1, 1)));
            QApplication::sendEvent(*found, &event);
            QVERIFY(ShownName::isToolTipOf(QToolTip::text(), (*found)->text()));
            QToolTip::hideText();
        }
    }

    void theImportSheetShowsThemAsTheyAre() {
        putDatabaseRecord(m_location, QStringLiteral("11111111-2222-4333-8444-555555555555"),
                          ShownName::Hostile);
        QWidget parent;
        parent.show();
        const auto controller = QVImportDatabasesController::newController();
        controller->runImportDatabasesSheetModalForWindow(&parent, [] {});
        controller->fetchDatabasesForLocation(m_location);
        auto *table =
            controller->window()->findChild<TableView *>(QStringLiteral("databasesTable"));
        QTRY_COMPARE(table->rowCount(), 1);
        controller->setRemoteError(Error{.localizedDescription = ShownName::Hostile,
                                         .localizedFailureReason = ShownName::Hostile});
        const ShownName shown(ShownName::Hostile);
        for (const char *place : {"TableView locationsTable", "TableView databasesTable",
                                  "NotificationLabel errorLabel"}) {
            QVERIFY2(shown.places().contains(QLatin1StringView(place)), place);
        }
        QCOMPARE(shown.misreadPlaces(), QStringList());
    }

    void theFormsOfDirectConnectionsShowThemAsTheyAre() {
        QWidget parent;
        parent.show();
        const auto editor =
            QVDirectConnectionLocationEditor::editorWithSyncLocation(m_host->newLocation(Url()));
        editor->runLocationEditorModalForWindow(&parent, true, [](qint64) {});
        editor->netServiceBrowserDidFindServiceMoreComing(
            nullptr,
            std::make_shared<NetService>(QStringLiteral("local"),
                                         DirectConnection::BonjourServiceType, ShownName::Hostile,
                                         quint16(0)),
            false);
        Keychain::shared().setPassword(DirectConnection::ClientAuthorizationServiceName,
                                       ShownName::Hostile, QByteArray("digest"));
        const auto clients = QVServerPreferencesController::controller();
        QTRY_COMPARE(clients->authorizedClients(), QStringList(ShownName::Hostile));
        clients->window()->show();
        const ShownName shown(ShownName::Hostile);
        for (const char *place : {"TableView servicesTable", "TableView clientsTable"}) {
            QVERIFY2(shown.places().contains(QLatin1StringView(place)), place);
        }
        QCOMPARE(shown.misreadPlaces(), QStringList());
        editor->cancelModalSheet(nullptr);
    }

    void theListsOfNotesShowThemAsTheyAre() {
        const auto database = m_host->addDatabase(ShownName::Hostile);
        Note note{.title = ShownName::Hostile, .text = ShownName::Hostile};
        QVERIFY(database->saveNote(note));
        QVERIFY(database->removeNote(note));
        HistoryDialog history(&m_host->library(), database, {}, m_window.get());
        history.show();
        auto *removal = new RemovalDialog(
            {.database = ShownName::Hostile,
             .location = ShownName::Hostile,
             .titles = {ShownName::Hostile},
             .total = 20},
            [](RemovalDecision) {}, m_window.get());
        removal->show();
        const ShownName shown(ShownName::Hostile);
        QVERIFY(!shown.places().filter(QStringLiteral("NoteVersionsList")).isEmpty());
        QVERIFY(!shown.places().filter(QStringLiteral("QLabel")).isEmpty());
        QCOMPARE(shown.misreadPlaces(), QStringList());
        removal->close();
    }

    void theComparisonOfEditsShowsThemAsTheyAre() {
        const Note note{.title = ShownName::Hostile, .text = ShownName::Hostile};
        ConflictDialog dialog(note, note, m_window.get());
        dialog.show();
        const ShownName shown(ShownName::Hostile);
        QCOMPARE(shown.places().filter(QStringLiteral("QPlainTextEdit")).size(), 2);
        QCOMPARE(shown.misreadPlaces(), QStringList());
    }

    void aQuestionShowsHostileNamesAsPlainText() {
        auto *box = new QuestionBox(
            {.text = ShownName::Hostile,
             .details = ShownName::Hostile,
             .acceptTitle = QStringLiteral("Allow"),
             .refuseTitle = QStringLiteral("Refuse"),
             .code = ShownName::Hostile},
            [](bool /*isAccepted*/) {}, m_window.get());
        box->present();
        const ShownName shown(ShownName::Hostile);
        for (const char *place :
             {"QLabel qt_msgbox_label", "QLabel qt_msgbox_informativelabel", "QLabel code"}) {
            QVERIFY2(shown.places().contains(QLatin1StringView(place)), place);
        }
        QCOMPARE(shown.misreadPlaces(), QStringList());
        box->close();
    }

    void aLongAddressIsShortened() {
        const ScriptedServer server([](ScriptedServer::Connection &connection) {
            connection.readRequest();
            connection.answer("302 Found\r\nLocation: http://other.example/" +
                              QByteArray(60'000, 'x'));
        });
        const auto location = m_host->addLocation(server.URLText(QStringLiteral("a.qvSyncStore")));
        const auto store =
            std::dynamic_pointer_cast<EngineSyncLocation>(location)->createBlobStore();
        const EngineFuture future;
        const Expected<void> opened =
            std::async(std::launch::async, [&] { return store->open(future); }).get();
        QVERIFY(!opened);
        const QString text = opened.error().localizedDescription;
        QVERIFY(text.contains(QStringLiteral("http://other.example/xxx")));
        QVERIFY(text.contains(QStringLiteral("edit the location")));
        QCOMPARE_LT(text.size(), PlainText::LongestMessage);
    }

    void theDialogForUnsavedTextShowsThemAsTheyAre() {
        QStringList places;
        QStringList misreadPlaces;
        QTimer::singleShot(0, qApp, [&] {
            const ShownName shown(ShownName::Hostile);
            places = shown.places();
            misreadPlaces = shown.misreadPlaces();
            QApplication::activeModalWidget()->close();
        });
        const Note note{.title = ShownName::Hostile, .text = ShownName::Hostile};
        QCOMPARE(UnsavedTextDialog::ask(m_window.get(), note,
                                        Error{.localizedDescription = ShownName::Hostile}),
                 UnsavedTextDialog::Choice::KeepEditing);
        QVERIFY(!places.filter(QStringLiteral("qt_msgbox")).isEmpty());
        QCOMPARE(misreadPlaces, QStringList());
    }
};

VELMORA_TEST(HostileNamesTest)
#include "HostileNamesTest.moc"
