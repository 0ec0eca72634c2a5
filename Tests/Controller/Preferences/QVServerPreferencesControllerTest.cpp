#include "Controller/Preferences/QVServerPreferencesController.h"

#include <QtCore/QRegularExpression>
#include <QtNetwork/QTcpServer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <atomic>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Security/Keychain.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/AskedUser.h"
#include "Support/FreePort.h"
#include "Support/KeychainRemoval.h"
#include "Support/ScriptedHost.h"
#include "Support/SecretService.h"
#include "Support/SetDefault.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const QString PortNumberKey = QStringLiteral("QVDirectConnectionServerPortNumber");
const QString EnabledKey = QStringLiteral("QVDirectConnectionServerEnabled");

}  // namespace

class QVServerPreferencesControllerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<SecretService> m_secretService;
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<TestHost> m_realHost;
    std::unique_ptr<QVServerPreferencesController> m_controller;

    void useRealHost() {
        m_controller.reset();
        m_host.reset();
        m_realHost = std::make_unique<TestHost>();
        reopen();
    }
    /// Makes the controller anew, as the next opening of the sheet does.
    void reopen() {
        m_controller = QVServerPreferencesController::controller();
        const QSignalSpy loaded(m_controller.get(),
                                &QVServerPreferencesController::authorizedClientsChanged);
        QTRY_VERIFY(!loaded.isEmpty());
    }
    static QMap<QString, QString> itemAttributes(const QString &client) {
        return {{QStringLiteral("xdg:schema"), QStringLiteral("velmora-tests.GenericPassword")},
                {QStringLiteral("service"), QVDirectConnectionClientAuthorizationServiceName()},
                {QStringLiteral("account"), client}};
    }
    void authorize(const QString &client) {
        m_secretService->addItem(itemAttributes(client), "secret");
    }
    /// Answers the question whether to revoke.
    void answerConfirmation(QMessageBox::ButtonRole role) const {
        auto *box = m_controller->window()->findChild<QMessageBox *>();
        QVERIFY(box);
        QCOMPARE(box->text(), QStringLiteral("Prevent “Kim” from connecting?"));
        const auto buttons = box->buttons();
        const auto button = std::find_if(buttons.begin(), buttons.end(),
                                         [&](auto *each) { return box->buttonRole(each) == role; });
        QVERIFY(button != buttons.end());
        (*button)->click();
        QTRY_VERIFY(!m_controller->window()->findChild<QMessageBox *>());
    }
    /// Revokes and waits until the keychain has answered.
    void revoke(const QString &client) {
        m_controller->removeAuthorizedClientsObject(client);
        // The keychain does one thing after the other.
        bool isAnswered = false;
        Keychain::shared().removeFirstLater("none", "none",
                                            [&](const auto &) { isAnswered = true; });
        QTRY_VERIFY(isAnswered);
    }
    template <class Widget>
    Widget *part(const char *name) {
        return m_controller->window()->findChild<Widget *>(QLatin1StringView(name));
    }
    QStringList shownClients() {
        QStringList names;
        const auto *table = part<TableView>("clientsTable");
        for (int row = 0; row < table->rowCount(); ++row) {
            names.append(table->item(row, 0)->text());
        }
        return names;
    }
    /// Pairs this computer with its own server, connects, and returns the name of the client.
    QString visit() {
        AskedUser user;
        user.answerAll([](const Question & /*question*/) { return true; });
        QVDirectConnectionServer *server = m_realHost->engine().plugin().server();
        server->setPort(freePort());
        server->startServing();
        const auto location =
            m_realHost->addLocation(QStringLiteral("velmora://127.0.0.1:%1").arg(server->port()));
        const auto store = location->createStore();
        std::atomic<int> failures = -1;
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &error) { failures = error ? 1 : 0; });
        [&] { QTRY_COMPARE(failures.load(), 0); }();
        const QString service = QVDirectConnectionClientAuthorizationServiceName();
        QStringList clients = Keychain::shared().accounts(service).value_or(QStringList());
        clients.removeAll(QStringLiteral("Kim"));
        return clients.join(u',');
    }
    static void whileModal(const std::function<void()> &act) { QTimer::singleShot(0, qApp, act); }

