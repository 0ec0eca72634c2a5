#include <atomic>
#include <condition_variable>
#include <future>
#include <mutex>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"
#include "Host/InboxUUID.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/Failure.h"
#include "Support/PrivateVolume.h"
#include "Support/ScriptedServer.h"
#include "Support/TestHost.h"
#include "Support/TestLocation.h"
#include "Support/TestMain.h"
#include "Support/TestWebDAVStore.h"
#include "Support/WebDAVServer.h"

namespace {

using namespace std::chrono_literals;
using Authentication = WebDAVServer::Authentication;
using Connection = ScriptedServer::Connection;
using Written = BlobStore::Written;

const QString UUID = QStringLiteral("11111111-1111-4111-8111-111111111111");
const QString WebDAVBlob = QStringLiteral("transactions/%1/1-a").arg(UUID);
const QString PackageName = QStringLiteral("Trip%20%26%20more.qvSyncStore");
constexpr HttpClient::Timeouts Hasty = {.idle = 300ms, .total = 2s};

std::shared_ptr<WebDAVStore> storeAt(const QString &URLText) {
    return webDAVStoreWithoutEngine(URLText, Hasty);
}

UrlProtectionSpace space(const QString &URLText, const QString &method) {
    const Url URL = Url::fromString(URLText);
    return {URL.host(), URL.port().value_or(0), URL.scheme(), {}, method};
}

QByteArray multiStatus(const QByteArray &responses) {
    return "<?xml version=\"1.0\"?><D:multistatus xmlns:D=\"DAV:\">" + responses +
           "</D:multistatus>";
}

QByteArray folderResponse(const QByteArray &href) {
    return "<D:response><D:href>" + href +
           "</D:href><D:propstat><D:prop><D:resourcetype><D:collection/></D:resourcetype></D:prop>"
           "<D:status>HTTP/1.1 200 OK</D:status></D:propstat></D:response>";
}

/// A server that sends the same response to every request.
ScriptedServer::Script always(const QByteArray &statusAndHeaders, const QByteArray &body = {}) {
    return [=](Connection &connection) {
        while (!connection.readRequest().isEmpty()) {
            connection.answer(statusAndHeaders, body);
        }
    };
}

}  // namespace

/// The store over Apache's WebDAV module, and over servers that misbehave.
class WebDAVStoreTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<WebDAVServer> m_server;
    std::shared_ptr<WebDAVStore> m_store;
    EngineFuture m_future;

    /// A server with the right password stored, and the store of a package that is not there yet.
    void start(WebDAVServer::Options options) {
        m_server = std::make_unique<WebDAVServer>(std::move(options));
        m_server->storePassword();
        m_store = storeAt(m_server->URLText(PackageName));
    }
    QString file(const QString &name) const {
        return m_server->folder() + QStringLiteral("/Trip & more.qvSyncStore") +
               (name.isEmpty() ? name : u'/' + name);
    }
    QString server() const { return QStringLiteral("localhost:%1").arg(m_server->port()); }
    Expected<void> open(const QString &URLText) { return storeAt(URLText)->open(m_future); }
    Expected<void> open(const ScriptedServer &scripted) {
        return open(scripted.URLText(QStringLiteral("s.qvSyncStore")));
    }
    Expected<QByteArray> read(const QString &name, qint64 limit = 1000) {
        return m_store->read(name, limit, m_future);
    }
    Expected<Written> write(const QString &name, const QByteArray &contents) {
        return m_store->writeIfAbsent(name, contents, m_future);
    }
    Expected<QStringList> list(const QString &folder) { return m_store->list(folder, m_future); }

