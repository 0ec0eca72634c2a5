#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <future>

#include "Controller/Preferences/LocationCheck.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/QVSyncDispatcher.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Scenarios/Panel.h"
#include "Support/EventTimeout.h"
#include "Support/FreePort.h"
#include "Support/HostShortcuts.h"
#include "Support/ScriptedServer.h"
#include "Support/TestAuthority.h"
#include "Support/TestHost.h"
#include "Support/WebDAVServer.h"

/// "Check" says whether a location can be used, and what is wrong with it otherwise.
class LocationCheckTest : public QObject {
    Q_OBJECT
    using Connection = ScriptedServer::Connection;

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<Panel> m_panel;

    void showPanel() { m_panel = std::make_unique<Panel>(); }
    /// Selects the first location and chooses "Check".
    void check() {
        Panel::select(Panel::locationRow(0));
        m_panel->choose("checkItem");
    }
    /// Checks the location and waits for the result.
    void checkToTheEnd() {
        check();
        QTRY_VERIFY(!isChecking());
    }
    static bool isChecking() {
        return Panel::pane().synchronizationSelections().first()->isActive();
    }
    QString result() const { return m_panel->text("checkLabel"); }
    QStringList presented() const {
        QStringList texts;
        for (const Error &error : m_host->application().presentedErrors()) {
            texts.append(error.localizedDescription);
        }
        return texts;
    }
    static QStringList filesBelow(const QString &folder) {
        QStringList files;
        QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            files.append(all.next().mid(folder.size() + 1));
        }
        files.sort();
        return files;
    }
    static void put(const QString &path, const QByteArray &contents) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    /// Answers a PROPFIND request for the store "Shared" or one of its folders.
    static void answerListing(Connection &connection, const QByteArray &request) {
        const auto folder = [](const QByteArray &href) {
            return "<D:response><D:href>" + href +
                   "</D:href><D:propstat><D:prop><D:resourcetype><D:collection/></D:resourcetype>"
                   "</D:prop><D:status>HTTP/1.1 200 OK</D:status></D:propstat></D:response>";
        };
        const QByteArray path = request.split(' ').value(1);
        QByteArray entries = folder(path);
        if (path == "/Shared.qvSyncStore/") {
            entries += folder(path + "databases/") + folder(path + "transactions/");
        }
        connection.answer("207 Multi-Status",
                          "<D:multistatus xmlns:D=\"DAV:\">" + entries + "</D:multistatus>");
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() {
        m_panel.reset();
        m_host.reset();
    }

    void aLocationThatCanBeUsedIsSaidToBe() {
        const auto location = m_host->addLocation();
        putDatabaseRecord(location, QStringLiteral("11111111-1111-4111-8111-111111111111"),
                          QStringLiteral("Projects"));
        put(location->URL().path() + QStringLiteral("/databases/other"),
            QByteArray(1'200'000, 'x'));
        const QStringList before = filesBelow(location->URL().path());
        showPanel();
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isHidden());
        check();
        QVERIFY(Panel::locationRow(0)
                    ->findChild<QProgressBar *>(QStringLiteral("rowActivity"))
                    ->isVisible());
        QTRY_VERIFY(!isChecking());
        QCOMPARE(result(),
                 QStringLiteral("“Store 0” can be read and written. 1 database, 1.2 MB."));
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isVisible());
        QCOMPARE(presented(), QStringList());
        QCOMPARE(filesBelow(location->URL().path()), before);
        Panel::select(Panel::locationRow(0));
        m_panel->press("removeLocationButton");
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isHidden());
    }

    void theResultOfACheckGoesWhenASynchronizationBegins_data() {
        QTest::addColumn<bool>("fails");
        QTest::newRow("a failed one") << true;
        QTest::newRow("a successful one") << false;
    }
    void theResultOfACheckGoesWhenASynchronizationBegins() {
        QFETCH(bool, fails);
        const auto location = m_host->addLocation();
        const auto state =
            m_host->addState(location, m_host->addDatabase(QStringLiteral("Projects")));
        state->setEnabled(true);
        showPanel();
        checkToTheEnd();
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isVisible());
        if (fails) {
            QVERIFY(QDir(location->URL().path()).removeRecursively());
        }
        QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        dispatcher->performSynchronizationsWithSynchronizationStates({state});
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isHidden());
        QTRY_VERIFY(dispatcher->activity().isEmpty());
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isHidden());
    }

    void aWebDAVLocationIsMeasuredToo() {
        const WebDAVServer server({});
        const QString folder = server.folder() + QStringLiteral("/Shared.qvSyncStore");
        server.putFile(QStringLiteral("Shared.qvSyncStore/transactions/"
                                      "11111111-1111-4111-8111-111111111111/1"),
                       QByteArray(250'000, 'x'));
        server.putFile(QStringLiteral("Shared.qvSyncStore/databases/other"),
                       QByteArray(50'000, 'x'));
        const QStringList before = filesBelow(folder);
        server.storePassword();
        m_host->addLocation(server.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        checkToTheEnd();
        QCOMPARE(result(),
                 QStringLiteral("“localhost – Shared” can be read and written. 0 databases, "
                                "300.0 kB."));
        QCOMPARE(filesBelow(folder), before);
    }

    void aReadOnlyLocationIsReportedAsSuch() {
        const WebDAVServer server({});
        for (const char *folder : {"databases", "transactions"}) {
            QVERIFY(QDir().mkpath(
                server.folder() +
                QStringLiteral("/read-only/Shared.qvSyncStore/%1").arg(QLatin1StringView(folder))));
        }
        server.storePassword();
        m_host->addLocation(server.URLText(QStringLiteral("read-only/Shared.qvSyncStore")));
        showPanel();
        checkToTheEnd();
        QCOMPARE(presented().size(), 1);
        QVERIFY2(presented().first().startsWith(
                     QStringLiteral("“localhost – Shared” can be read, but not written. The server "
                                    "does not allow you to use ")),
                 qPrintable(presented().first()));
        QVERIFY(Panel::warning(Panel::locationRow(0))->isVisible());
        QCOMPARE(result(), QString());
    }

    void aFullLocationIsReportedAsSuch() {
        const ScriptedServer full([](Connection &connection) {
            for (QByteArray request = connection.readRequest(); !request.isEmpty();
                 request = connection.readRequest()) {
                if (request.startsWith("PROPFIND")) {
                    answerListing(connection, request);
                } else {
                    connection.answer(request.startsWith("PUT") ? "507 Insufficient Storage"
                                                                : "404 Not Found");
                }
            }
        });
        m_host->addLocation(full.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        checkToTheEnd();
        QCOMPARE(
            presented(),
            QStringList{QStringLiteral("“127.0.0.1 – Shared” can be read, but not written. The "
                                       "server “127.0.0.1:%1” has no space left. Delete files "
                                       "there or ask its administrator.")
                            .arg(full.port())});
        const QString details = m_host->application().presentedErrors().first().details;
        QVERIFY2(details.contains(QStringLiteral("HTTP 507: http://")), qPrintable(details));
    }

    void aWrongPasswordIsReportedAsSuch() {
        const WebDAVServer server({});
        server.storePassword(QStringLiteral("wrong"));
        m_host->addLocation(server.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        checkToTheEnd();
        QVERIFY2(presented().value(0).contains(
                     QStringLiteral("does not accept this user name and password")),
                 qPrintable(presented().value(0)));
    }

    void aMissingFolderIsReportedAsSuch() {
        const QString package = m_host->addLocation()->URL().path();
        QVERIFY(QDir(package).removeRecursively());
        showPanel();
        checkToTheEnd();
        QCOMPARE(presented(),
                 QStringList{QStringLiteral("The sync store “%1” does not exist. Check "
                                            "whether it was moved or renamed.")
                                 .arg(package)});
    }

    void aFolderThatCannotBeReadIsReportedAsSuch() {
        const QString folder = m_host->addLocation()->URL().path() +
                               QStringLiteral("/transactions/11111111-1111-4111-8111-111111111111");
        QVERIFY(QFile::link(QStringLiteral("nowhere"), folder));
        showPanel();
        checkToTheEnd();
        QCOMPARE(presented(),
                 QStringList{QStringLiteral("“%1” isn’t a valid item in a sync store. Move it to "
                                            "another folder if it does not belong there.")
                                 .arg(folder)});
        QCOMPARE(result(), QString());
    }

    void otherFilesAreNoProblem() {
        const QString folder =
            m_host->addLocation()->URL().path() + QStringLiteral("/transactions/");
        put(folder + QStringLiteral("readme.txt"), "a file of another program");
        showPanel();
        checkToTheEnd();
        QCOMPARE(presented(), QStringList());
        QCOMPARE(result(),
                 QStringLiteral("“Store 0” can be read and written. 0 databases, 0 bytes."));
    }

    void aServerThatDoesNotRunIsReportedAsSuch() {
        m_host->addLocation(
            QStringLiteral("http://127.0.0.1:%1/Shared.qvSyncStore").arg(freePort()));
        showPanel();
        checkToTheEnd();
        QVERIFY2(presented().value(0).contains(QStringLiteral("refused the connection")),
                 qPrintable(presented().value(0)));
        const QString details = m_host->application().presentedErrors().first().details;
        QVERIFY2(details.contains(QStringLiteral("onnect to 127.0.0.1")), qPrintable(details));
    }

    void anUntrustedServerIsReportedAsSuch() {
        const TestAuthority authority;
        const WebDAVServer server({.identity = authority.issue(QStringLiteral("DNS:localhost"))});
        m_host->addLocation(server.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        checkToTheEnd();
        QVERIFY2(presented().value(0).contains(QStringLiteral("identity")),
                 qPrintable(presented().value(0)));
    }

    void anAddedLocationIsCheckedOnceByItself() {
        const QString address =
            QStringLiteral("http://127.0.0.1:%1/Shared.qvSyncStore").arg(freePort());
        showPanel();
        m_panel->choose("addWebDAVItem");
        m_panel->inSheet<QLineEdit>("serverField")->setText(address);
        m_panel->inSheet<QPushButton>("distributeButton")->click();
        QVERIFY(!m_panel->sheet()->findChild<QProgressBar *>());
        m_panel->inSheet<QPushButton>("acceptButton")->click();
        QVERIFY(!m_panel->sheet());
        QVERIFY(isChecking());
        QTRY_VERIFY(!isChecking());
        QVERIFY(Panel::warning(Panel::locationRow(0))->isVisible());
        QVERIFY2(result().contains(QStringLiteral("refused the connection")), qPrintable(result()));
        QCOMPARE(presented(), QStringList());
        Panel::select(Panel::locationRow(0));
        m_panel->press("editLocationButton");
        m_panel->inSheet<QPushButton>("acceptButton")->click();
        QCOMPARE(result(), QString());
        QVERIFY(m_panel->find<QLabel>("checkLabel")->isHidden());
    }

    void anEditedLocationIsNotCheckedByItself() {
        m_host->addLocation(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"));
        showPanel();
        QVERIFY(!isChecking());
        Panel::select(Panel::locationRow(0));
        m_panel->press("editLocationButton");
        m_panel->inSheet<QPushButton>("acceptButton")->click();
        QVERIFY(!isChecking());
    }

    void aCancelledCheckLeavesNoFileBehind() {
        std::promise<void> isWritten;
        std::promise<QByteArray> removed;
        const ScriptedServer slow([&](Connection &connection) {
            for (QByteArray request = connection.readRequest(); !request.isEmpty();
                 request = connection.readRequest()) {
                if (request.startsWith("PROPFIND")) {
                    answerListing(connection, request);
                } else if (request.startsWith("PUT")) {
                    connection.answer("201 Created");
                } else if (request.startsWith("DELETE")) {
                    connection.answer("204 No Content");
                    removed.set_value(request.split(' ').value(1));
                    return;
                } else {
                    isWritten.set_value();
                    connection.waitUntilClosed();
                }
            }
        });
        m_host->addLocation(slow.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        check();
        auto written = isWritten.get_future();
        QTRY_VERIFY(written.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
        m_panel.reset();
        auto removal = removed.get_future();
        QTRY_VERIFY(removal.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
        QVERIFY(removal.get().startsWith("/Shared.qvSyncStore/databases/probe-"));
    }

    void leftoversOfAKilledProgramAreRemoved() {
        const QString folder = m_host->addLocation()->URL().path() + QStringLiteral("/databases/");
        showPanel();
        checkToTheEnd();
        const QString own = QStringLiteral("probe-") +
                            UserDefaults::stringForKey(QStringLiteral("QVStoreProbe")).value();
        const QString other = QStringLiteral("probe-11111111-1111-4111-8111-11111111111");
        const QByteArray now = QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toLatin1();
        put(folder + own, now);
        put(folder + other + u'1', now);
        put(folder + other + u'2', "2020-01-01T00:00:00Z");
        put(folder + other + u'3', "a file of another program");
        put(folder + QStringLiteral("probe-of-the-user"), "2020-01-01T00:00:00Z");
        checkToTheEnd();
        QCOMPARE(filesBelow(folder.chopped(1)),
                 QStringList({other + u'1', other + u'3', QStringLiteral("probe-of-the-user")}));
        QCOMPARE(presented(), QStringList());
    }

    void aCheckHasALimit() {
        const ScriptedServer silent([](Connection &connection) { connection.waitUntilClosed(); });
        m_host->addLocation(silent.URLText(QStringLiteral("Shared.qvSyncStore")));
        showPanel();
        m_panel->find<LocationCheck>("locationCheck")->setTimeout(std::chrono::milliseconds(300));
        checkToTheEnd();
        QCOMPARE(presented(),
                 QStringList{QStringLiteral("“127.0.0.1 – Shared” takes too long to respond. "
                                            "Check whether it is available, and try again.")});
    }
};

VELMORA_TEST(LocationCheckTest)
#include "LocationCheckTest.moc"