private Q_SLOTS:
    void initTestCase() {
        registerSyncPreferencesInterface();
        m_secretService = std::make_unique<SecretService>();
    }
    void cleanupTestCase() { m_secretService.reset(); }
    void init() {
        m_host = std::make_unique<ScriptedHost>();
        reopen();
    }
    void cleanup() {
        m_controller.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_realHost.reset();
        m_host.reset();
        for (const QString &key : {PortNumberKey, EnabledKey}) {
            removeDefault(key);
        }
        // What a test has authorized must not outlive it.
        ScriptedHost host;
        const QString service = QVDirectConnectionClientAuthorizationServiceName();
        Keychain &keychain = Keychain::shared();
        for (const QString &client : keychain.accounts(service).value_or(QStringList())) {
            QVERIFY(KeychainRemoval::removeFirst(keychain, service.toUtf8(), client.toUtf8()));
        }
    }

    void theServerIsThatOfThePlugIn() { QCOMPARE(m_controller->server(), &m_host->server); }

    void thePortIsTheServers() {
        m_host->server.setPort(5000);
        QCOMPARE(m_controller->serverPort(), 5000);
    }

    void aNewPortIsStoredAndThenSetOnTheServer() {
        m_controller->setServerPort(65535);
        QCOMPARE(UserDefaults::integerForKey(PortNumberKey).value(), 65535);
        QCOMPARE(m_host->server.calls, QStringList{QStringLiteral("port 65535")});
        QVERIFY(!UserDefaults::contains(EnabledKey).value());
    }

    void thePortIsReadAgainWheneverTheServerStartsOrStops() {
        QCOMPARE(QVServerPreferencesController::keyPathsForValuesAffectingServerPort(),
                 KeyValue::KeyPaths{"server.serving"});
        AnnouncementRecorder recorder(m_controller.get());
        m_host->server.startServing();
        QCOMPARE(recorder.count("serverPort"), 1);
        m_host->server.stopServing();
        QCOMPARE(recorder.count("serverPort"), 2);
    }

    void switchingOnStartsTheServer() {
        QVERIFY(!m_controller->isEnabled());
        m_controller->setEnabled(true);
        QVERIFY(UserDefaults::boolForKey(EnabledKey).value());
        QCOMPARE(m_host->server.calls, QStringList{QStringLiteral("start")});
        QVERIFY(m_controller->isEnabled());
        m_controller->setEnabled(false);
        QVERIFY(UserDefaults::contains(EnabledKey).value());
        QVERIFY(!UserDefaults::boolForKey(EnabledKey).value());
        QCOMPARE(m_host->server.calls,
                 QStringList({QStringLiteral("start"), QStringLiteral("stop")}));
        QVERIFY(!UserDefaults::contains(PortNumberKey).value());
    }

    void aSettingThatCannotBeSavedIsReported() {
        m_controller->setEnabled(true);
        const QString path = QSettings().fileName();
        QVERIFY(QFile::remove(path));
        QVERIFY(QDir().mkpath(path));
        m_controller->setEnabled(false);
        QVERIFY(QDir().rmdir(path));
        QVERIFY(!m_controller->isEnabled());
        QCOMPARE(m_host->application.presentedErrors().size(), 1);
        QVERIFY(m_host->application.presentedErrors().first().localizedDescription.contains(path));
        m_controller->setEnabled(false);
        QVERIFY(!QSettings().value(EnabledKey, true).toBool());
    }

    void switchingToWhatIsAlreadySoOnlyWritesTheDefaults() {
        m_host->server.startServing();
        m_host->server.calls.clear();
        m_controller->setEnabled(true);
        QVERIFY(UserDefaults::boolForKey(EnabledKey).value());
        QVERIFY(m_host->server.calls.isEmpty());
        m_host->server.stopServing();
        m_host->server.calls.clear();
        m_controller->setEnabled(false);
        QVERIFY(!UserDefaults::boolForKey(EnabledKey).value());
        QVERIFY(m_host->server.calls.isEmpty());
    }

    void aServerThatCannotServeIsShownAsOff() {
        m_host->server.cannotServe = true;
        part<QCheckBox>("enabledCheckBox")->click();
        QCOMPARE(m_host->server.calls, QStringList{QStringLiteral("start")});
        QVERIFY(UserDefaults::boolForKey(EnabledKey).value());
        QVERIFY(!part<QCheckBox>("enabledCheckBox")->isChecked());
    }

    void theRealServerIsSwitchedAndMoved() {
        useRealHost();
        const quint16 port = freePort();
        m_controller->setServerPort(port);
        m_controller->setEnabled(true);
        QVERIFY(m_controller->server()->isServing());
        QCOMPARE(m_controller->serverPort(), port);
        m_controller.reset();
        m_realHost->restart();
        reopen();
        QVERIFY(m_controller->isEnabled());
        QCOMPARE(m_controller->serverPort(), port);
        m_controller->window()->show();
        const auto *address = part<QLabel>("addressLabel");
        QVERIFY(address->isVisible());
        QVERIFY2(address->text().contains(QStringLiteral("Port: %1").arg(port)),
                 qPrintable(address->text()));
        m_controller->setEnabled(false);
        QVERIFY(!m_controller->server()->isServing());
        QVERIFY(!address->isVisible());
    }

    void aPortInUseSwitchesTheServerOffAndTheCheckBoxSaysSo() {
        useRealHost();
        m_controller->setServerPort(freePort());
        m_controller->setEnabled(true);
        QVERIFY(part<QCheckBox>("enabledCheckBox")->isChecked());
        QTcpServer other;
        QVERIFY(other.listen(QHostAddress::Any, 0));
        part<QSpinBox>("portField")->setValue(other.serverPort());
        QVERIFY(!m_controller->server()->isServing());
        QVERIFY(!part<QCheckBox>("enabledCheckBox")->isChecked());
        QTRY_COMPARE(m_realHost->application().presentedErrors().size(), 1);
    }

    void theUserChoosesWhichDatabasesAreServed() {
        useRealHost();
        m_realHost->addDatabase(QStringLiteral("Diary"));
        const auto *table = part<TableView>("databasesTable");
        QCOMPARE(table->rowCount(), 2);
        QTableWidgetItem *diary = table->item(1, 0);
        QCOMPARE(diary->text(), QStringLiteral("Diary"));
        QCOMPARE(diary->checkState(), Qt::Checked);
        diary->setCheckState(Qt::Unchecked);
        reopen();
        table = part<TableView>("databasesTable");
        QCOMPARE(table->item(0, 0)->checkState(), Qt::Checked);
        QCOMPARE(table->item(1, 0)->checkState(), Qt::Unchecked);

        m_realHost->makeSavesFail();
        table->item(1, 0)->setCheckState(Qt::Checked);
        m_realHost->letSavesPass();
        QCOMPARE(table->item(1, 0)->checkState(), Qt::Unchecked);
        QCOMPARE(m_realHost->application().presentedErrors().size(), 1);
    }

    void aHostThatOffersNoChoiceShowsNone() {
        m_controller->window()->show();
        QVERIFY(!part<TableView>("databasesTable")->isVisible());
        QVERIFY(!part<QLabel>("databasesLabel")->isVisible());
    }

    void eachClientSaysWhenItConnectedLast() {
        useRealHost();
        authorize(QStringLiteral("Kim"));
        reopen();
        QCOMPARE(shownClients(), QStringList{QStringLiteral("Kim\nLast connected: unknown")});

        const QString visitor = visit();
        reopen();
        QCOMPARE(shownClients().size(), 2);
        QVERIFY(shownClients().contains(QStringLiteral("Kim\nLast connected: unknown")));
        const QString shown = shownClients().filter(visitor).join(u'|');
        static const QRegularExpression dated(QStringLiteral("\nLast connected: .*\\d:\\d\\d"));
        QVERIFY2(shown.contains(dated), qPrintable(shown));
    }

    void withoutItemsNoClientIsAuthorized() {
        QVERIFY(m_controller->authorizedClients().isEmpty());
        QVERIFY(m_host->application.presentedErrors().isEmpty());
        m_controller->window()->show();
        QVERIFY(part<QLabel>("emptyLabel")->isVisible());
        QVERIFY(!part<QLabel>("clientsProblemLabel")->isVisible());
        QVERIFY(!part<QPushButton>("revokeButton")->isEnabled());
    }

    void clientsAreReadWhenTheControllerIsMade() {
        authorize(QStringLiteral("Kim"));
        QVERIFY(m_controller->authorizedClients().isEmpty());
        reopen();
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
    }

    void itemsOfOtherServicesAreNoClients() {
        QMap<QString, QString> attributes = itemAttributes(QStringLiteral("Kim"));
        attributes[QStringLiteral("service")] = QStringLiteral("another service");
        m_secretService->addItem(attributes, "secret");
        reopen();
        QVERIFY(m_controller->authorizedClients().isEmpty());
    }

    void itemsWithoutAccountAreLeftOut() {
        QMap<QString, QString> attributes = itemAttributes({});
        attributes.remove(QStringLiteral("account"));
        m_secretService->addItem(attributes, "secret");
        authorize(QStringLiteral("Kim"));
        reopen();
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
    }

    void anUnreadableKeychainListsNoClients() {
        authorize(QStringLiteral("Kim"));
        m_secretService->stopKeyring();
        reopen();
        QVERIFY(m_controller->authorizedClients().isEmpty());
        QVERIFY(m_host->application.presentedErrors().isEmpty());
        m_controller->window()->show();
        QVERIFY(!part<QLabel>("emptyLabel")->isVisible());
        const auto *problem = part<QLabel>("clientsProblemLabel");
        QVERIFY(problem && problem->isVisible());
        QVERIFY2(problem->text().startsWith(
                     QStringLiteral("The computers that may connect cannot be listed. ")),
                 qPrintable(problem->text()));
        m_secretService = nullptr;
        m_secretService = std::make_unique<SecretService>();
    }

    void aLockedKeychainNamesItsClientsWithoutAPrompt() {
        authorize(QStringLiteral("Kim"));
        m_secretService->lock();
        reopen();
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
        m_secretService = nullptr;
        m_secretService = std::make_unique<SecretService>();
    }

    void aKeychainThatDoesNotAnswerNeitherBlocksNorLooksEmpty() {
        m_secretService->freezeKeyring();
        QElapsedTimer elapsed;
        elapsed.start();
        m_controller = QVServerPreferencesController::controller();
        const QSignalSpy loaded(m_controller.get(),
                                &QVServerPreferencesController::authorizedClientsChanged);
        m_controller->window()->show();
        QVERIFY(elapsed.elapsed() < 2000);
        QVERIFY(loaded.isEmpty());
        QVERIFY(!part<QLabel>("emptyLabel")->isVisible());
        m_secretService = nullptr;
        m_secretService = std::make_unique<SecretService>();
        QTRY_VERIFY(!loaded.isEmpty());
        QVERIFY(!part<QLabel>("emptyLabel")->isVisible());
    }

    void aClientIsInTheSetOnce() {
        AnnouncementRecorder recorder(m_controller.get());
        m_controller->addAuthorizedClientsObject(QStringLiteral("Kim"));
        m_controller->addAuthorizedClientsObject(QStringLiteral("Kim"));
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
        QCOMPARE(recorder.count("authorizedClients"), 2);
    }

    void clientsAreShownInTheOrderOfTheirNames() {
        for (const char *name : {"kim", "Zoe", "Ada", "Émile"}) {
            m_controller->addAuthorizedClientsObject(QString::fromUtf8(name));
        }
        QCOMPARE(m_controller->authorizedClientsSortDescriptors().size(), 1);
        QCOMPARE(shownClients(), QStringList({QStringLiteral("Ada"), QStringLiteral("Zoe"),
                                              QStringLiteral("kim"), QStringLiteral("Émile")}));
    }

    void revokingDeletesTheItem() {
        authorize(QStringLiteral("Kim"));
        authorize(QStringLiteral("Ada"));
        reopen();
        AnnouncementRecorder recorder(m_controller.get());
        revoke(QStringLiteral("Kim"));
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Ada")});
        QCOMPARE(recorder.count("authorizedClients"), 1);
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("Kim"))), 0);
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("Ada"))), 1);
    }

    void revokingNeverWaitsForTheKeychain() {
        authorize(QStringLiteral("Kim"));
        reopen();
        m_secretService->freezeKeyring();
        QElapsedTimer elapsed;
        elapsed.start();
        m_controller->removeAuthorizedClientsObject(QStringLiteral("Kim"));
        QVERIFY(elapsed.elapsed() < 2000);
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
        AnnouncementRecorder recorder(m_controller.get());
        m_secretService = nullptr;
        m_secretService = std::make_unique<SecretService>();
        revoke(QStringLiteral("Ada"));
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
        QCOMPARE(recorder.count("authorizedClients"), 0);
    }

    void aClientThatIsBeingRevokedIsNotRevokedAgain() {
        authorize(QStringLiteral("Kim"));
        authorize(QStringLiteral("Kim"));
        reopen();
        m_controller->removeAuthorizedClientsObject(QStringLiteral("Kim"));
        revoke(QStringLiteral("Kim"));
        QVERIFY(m_controller->authorizedClients().isEmpty());
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("Kim"))), 1);
    }

    void onlyTheFirstOfEqualItemsIsDeleted() {
        authorize(QStringLiteral("Kim"));
        authorize(QStringLiteral("Kim"));
        reopen();
        revoke(QStringLiteral("Kim"));
        QVERIFY(m_controller->authorizedClients().isEmpty());
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("Kim"))), 1);
    }

    void aClientWhoseItemWasDeletedStaysInTheList() {
        authorize(QStringLiteral("Kim"));
        reopen();
        const QByteArray service = QVDirectConnectionClientAuthorizationServiceName().toUtf8();
        QVERIFY(KeychainRemoval::removeFirst(Keychain::shared(), service, "Kim"));
        AnnouncementRecorder recorder(m_controller.get());
        revoke(QStringLiteral("Kim"));
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
        QVERIFY(recorder.announced().isEmpty());
        QVERIFY(m_host->application.presentedErrors().isEmpty());
    }

    void aClientThatWasNotRevokedForLackOfAServiceIsNamed() {
        authorize(QStringLiteral("Kim"));
        reopen();
        m_controller->window()->show();
        const auto *problem = part<QLabel>("clientsProblemLabel");
        QVERIFY(!problem->isVisible());
        m_secretService = nullptr;
        revoke(QStringLiteral("Kim"));
        m_secretService = std::make_unique<SecretService>();
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Kim")});
        QVERIFY(problem->isVisible());
        QVERIFY2(problem->text().startsWith(
                     QStringLiteral("“Kim” was not revoked and may still connect. No password "
                                    "service is running on this computer. ")),
                 qPrintable(problem->text()));
        QVERIFY(m_host->application.presentedErrors().isEmpty());
        authorize(QStringLiteral("Kim"));
        revoke(QStringLiteral("Kim"));
        QVERIFY(m_controller->authorizedClients().isEmpty());
        QVERIFY(!problem->isVisible());
    }

    // "Zoé" has three UTF-16 units: it is looked for as "Zo" and the first byte of the last letter.
    void aNameThatIsNotAsciiCannotBeRevoked() {
        authorize(QStringLiteral("Zoé"));
        reopen();
        revoke(QStringLiteral("Zoé"));
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("Zoé")});
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("Zoé"))), 1);
    }

    // "éa" has two units; its first two bytes are "é", another client.
    void aShortenedNameMayBeThatOfAnother() {
        authorize(QStringLiteral("éa"));
        authorize(QStringLiteral("é"));
        reopen();
        revoke(QStringLiteral("éa"));
        QCOMPARE(m_controller->authorizedClients(), QStringList{QStringLiteral("é")});
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("éa"))), 1);
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("é"))), 0);
    }

    void theRevokeButtonRevokesTheSelectedClient() {
        authorize(QStringLiteral("Kim"));
        authorize(QStringLiteral("Ada"));
        reopen();
        part<TableView>("clientsTable")->selectRow(1);
        QVERIFY(part<QPushButton>("revokeButton")->isEnabled());
        part<QPushButton>("revokeButton")->click();
        answerConfirmation(QMessageBox::RejectRole);
        QCOMPARE(m_secretService->count(itemAttributes(QStringLiteral("Kim"))), 1);
        QTest::keyClick(part<TableView>("clientsTable"), Qt::Key_Delete);
        answerConfirmation(QMessageBox::AcceptRole);
        QTRY_COMPARE(shownClients(), QStringList{QStringLiteral("Ada")});
        QVERIFY(!part<QPushButton>("revokeButton")->isEnabled());
    }

    void theFieldsShowAndSetTheServer() {
        m_host->server.setPort(5000);
        m_host->server.startServing();
        QCOMPARE(part<QSpinBox>("portField")->value(), 5000);
        QVERIFY(part<QCheckBox>("enabledCheckBox")->isChecked());
        part<QSpinBox>("portField")->setValue(6000);
        QCOMPARE(m_host->server.port(), 6000);
        part<QCheckBox>("enabledCheckBox")->click();
        QVERIFY(!m_host->server.isServing());
    }

    void runningReturnsOnlyWhenTheSheetHasClosed() {
        QWidget parent;
        bool wasVisible = false;
        whileModal([&] {
            wasVisible = m_controller->window()->isVisible();
            QCOMPARE(m_controller->window()->parentWidget(), &parent);
            QCOMPARE(m_controller->window()->windowModality(), Qt::ApplicationModal);
            part<QPushButton>("closeButton")->click();
        });
        m_controller->runServerPreferencesModalForWindow(&parent);
        QVERIFY(wasVisible);
        QVERIFY(!m_controller->window()->isVisible());
    }

    void escapeCloses() {
        QWidget parent;
        whileModal([&] { QTest::keyClick(m_controller->window(), Qt::Key_Escape); });
        m_controller->runServerPreferencesModalForWindow(&parent);
        QVERIFY(!m_controller->window()->isVisible());
    }

    void anAbsentWindowIsAProgrammingError() {
        try {
            m_controller->runServerPreferencesModalForWindow(nullptr);
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: parentWindow != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/Preferences/QVServerPreferencesController"));
            QCOMPARE(failure.line(), 69);
        }
    }
};

VELMORA_TEST(QVServerPreferencesControllerTest)
#include "QVServerPreferencesControllerTest.moc"
