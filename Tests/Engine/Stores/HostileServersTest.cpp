#include <future>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionLink.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/Failure.h"
#include "Support/PeakMemory.h"
#include "Support/ScriptedServer.h"
#include "Support/StallMeter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/TestWebDAVStore.h"

namespace {

using Connection = ScriptedServer::Connection;

/// Megabytes that a server may cause to be allocated, and milliseconds that the main thread may
/// not respond. Generous for a sanitized build.
constexpr qint64 LargestGrowth = 100;
constexpr qint64 HostileStall = 1000;

const QString HostileAccount = QStringLiteral("kim@example.org");

/// Answers every request with `head` and then endless repetitions of `piece`.
ScriptedServer::Script endlessly(const QByteArray &head, const QByteArray &piece) {
    return [head, piece](Connection &connection) {
        connection.readRequest();
        connection.send("HTTP/1.1 " + head + "\r\n");
        const QByteArray many = piece.repeated(100'000 / piece.size() + 1);
        while (connection.isOpen()) {
            connection.send(many);
        }
    };
}

/// Answers every request alike.
ScriptedServer::Script alikeForAll(const QByteArray &head, const QByteArray &body) {
    return [head, body](Connection &connection) {
        while (!connection.readRequest().isEmpty()) {
            connection.answer(head, body);
        }
    };
}

ScriptedServer::Script changingChallenges() {
    return [](Connection &connection) {
        for (int i = 0; !connection.readRequest().isEmpty(); ++i) {
            connection.answer("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"" +
                              QByteArray::number(i) + '"');
        }
    };
}

QByteArray multiStatusAround(const QByteArray &inside) {
    return "<?xml version=\"1.0\"?><D:multistatus xmlns:D=\"DAV:\">" + inside + "</D:multistatus>";
}

/// A page that is not the last one.
QByteArray dropboxPage(const QByteArray &entries) {
    return "{\"cursor\":\"c\",\"has_more\":true,\"entries\":[" + entries + "]}";
}

/// The bytes of a message with this body.
QByteArray framed(const QByteArray &body) {
    QByteArray length(DirectConnectionMessage::LengthSize, '\0');
    qToBigEndian(static_cast<quint32>(body.size()), length.data());
    return length + body;
}

/// A map whose "names" are `count` repetitions of `item`.
QByteArray bomb(const QByteArray &item, qsizetype count) {
    return framed("\xa1\x65names\x9f" + item.repeated(count) + '\xff');
}

}  // namespace

/// Servers that fail or attack, each in its own way: what they cost is bounded. Prints a table.
class HostileServersTest : public QObject {
    Q_OBJECT

    /// Performs the visit on a worker thread.
    using Visit = std::function<EngineErrorCode(EngineFuture &future)>;

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<DirectConnectionPeer> m_peer;
    QTemporaryDir m_folder;
    QStringList m_table;

    Visit webDAV(ScriptedServer::Script script) {
        m_server = std::make_unique<ScriptedServer>(std::move(script));
        const auto store =
            m_host->newLocation(Url::fromString(m_server->URLText(QStringLiteral("a.qvSyncStore"))))
                ->createBlobStore();
        return [store](EngineFuture &future) { return code(store->open(future)); };
    }
    /// The store of a server with short deadlines.
    std::shared_ptr<BlobStore> impatientStore(ScriptedServer::Script script,
                                              const QString &scheme = QStringLiteral("http")) {
        m_server = std::make_unique<ScriptedServer>(std::move(script));
        return webDAVStoreWithoutEngine(m_server->URLText(QStringLiteral("a.qvSyncStore"))
                                            .replace(QStringLiteral("http"), scheme),
                                        {std::chrono::seconds(1), std::chrono::seconds(3)});
    }
    Visit impatient(ScriptedServer::Script script, const QString &scheme = QStringLiteral("http")) {
        const auto store = impatientStore(std::move(script), scheme);
        return [store](EngineFuture &future) { return code(store->open(future)); };
    }
    Visit impatientUpload(ScriptedServer::Script script) {
        const auto store = impatientStore(std::move(script));
        return [store](EngineFuture &future) {
            // More than the system buffers.
            return code(store->writeIfAbsent(QStringLiteral("transactions/a"),
                                             QByteArray(32 << 20, 'x'), future));
        };
    }
    Visit dropbox(ScriptedServer::Script script) {
        m_server = std::make_unique<ScriptedServer>(std::move(script));
        const QString address = QStringLiteral("http://127.0.0.1:%1").arg(m_server->port());
        UserDefaults::setValue(DropboxConfiguration::ApplicationKeyDefault, QStringLiteral("key"));
        UserDefaults::setValue(DropboxConfiguration::TokenAddressDefault, address);
        UserDefaults::setValue(DropboxConfiguration::APIAddressDefault, address);
        UserDefaults::setValue(DropboxConfiguration::ContentAddressDefault, address);
        DropboxTokens{.access = QByteArray("access"), .refresh = QByteArray("refresh")}.store(
            HostileAccount);
        const auto store =
            m_host->newLocation(Url::fromString(QStringLiteral("dropbox://") + HostileAccount))
                ->createBlobStore();
        return [store](EngineFuture &future) {
            return code(store->list(QStringLiteral("databases"), future));
        };
    }
    Visit directConnection(const QByteArray &response, qsizetype limit) {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        m_peer =
            std::make_unique<DirectConnectionPeer>(*identity, QByteArrayList{response}, 1 << 16);
        return [port = m_peer->port(), limit](EngineFuture &future) {
            DirectConnectionLink link;
            const Expected<void> connected =
                link.connect(QStringLiteral("127.0.0.1"), port, future);
            if (!connected) {
                return EngineErrorCode::InvalidDatabase;
            }
            return code(
                link.exchange(DirectConnectionMessage::ofType(DirectConnectionMessage::List), limit,
                              {std::chrono::seconds(10)}, future));
        };
    }