private Q_SLOTS:
    void cleanup() {
        m_store.reset();
        m_server.reset();
    }

    void everyAuthenticationServesAllOperations_data() {
        QTest::addColumn<Authentication>("authentication");
        QTest::newRow("none") << Authentication::None;
        QTest::newRow("Basic") << Authentication::Basic;
        QTest::newRow("Digest") << Authentication::Digest;
    }

    void everyAuthenticationServesAllOperations() {
        QFETCH(Authentication, authentication);
        start({.authentication = authentication});
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(QFileInfo(file(QStringLiteral("databases"))).isDir());
        QVERIFY(QFileInfo(file(QStringLiteral("transactions"))).isDir());
        const QByteArray contents("\0\xff and more", 11);
        QCOMPARE(write(WebDAVBlob, contents), Expected<Written>(Written::New));
        QCOMPARE(read(WebDAVBlob), Expected<QByteArray>(contents));
        QCOMPARE(list(QStringLiteral("transactions")), Expected<QStringList>(QStringList(UUID)));
        QCOMPARE(list(WebDAVBlob.section(u'/', 0, 1)),
                 Expected<QStringList>(QStringList(QStringLiteral("1-a"))));
        QCOMPARE(description(m_store->remove(WebDAVBlob, m_future)), QString());
        QCOMPARE(code(read(WebDAVBlob)), EngineErrorCode::BlobMissing);
        QCOMPARE(description(m_store->remove(WebDAVBlob, m_future)), QString());
        QCOMPARE(list(WebDAVBlob.section(u'/', 0, 1)), Expected<QStringList>(QStringList()));
    }

    void aLargeBlobMayBeTheFirstRequest() {
        start({.authentication = Authentication::Digest});
        QCOMPARE(description(open(m_server->URLText(PackageName))), QString());
        const QByteArray contents(3 << 20, 'x');
        QCOMPARE(write(WebDAVBlob, contents), Expected<Written>(Written::New));
        QCOMPARE(read(WebDAVBlob, contents.size()), Expected<QByteArray>(contents));
        QCOMPARE(code(read(WebDAVBlob, contents.size() - 1)), EngineErrorCode::BlobRefused);
        QVERIFY(description(read(WebDAVBlob)).contains(QStringLiteral("too large")));
    }

    void aBlobIsNeverWrittenOver() {
        start({});
        QCOMPARE(description(m_store->open(m_future)), QString());
        std::vector<std::future<Expected<Written>>> writers;
        for (int i = 0; i < 6; ++i) {
            writers.push_back(std::async(std::launch::async, [this, i] {
                return write(WebDAVBlob, QByteArray(900, static_cast<char>('a' + i)));
            }));
        }
        for (std::future<Expected<Written>> &writer : writers) {
            const Expected<Written> result = writer.get();
            QVERIFY2(result, qPrintable(description(result)));
        }
        const auto first = read(WebDAVBlob).value();
        QCOMPARE(first, QByteArray(900, first.front()));
        QCOMPARE(write(WebDAVBlob, "late"), Expected<Written>(Written::AlreadyThere));
        QCOMPARE(read(WebDAVBlob), Expected<QByteArray>(first));
    }

    void aFolderThatAnotherRequestHasJustMadeIsUsed() {
        std::atomic<int> puts = 0;
        const ScriptedServer scripted([&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                if (request.startsWith("MKCOL")) {
                    connection.answer("403 Forbidden");
                } else if (request.startsWith("PROPFIND")) {
                    connection.answer("207 Multi-Status", multiStatus({}));
                } else {
                    connection.answer(++puts == 1 ? "409 Conflict" : "201 Created");
                }
            }
        });
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(write(WebDAVBlob, "x"), Expected<Written>(Written::New));
    }

    void anyNameComesBackAsItWas() {
        start({});
        QCOMPARE(description(m_store->open(m_future)), QString());
        const QStringList names = {QStringLiteral("% 100%25"), QStringLiteral("a b"),
                                   QStringLiteral("a&b=c?d#e;f+g"), QStringLiteral("Grüße €"),
                                   QStringLiteral("~(x)'\"!*@:,$[]<y>")};
        for (const QString &name : names) {
            const QString path = QStringLiteral("transactions/") + name + u'/' + name;
            QCOMPARE(write(path, name.toUtf8()), Expected<Written>(Written::New));
            QCOMPARE(read(path), Expected<QByteArray>(name.toUtf8()));
            QVERIFY(QFileInfo(file(path)).isFile());
            QCOMPARE(list(QStringLiteral("transactions/") + name),
                     Expected<QStringList>(QStringList(name)));
        }
        QStringList sorted = names;
        sorted.sort();
        QCOMPARE(list(QStringLiteral("transactions")), Expected<QStringList>(sorted));
    }

    void theRecordsOfDatabasesAreFetched() {
        start({});
        const QString record = QStringLiteral("{\"uuid\":\"%1\",\"name\":\"%2\",\"version\":1}");
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(write(QStringLiteral("databases/%1.json").arg(UUID),
                      record.arg(UUID, QStringLiteral("Rezepte für Ida")).toUtf8()));
        QVERIFY(write(QStringLiteral("databases/@inbox.json"),
                      record.arg(InboxUUID, QStringLiteral("Inbox")).toUtf8()));
        QVERIFY(write(QStringLiteral("databases/x.json"), "{}"));
        std::promise<std::optional<Error>> opened;
        m_store->openWithCompletionHandler([&](const auto &error) { opened.set_value(error); });
        QCOMPARE(opened.get_future().get(), std::nullopt);
        std::promise<QStringList> names;
        std::promise<QString> problem;
        m_store->fetchDatabasesWithCompletionHandler([&](const auto &databases, const auto &error) {
            QStringList found;
            for (const auto &database : databases.value_or(QVRemoteDatabases())) {
                found.append(database->UUID() + u'=' + database->metadata()->name());
            }
            names.set_value(found);
            problem.set_value(description(error));
        });
        QCOMPARE(names.get_future().get(), QStringList({UUID + QStringLiteral("=Rezepte für Ida"),
                                                        QStringLiteral("@inbox=Inbox")}));
        QVERIFY(
            problem.get_future().get().contains(QStringLiteral("databases/x.json” is damaged")));
        // The threads have released it.
        QTRY_COMPARE(m_store.use_count(), 1);
    }

    void aLocationOfAWebAddressHasThisStore() {
        const TestHost host;
        for (const char *text : {"http://@h/s.qvSyncStore", "https://ida@h:81/a/s.qvSyncStore"}) {
            const auto location = host.newLocation(Url::fromString(QString::fromLatin1(text)));
            QVERIFY(std::dynamic_pointer_cast<WebDAVStore>(location->createStore()));
        }
    }

    void openingTwiceFindsThePackage() {
        start({});
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(write(WebDAVBlob, "x"));
        QCOMPARE(description(m_store->open(m_future)), QString());
        QCOMPARE(read(WebDAVBlob), Expected<QByteArray>(QByteArray("x")));
    }

    void anEmptyOrHalfMadePackageIsCompleted() {
        start({.authentication = Authentication::None});
        QVERIFY(QDir().mkdir(file({})));
        QVERIFY(QFile::setPermissions(file({}), QFileDevice::Permissions(0x7777)));
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(QFileInfo(file(QStringLiteral("databases"))).isDir());
        QVERIFY(QDir().rmdir(file(QStringLiteral("databases"))));
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(QFileInfo(file(QStringLiteral("databases"))).isDir());
    }

    void aFolderThatIsNoStoreIsLeftAlone() {
        start({.authentication = Authentication::None});
        QVERIFY(QDir().mkpath(file(QStringLiteral("holiday pictures"))));
        QVERIFY(description(m_store->open(m_future))
                    .endsWith(QStringLiteral("/Trip & more.qvSyncStore” is not a sync store. Edit "
                                             "the location and choose another one.")));
        QFile plain(m_server->folder() + QStringLiteral("/plain.qvSyncStore"));
        QVERIFY(plain.open(QIODevice::WriteOnly));
        QVERIFY(!open(m_server->URLText(QStringLiteral("plain.qvSyncStore"))));
        QVERIFY(description(open(m_server->URLText(QStringLiteral("folder"))))
                    .contains(QStringLiteral("is not a sync store")));
        QVERIFY(!QFileInfo::exists(m_server->folder() + QStringLiteral("/folder")));
    }

    // What a user reads must tell these apart.

    void aWrongPasswordHasItsOwnError_data() { everyAuthenticationServesAllOperations_data(); }

    void aWrongPasswordHasItsOwnError() {
        QFETCH(Authentication, authentication);
        start({.authentication = authentication});
        m_server->storePassword(QStringLiteral("wrong"));
        const Expected<void> opened = m_store->open(m_future);
        if (authentication == Authentication::None) {
            QCOMPARE(description(opened), QString());
            return;
        }
        QCOMPARE(code(opened), EngineErrorCode::PasswordRefused);
        QCOMPARE(description(opened),
                 QStringLiteral("The server “%1” does not accept this user name and password. Edit "
                                "the location to correct them.")
                     .arg(server()));
        m_server->storePassword();
        QCOMPARE(description(m_store->open(m_future)), QString());
    }

    void aMissingPasswordHasItsOwnError() {
        start({});
        const Expected<void> opened =
            open(m_server->URLText(PackageName, QStringLiteral("somebody")));
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QCOMPARE(description(opened),
                 QStringLiteral("The server “%1” requires a password, but none is saved for this "
                                "location. Edit the location to enter it.")
                     .arg(server()));
    }

    void aMissingFolderHasItsOwnError() {
        start({});
        const Expected<void> opened =
            open(m_server->URLText(QStringLiteral("no%20such/folder/s.qvSyncStore")));
        QCOMPARE(code(opened), EngineErrorCode::StoreUnreachable);
        QCOMPARE(description(opened),
                 QStringLiteral("The folder “http://%1/dav/no such/folder” does not exist on the "
                                "server. Create it there or edit the location.")
                     .arg(server()));
    }

    void anAbsentServerHasItsOwnError() {
        start({});
        QCOMPARE(description(m_store->open(m_future)), QString());
        m_server->stop();
        const Expected<void> opened = m_store->open(m_future);
        QCOMPARE(code(opened), EngineErrorCode::StoreUnreachable);
        QCOMPARE(description(opened),
                 QStringLiteral("The server “%1” refused the connection. Check the port, and "
                                "whether the server is running.")
                     .arg(server()));
        m_server->start();
        QCOMPARE(description(m_store->open(m_future)), QString());
    }

    void aForbiddenFolderHasItsOwnError() {
        start({});
        const Expected<void> opened =
            open(m_server->URLText(QStringLiteral("forbidden/s.qvSyncStore")));
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QCOMPARE(description(opened),
                 QStringLiteral(
                     "The server does not allow you to use "
                     "“http://%1/dav/forbidden/s.qvSyncStore”. Ask its administrator for access.")
                     .arg(server()));
    }

    void aReadOnlyStoreCanBeReadOnly() {
        start({});
        const QString package = m_server->folder() + QStringLiteral("/read-only/s.qvSyncStore");
        QVERIFY(QDir().mkpath(package + QStringLiteral("/databases")));
        QVERIFY(QDir().mkpath(package + QStringLiteral("/transactions")));
        m_store = storeAt(m_server->URLText(QStringLiteral("read-only/s.qvSyncStore")));
        QCOMPARE(description(m_store->open(m_future)), QString());
        QCOMPARE(list(QStringLiteral("databases")), Expected<QStringList>(QStringList()));
        QCOMPARE(code(write(WebDAVBlob, "x")), EngineErrorCode::AccessDenied);
        QCOMPARE(code(m_store->remove(WebDAVBlob, m_future)), EngineErrorCode::AccessDenied);
        const Expected<void> opened =
            open(m_server->URLText(QStringLiteral("read-only/new.qvSyncStore")));
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
    }

    void aFullServerHasItsOwnError() {
        const QTemporaryDir folder;
        const PrivateVolume volume(folder.path(), 256 * 1024);
        start({.folder = folder.path()});
        QCOMPARE(description(m_store->open(m_future)), QString());
        const Expected<Written> result = write(WebDAVBlob, QByteArray(1 << 20, 'x'));
        QCOMPARE(code(result), EngineErrorCode::StoreFull);
        QCOMPARE(
            description(result),
            QStringLiteral(
                "The server “%1” has no space left. Delete files there or ask its administrator.")
                .arg(server()));
        QCOMPARE(code(read(WebDAVBlob)), EngineErrorCode::BlobMissing);
        QCOMPARE(write(WebDAVBlob, "x"), Expected<Written>(Written::New));
    }

    void aServerWithoutWebDAVHasItsOwnError() {
        start({});
        const QString text = QStringLiteral("http://ida@%1/s.qvSyncStore").arg(server());
        QCOMPARE(description(open(text)),
                 QStringLiteral("The server “%1” does not offer WebDAV at this address. Edit the "
                                "location to correct it.")
                     .arg(server()));
        const ScriptedServer web(always("200 OK", "<html>Hello</html>"));
        QVERIFY(description(open(web)).contains(QStringLiteral("does not offer WebDAV")));
    }

    void otherResponsesHaveTheirOwnErrors_data() {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("words");
        QTest::newRow("429") << QByteArray("429 Too Many Requests")
                             << QStringLiteral("is busy. Try again later.");
        QTest::newRow("503") << QByteArray("503 Service Unavailable")
                             << QStringLiteral("is busy. Try again later.");
        QTest::newRow("500") << QByteArray("500 Internal Server Error")
                             << QStringLiteral("reported an internal error (HTTP 500)");
        QTest::newRow("507") << QByteArray("507 Insufficient Storage")
                             << QStringLiteral("has no space left");
        QTest::newRow("413") << QByteArray("413 Content Too Large")
                             << QStringLiteral("is larger than the server accepts");
        QTest::newRow("423") << QByteArray("423 Locked") << QStringLiteral("is locked");
        QTest::newRow("400") << QByteArray("400 Bad Request")
                             << QStringLiteral("unexpected response (HTTP 400)");
        QTest::newRow("elsewhere") << QByteArray("302 Found\r\nLocation: http://other.example/")
                                   << QStringLiteral("redirects to “http://other.example/”");
    }

    void otherResponsesHaveTheirOwnErrors() {
        QFETCH(QByteArray, status);
        QFETCH(QString, words);
        const ScriptedServer scripted(always(status));
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        for (const QString &text :
             {description(m_store->open(m_future)), description(read(WebDAVBlob)),
              description(write(WebDAVBlob, "x")), description(list(QStringLiteral("databases"))),
              description(m_store->remove(WebDAVBlob, m_future))}) {
            QVERIFY2(text.contains(words), qPrintable(text));
        }
    }

    void aServerThatStallsIsGivenUpOrCancelled() {
        EngineFuture future;
        const ScriptedServer scripted([&](Connection &connection) {
            connection.readRequest();
            connection.waitUntilClosed();
        });
        QVERIFY(description(open(scripted)).contains(QStringLiteral("does not respond")));
        const ScriptedServer cancelling([&](Connection &connection) {
            connection.readRequest();
            future.cancel();
            connection.waitUntilClosed();
        });
        const auto store = storeAt(cancelling.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(code(store->open(future)), EngineErrorCode::Cancelled);
    }

    void aListingThatIsNoneIsNotUnderstood_data() {
        const QByteArray self = folderResponse("/s.qvSyncStore/databases/");
        QTest::addColumn<QByteArray>("document");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("nothing listed") << multiStatus({});
        QTest::newRow("only others") << multiStatus(folderResponse("/s.qvSyncStore/databases/x"));
        for (const char *status : {"403 Forbidden", "500 Internal Server Error", "404", "many"}) {
            const QByteArray line = "<D:status>HTTP/1.1 " + QByteArray(status) + "</D:status>";
            const QByteArray replaced = "<D:status>HTTP/1.1 200 OK</D:status>";
            QTest::addRow("type with status %s", status)
                << multiStatus(QByteArray(self).replace(replaced, line));
            QTest::addRow("folder with status %s", status)
                << multiStatus(QByteArray(self).replace("<D:propstat>", line + "<D:propstat>"));
        }
        QTest::newRow("no XML") << QByteArray("Hello");
        QTest::newRow("another document") << QByteArray("<html xmlns=\"DAV:\"/>");
        QTest::newRow("another namespace") << QByteArray("<multistatus xmlns=\"x\"/>");
        QTest::newRow("cut short") << multiStatus(self).chopped(20);
        QTest::newRow("two documents") << multiStatus(self) + multiStatus(self);
        QTest::newRow("nested deeply")
            << multiStatus(QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000));
        QTest::newRow("document type")
            << "<!DOCTYPE multistatus [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>" +
                   multiStatus(folderResponse("/s.qvSyncStore/databases/&b;"))
                       .replace("<?xml version=\"1.0\"?>", "");
        QTest::newRow("unknown entity")
            << multiStatus(folderResponse("/s.qvSyncStore/databases/&b;"));
        for (const char *href :
             {"/elsewhere/x", "/s.qvSyncStore/", "/s.qvSyncStore/transactions/x",
              "/s.qvSyncStore/databases/a/b", "/s.qvSyncStore/databases/../x", "..",
              "http://other.example/s.qvSyncStore/x", "//s.qvSyncStore/databases/x"}) {
            QTest::newRow(href) << multiStatus(self + folderResponse(href));
        }
    }

    void aListingThatIsNoneIsNotUnderstood() {
        QFETCH(QByteArray, document);
        const ScriptedServer scripted(always("207 Multi-Status", document));
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        const Expected<QStringList> result = list(QStringLiteral("databases"));
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(QStringLiteral("sent an invalid response")),
                 qPrintable(description(result)));
    }

    void theStatusOfWhatWasNotAskedForDoesNotMatter() {
        const QByteArray unknown =
            "<D:propstat><D:prop><D:owner/></D:prop><D:status>HTTP/1.1 404 Not Found</D:status>"
            "</D:propstat></D:response>";
        const ScriptedServer scripted(always(
            "207 Multi-Status",
            multiStatus(
                folderResponse("/s.qvSyncStore/databases/").replace("</D:response>", unknown) +
                "<D:response><D:href>/s.qvSyncStore/databases/x</D:href>"
                "<D:status>HTTP/1.1 403 Forbidden</D:status></D:response>")));
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(list(QStringLiteral("databases")),
                 Expected<QStringList>(QStringList(QStringLiteral("x"))));
    }

    void namesInAListingAreReadInAllTheirForms() {
        const ScriptedServer scripted(
            always("207 Multi-Status",
                   multiStatus(folderResponse("http://proxied.example/%73.qvSyncStore/databases") +
                               folderResponse("/s.qvSyncStore/databases/plain") +
                               folderResponse("/s.qvSyncStore/databases/Gr%C3%BC%c3%9fe%20x/") +
                               folderResponse("\n  plain2\n") +
                               folderResponse("/s.qvSyncStore/databases/a%2Fb") +
                               folderResponse("/s.qvSyncStore/databases/..%2F..%2Fsecret") +
                               folderResponse("/s.qvSyncStore/databases/%0Abreak") +
                               folderResponse("/s.qvSyncStore/databases/.hidden") +
                               folderResponse("/s.qvSyncStore/databases/plain"))));
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(
            list(QStringLiteral("databases")),
            Expected<QStringList>(QStringList(
                {QStringLiteral("Grüße x"), QStringLiteral("plain"), QStringLiteral("plain2")})));
    }

    void aPlainFileInPlaceOfAFolderIsRefused() {
        start({});
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(write(WebDAVBlob, "x"));
        QVERIFY(!list(WebDAVBlob));
        const ScriptedServer scripted(always(
            "207 Multi-Status",
            multiStatus("<D:response><D:href>/s.qvSyncStore/databases</D:href></D:response>")));
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(code(list(QStringLiteral("databases"))), EngineErrorCode::BlobRefused);
    }

    void anEndlessListingIsCutOff() {
        const QByteArray part = folderResponse("/s.qvSyncStore/databases/x").repeated(5000);
        const ScriptedServer scripted([&](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 207 Multi-Status\r\n\r\n<multistatus xmlns=\"DAV:\">");
            while (connection.isOpen()) {
                connection.send(part);
            }
        });
        m_store = webDAVStoreWithoutEngine(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        const Expected<QStringList> result = list(QStringLiteral("databases"));
        QVERIFY(description(result).contains(QStringLiteral("is too long")));
    }

    /// No connection gets a response before each of eight has sent a request.
    void eightBlobsAreReadAtOnceOnAsManyConnections() {
        constexpr int atOnce = 8;
        std::mutex mutex;
        std::condition_variable changed;
        int requests = 0;
        const ScriptedServer scripted(
            [&](Connection &connection) {
                while (!connection.readRequest().isEmpty()) {
                    {
                        std::unique_lock lock(mutex);
                        ++requests;
                        changed.notify_all();
                        changed.wait_for(lock, 20s, [&] { return requests >= atOnce; });
                    }
                    connection.answer("200 OK", "x");
                }
            },
            ScriptedServer::Order::AllAtOnce);
        m_store = webDAVStoreWithoutEngine(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        std::atomic<int> blobs = 0;
        ParallelCalls::run(3 * atOnce, m_store->operationsAtOnce(), [&](qsizetype /*number*/) {
            blobs += read(WebDAVBlob) == Expected<QByteArray>("x") ? 1 : 0;
        });
        QCOMPARE(blobs, 3 * atOnce);
        QCOMPARE(scripted.connections(), atOnce);
    }

    void aBlobOfUnknownLengthIsNotBelieved() {
        const ScriptedServer scripted([](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 200 OK\r\n\r\nhalf");
        });
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QVERIFY(description(read(WebDAVBlob)).contains(QStringLiteral("sent an invalid response")));
    }

    void aBlobInChunksIsRead() {
        const ScriptedServer scripted([](Connection &connection) {
            connection.readRequest();
            connection.send(
                "HTTP/1.1 200 OK\r\nTransfer-Encoding: Chunked\r\n\r\n"
                "4\r\nhalf\r\n4\r\nhalf\r\n0\r\n\r\n");
            connection.waitUntilClosed();
        });
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(read(WebDAVBlob), Expected<QByteArray>("halfhalf"));
    }

    void aBlobInTooManyChunksIsRefused() {
        const ScriptedServer scripted([](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
            const QByteArray chunk = "10000\r\n" + QByteArray(0x10000, 'x') + "\r\n";
            for (int i = 0; i < 100; ++i) {
                connection.send(chunk);
            }
            connection.waitUntilClosed();
        });
        m_store = storeAt(scripted.URLText(QStringLiteral("s.qvSyncStore")));
        QCOMPARE(code(m_store->read(WebDAVBlob, BlobStore::RecordLimit, m_future)),
                 EngineErrorCode::BlobRefused);
    }

    void aWriteWhoseResponseWasLostIsFoundByTheNextAttempt() {
        start({.authentication = Authentication::None});
        QCOMPARE(description(m_store->open(m_future)), QString());
        std::atomic<bool> isLosingAnswers = true;
        const ScriptedServer relay([&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                QTcpSocket apache;
                apache.connectToHost(QHostAddress::LocalHost, m_server->port());
                apache.write(request.insert(request.indexOf("\r\n") + 2, "Connection: close\r\n"));
                QByteArray answer;
                while (apache.waitForReadyRead()) {
                    answer += apache.readAll();
                }
                if (isLosingAnswers) {
                    return;
                }
                connection.send(answer);
            }
        });
        m_store = storeAt(relay.URLText(QStringLiteral("dav/") + PackageName));
        const QByteArray contents(1 << 20, 'x');
        QCOMPARE(code(write(QStringLiteral("databases/x"), contents)),
                 EngineErrorCode::StoreUnreachable);
        isLosingAnswers = false;
        QCOMPARE(write(QStringLiteral("databases/x"), contents),
                 Expected<Written>(Written::AlreadyThere));
        QCOMPARE(read(QStringLiteral("databases/x"), contents.size()),
                 Expected<QByteArray>(contents));
    }

    void anInterruptedWriteLeavesNothingUnderTheName() {
        start({.authentication = Authentication::None});
        QCOMPARE(description(m_store->open(m_future)), QString());
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_server->port());
        socket.write("PUT /dav/" + PackageName.toLatin1() +
                     "/databases/x HTTP/1.1\r\nHost: localhost\r\nIf-None-Match: *\r\n"
                     "Content-Length: 1000000\r\n\r\n" +
                     QByteArray(500000, 'x'));
        while (socket.bytesToWrite() > 0) {
            QVERIFY(socket.waitForBytesWritten());
        }
        // Apache keeps what has come under a hidden name until it has all.
        QTRY_VERIFY(!QDir(file(QStringLiteral("databases")))
                         .isEmpty(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot));
        socket.disconnectFromHost();
        QCOMPARE(code(read(QStringLiteral("databases/x"))), EngineErrorCode::BlobMissing);
        QCOMPARE(list(QStringLiteral("databases")), Expected<QStringList>(QStringList()));
        QCOMPARE(write(QStringLiteral("databases/x"), "whole"), Expected<Written>(Written::New));
        QCOMPARE(read(QStringLiteral("databases/x")), Expected<QByteArray>(QByteArray("whole")));
    }

    // Which credential is used.

    void aCredentialOfTheDigestSpaceIsNeverSentWithBasic() {
        const auto storedForDigest = [&](Authentication authentication) {
            start({.authentication = authentication});
            QString URLText = m_server->URLText(PackageName, QStringLiteral("other"));
            UrlCredentialStorage::shared().setDefaultCredentialForProtectionSpace(
                {WebDAVServer::User, WebDAVServer::Password,
                 UrlCredential::Persistence::ForSession},
                space(URLText, UrlAuthenticationMethodHttpDigest));
            return URLText;
        };
        QCOMPARE(description(open(storedForDigest(Authentication::Digest))), QString());
        QVERIFY(description(open(storedForDigest(Authentication::Basic)))
                    .contains(QStringLiteral("none is saved")));
    }

    void aServerWithOtherSchemesHasItsOwnError() {
        const ScriptedServer scripted(
            always("401 Unauthorized\r\nWWW-Authenticate: NTLM\r\nWWW-Authenticate: Negotiate"));
        const Expected<void> opened = open(scripted);
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QVERIFY2(description(opened).contains(QStringLiteral("neither Basic nor Digest")),
                 qPrintable(description(opened)));
    }

    void theCredentialOfTheEmptyUserIsSentWhenTheServerAsks() {
        const ScriptedServer scripted(
            always("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\""));
        const QString URLText =
            scripted.URLText(PackageName).replace(QStringLiteral("ida@"), QStringLiteral("@"));
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {QLatin1StringView(""), QStringLiteral("secret"),
             UrlCredential::Persistence::ForSession},
            space(URLText, UrlAuthenticationMethodHttpBasic));
        const QString refusal = description(open(URLText));
        QVERIFY2(!refusal.contains(QStringLiteral("none is saved")), qPrintable(refusal));
    }

    void aPasswordIsSentReadablyOnlyIfTheUserHasAcceptedThat() {
        std::atomic<int> sent = 0;
        const ScriptedServer scripted([&](Connection &connection) {
            for (QByteArray request = connection.readRequest(); !request.isEmpty();
                 request = connection.readRequest()) {
                sent += request.contains("Authorization: Basic") ? 1 : 0;
                connection.answer("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"", {});
            }
        });
        const QString URLText = scripted.URLText(PackageName);
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {QStringLiteral("ida"), QStringLiteral("secret"),
             UrlCredential::Persistence::ForSession},
            space(URLText, UrlAuthenticationMethodHttpBasic));
        const Expected<void> refused = open(URLText);
        QCOMPARE(code(refused), EngineErrorCode::AccessDenied);
        QVERIFY(description(refused).contains(QStringLiteral("Edit the location")));
        QCOMPARE(sent.load(), 0);
        // Settings that cannot be read are no refusal, and no consent.
        const QString path = QSettings().fileName();
        QVERIFY(!QFileInfo::exists(path) || QFile::remove(path));
        QVERIFY(QDir().mkpath(path));
        const Expected<void> unknown = open(URLText);
        QVERIFY(QDir().rmdir(path));
        QVERIFY2(description(unknown).contains(path), qPrintable(description(unknown)));
        QCOMPARE(sent.load(), 0);
        QVERIFY(UnencryptedPasswords::accept(Url::fromString(URLText)));
        QVERIFY(description(open(URLText)).contains(QStringLiteral("does not accept")));
        QCOMPARE(sent.load(), 1);
    }

    void withoutAUserTheDefaultCredentialIsUsed() {
        start({});
        const QString URLText = m_server->URLText(PackageName, {});
        QVERIFY(URLText.contains(QStringLiteral("://@localhost")));
        QVERIFY(description(open(URLText)).contains(QStringLiteral("none is saved")));
        UrlCredentialStorage::shared().setDefaultCredentialForProtectionSpace(
            {WebDAVServer::User, WebDAVServer::Password, UrlCredential::Persistence::ForSession},
            space(URLText, UrlAuthenticationMethodHttpBasic));
        QCOMPARE(description(open(URLText)), QString());
    }
};

VELMORA_TEST_PROGRAM(WebDAVStoreTest)(int argumentCount, char **arguments) {
    enterPrivateMounts();
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    WebDAVStoreTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "WebDAVStoreTest.moc"