    Visit visit(const QString &name) {
        constexpr qsizetype limit = DirectConnectionMessage::Limit;
        constexpr qsizetype strangersLimit = DirectConnectionMessage::LimitBeforeAuthorization;
        const QByteArray response = "<D:response><D:href>/a.qvSyncStore/x</D:href></D:response>";
        const QHash<QString, std::function<Visit()>> visits{
            {QStringLiteral("WebDAV: endless body of a challenge"),
             [&] {
                 return webDAV(
                     endlessly("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"\r\n", "x"));
             }},
            {QStringLiteral("WebDAV: endless header fields"),
             [&] { return webDAV(endlessly("207 Multi-Status", "X-A: b\r\n")); }},
            {QStringLiteral("WebDAV: endless provisional responses"),
             [&] {
                 return webDAV(endlessly("100 Continue\r\n", "HTTP/1.1 100 Continue\r\n\r\n"));
             }},
            {QStringLiteral("WebDAV: changing challenges"),
             [&] { return webDAV(changingChallenges()); }},
            {QStringLiteral("WebDAV: redirects without end"),
             [&] { return webDAV(alikeForAll("302 Found\r\nLocation: /b.qvSyncStore/", {})); }},
            {QStringLiteral("WebDAV: 200,000 attributes"),
             [&] {
                 return webDAV(alikeForAll(
                     "207 Multi-Status",
                     multiStatusAround("<a " + QByteArray("a=\"b\" ").repeated(200'000) + "/>")));
             }},
            {QStringLiteral("WebDAV: 50,000 responses of another folder"),
             [&] {
                 return webDAV(alikeForAll(
                     "207 Multi-Status",
                     multiStatusAround(
                         QByteArray(response).replace("a.qv", "b.qv").repeated(50'000))));
             }},
            {QStringLiteral("WebDAV: silence (deadlines of 1 s and 3 s)"),
             [&] {
                 return impatient([](Connection &connection) { connection.waitUntilClosed(); });
             }},
            {QStringLiteral("WebDAV: slow header fields (deadlines of 1 s and 3 s)"),
             [&] {
                 return impatient([](Connection &connection) {
                     connection.readRequest();
                     connection.sendSlowly("HTTP/1.1 207 Multi-Status\r\n" +
                                           QByteArray("X-A: b\r\n").repeated(1000));
                 });
             }},
            {QStringLiteral("WebDAV: slow body (deadlines of 1 s and 3 s)"),
             [&] {
                 return impatient([](Connection &connection) {
                     connection.readRequest();
                     connection.send("HTTP/1.1 207 Multi-Status\r\nContent-Length: 9999\r\n\r\n");
                     connection.sendSlowly(QByteArray(9999, ' '));
                 });
             }},
            {QStringLiteral("WebDAV: request that is not read (deadlines of 1 s and 3 s)"),
             [&] { return impatientUpload([](Connection &connection) { connection.ignore(); }); }},
            {QStringLiteral("WebDAV: reset after the TLS hello"),
             [&] {
                 return impatient(
                     [](Connection &connection) {
                         connection.awaitBytes();
                         connection.reset();
                     },
                     QStringLiteral("https"));
             }},
            {QStringLiteral("Dropbox: listing without end"),
             [&] {
                 const QByteArray entry =
                     "{\".tag\":\"file\",\"name\":\"" + QByteArray(200, 'x') + "\"}";
                 return dropbox(
                     alikeForAll("200 OK", dropboxPage(entry + (',' + entry).repeated(9'999))));
             }},
            {QStringLiteral("Dropbox: page of empty lists"),
             [&] {
                 return dropbox(
                     alikeForAll("200 OK", dropboxPage("0" + QByteArray(",[]").repeated(1'300'000))
                                               .replace("\"entries\"", "\"x\"")));
             }},
            {QStringLiteral("OAuth: endless answer of the token endpoint"),
             [&] { return dropbox(endlessly("401 Unauthorized\r\n", "x")); }},
            {QStringLiteral("OAuth: refused for ever"),
             [&] { return dropbox(alikeForAll("401 Unauthorized", "{}")); }},
            {QStringLiteral("Direct connection: 64 MiB before trust"),
             [&] {
                 return directConnection(bomb(QByteArray(1, '\x80'), limit - 9), strangersLimit);
             }},
            {QStringLiteral("Direct connection: empty lists"),
             [&] { return directConnection(bomb(QByteArray(1, '\x80'), 60 << 20), limit); }},
            {QStringLiteral("Direct connection: empty texts"),
             [&] { return directConnection(bomb(QByteArray(1, '\x60'), 60 << 20), limit); }},
            {QStringLiteral("Direct connection: nested lists"),
             [&] { return directConnection(bomb(QByteArray(1, '\x81'), 60 << 20), limit); }},
        };
        return visits.value(name)();
    }

private Q_SLOTS:
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() {
        m_server.reset();
        m_peer.reset();
        m_host.reset();
    }
    void cleanupTestCase() {
        std::puts(
            "| server | memory, MB | longest stall, ms | gives up after, ms |\n|---|--:|--:|--:|");
        for (const QString &line : std::as_const(m_table)) {
            std::puts(qPrintable(line));
        }
    }

    void everyServerIsGivenUp_data() {
        QTest::addColumn<EngineErrorCode>("expected");
        QTest::addColumn<int>("deadline");
        using Code = EngineErrorCode;
        QTest::newRow("WebDAV: endless body of a challenge") << Code::BlobRefused << 5000;
        QTest::newRow("WebDAV: endless header fields") << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: endless provisional responses") << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: changing challenges") << Code::AccessDenied << 5000;
        QTest::newRow("WebDAV: redirects without end") << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: 200,000 attributes") << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: 50,000 responses of another folder")
            << Code::StoreUnreachable << 20000;
        QTest::newRow("WebDAV: silence (deadlines of 1 s and 3 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: slow header fields (deadlines of 1 s and 3 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: slow body (deadlines of 1 s and 3 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: request that is not read (deadlines of 1 s and 3 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: reset after the TLS hello") << Code::StoreUnreachable << 5000;
        QTest::newRow("Dropbox: listing without end") << Code::BlobRefused << 60000;
        QTest::newRow("Dropbox: page of empty lists") << Code::StoreUnreachable << 20000;
        QTest::newRow("OAuth: endless answer of the token endpoint") << Code::BlobRefused << 10000;
        QTest::newRow("OAuth: refused for ever") << Code::StoreUnreachable << 10000;
        QTest::newRow("Direct connection: 64 MiB before trust") << Code::StoreUnreachable << 5000;
        QTest::newRow("Direct connection: empty lists") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: empty texts") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: nested lists") << Code::StoreUnreachable << 30000;
    }

    void everyServerIsGivenUp() {
        QFETCH(const EngineErrorCode, expected);
        QFETCH(const int, deadline);
        const QString name = QString::fromUtf8(QTest::currentDataTag());
        const Visit visitServer = visit(name);
        EngineFuture future;
        const PeakMemory memory;
        StallMeter meter;
        QElapsedTimer time;
        time.start();
        std::future<EngineErrorCode> result =
            std::async(std::launch::async, [&] { return visitServer(future); });
        const bool isInTime = QTest::qWaitFor(
            [&] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
            deadline);
        future.cancel();
        const EngineErrorCode error = result.get();
        const qint64 growth = memory.growth();
        m_table.append(QStringLiteral("| %1 | %2 | %3 | %4 |")
                           .arg(name)
                           .arg(growth)
                           .arg(meter.longest())
                           .arg(time.elapsed()));
        QVERIFY2(isInTime, qPrintable(m_table.last()));
        QCOMPARE(error, expected);
        QVERIFY2(growth >= 0 && growth <= LargestGrowth, qPrintable(m_table.last()));
        QVERIFY2(meter.longest() <= HostileStall, qPrintable(m_table.last()));
    }
};

VELMORA_TEST(HostileServersTest)
#include "HostileServersTest.moc"
