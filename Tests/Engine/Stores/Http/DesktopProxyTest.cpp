#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include "Engine/Stores/Http/DesktopProxy.h"
#include "Engine/Stores/Http/HttpClient.h"
#include "Support/AwaitOnThread.h"
#include "Support/Failure.h"
#include "Support/FreePort.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

namespace {

using Response = HttpClient::Response;

/// A server that only a proxy finds.
const QString ProxiedServer = QStringLiteral("velmora.invalid");

/// An HTTP proxy on this computer that connects everybody with one server there, whatever they ask
/// for. It works while the event loop runs.
class SmallProxy {
public:
    /// `status` is what it answers to those who want a tunnel.
    explicit SmallProxy(quint16 server, const QByteArray &status = "200 Connected")
        : m_serverPort(server), m_status(status) {
        QObject::connect(&m_listener, &QTcpServer::newConnection, &m_listener, [this] {
            while (QTcpSocket *client = m_listener.nextPendingConnection()) {
                serve(*client);
            }
        });
        m_listener.listen(QHostAddress::LocalHost);
    }
    QByteArray address() const {
        return "http://127.0.0.1:" + QByteArray::number(m_listener.serverPort());
    }
    /// Returns the heads of the first requests of all connections.
    const QByteArrayList &heads() const { return m_heads; }

private:
    void serve(QTcpSocket &client) {
        QObject::connect(&client, &QTcpSocket::readyRead, &client, [this, &client] {
            const QByteArray bytes = client.peek(65536);
            const qsizetype end = bytes.indexOf("\r\n\r\n") + 4;
            if (end < 4) {
                return;
            }
            client.disconnect(SIGNAL(readyRead()));
            m_heads.append(bytes.first(end));
            if (!bytes.startsWith("CONNECT ")) {
                connectToServer(client);
                return;
            }
            client.read(end);
            client.write("HTTP/1.1 " + m_status + "\r\nX-Proxy: small\r\n\r\n");
            if (m_status.startsWith("200")) {
                connectToServer(client);
            } else {
                client.disconnectFromHost();
            }
        });
    }
    void connectToServer(QTcpSocket &client) {
        auto *server = new QTcpSocket(&client);
        server->connectToHost(QHostAddress::LocalHost, m_serverPort);
        const auto pass = [](QTcpSocket &from, QTcpSocket &to) { to.write(from.readAll()); };
        const auto toServer = [&client, server, pass] { pass(client, *server); };
        QObject::connect(server, &QTcpSocket::connected, server, toServer);
        QObject::connect(&client, &QTcpSocket::readyRead, server, [server, toServer] {
            if (server->state() == QAbstractSocket::ConnectedState) {
                toServer();
            }
        });
        QObject::connect(server, &QTcpSocket::readyRead, &client,
                         [&client, server, pass] { pass(*server, client); });
        QObject::connect(server, &QTcpSocket::disconnected, &client,
                         [&client] { client.disconnectFromHost(); });
    }

    const quint16 m_serverPort;
    const QByteArray m_status;
    QByteArrayList m_heads;
    QTcpServer m_listener;
};

HttpClient::Options trustfulWithPassword() {
    HttpClient::Options options;
    options.trusts = [](const auto &, const auto &) { return true; };
    options.credential = [](auto, const auto &) -> std::optional<UrlCredential> {
        return UrlCredential{WebDAVServer::User, WebDAVServer::Password};
    };
    return options;
}

Expected<Response> fetchedByProxy(const QString &URL) {
    return awaitOnThread([&] {
        HttpClient client(trustfulWithPassword());
        return client.send({.method = "GET", .URL = QUrl(URL), .limit = 1000},
                           *std::make_shared<EngineFuture>());
    });
}

}  // namespace

class DesktopProxyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() {
        for (const char *variable : {"http_proxy", "https_proxy", "no_proxy"}) {
            qunsetenv(variable);
        }
    }

    void aServerWithoutEncryptionIsReachedThroughTheProxy() {
        const WebDAVServer server({.authentication = WebDAVServer::Authentication::None});
        server.putFile(QStringLiteral("a"), "contents");
        const SmallProxy proxy(server.port());
        qputenv("http_proxy", proxy.address());
        const auto response =
            fetchedByProxy(QStringLiteral("http://") + ProxiedServer + QStringLiteral("/dav/a"));
        QVERIFY2(response, qPrintable(description(response)));
        QCOMPARE(response->body, QByteArray("contents"));
        QVERIFY(proxy.heads().value(0).startsWith("GET http://velmora.invalid/dav/a HTTP/1.1"));
    }

    void aServerWithEncryptionIsReachedThroughATunnel() {
        const TestAuthority authority;
        const WebDAVServer server({.identity = authority.issue(QStringLiteral("DNS:localhost"))});
        server.putFile(QStringLiteral("a"), "contents");
        const SmallProxy proxy(server.port());
        qputenv("https_proxy", proxy.address());
        const auto response =
            fetchedByProxy(QStringLiteral("https://") + ProxiedServer + QStringLiteral("/dav/a"));
        QVERIFY2(response, qPrintable(description(response)));
        QCOMPARE(response->body, QByteArray("contents"));
        QVERIFY(proxy.heads().value(0).startsWith("CONNECT velmora.invalid:443 HTTP/1.1"));
        // The proxy sees neither the password nor the response.
        for (const QByteArray &head : proxy.heads()) {
            QVERIFY(!head.toLower().contains("\nauthorization:"));
        }
        for (const HttpClient::Header &header : response->headers) {
            QVERIFY(header.name != "X-Proxy");
        }
    }

    void aProxyThatRefusesIsNamed_data() {
        QTest::addColumn<QByteArray>("status");
        QTest::newRow("forbidden") << QByteArray("403 Forbidden");
        QTest::newRow("password") << QByteArray("407 Proxy Authentication Required");
    }
    void aProxyThatRefusesIsNamed() {
        QFETCH(const QByteArray, status);
        const SmallProxy proxy(freePort(), status);
        qputenv("https_proxy", proxy.address());
        const auto response = fetchedByProxy(QStringLiteral("https://") + ProxiedServer);
        QCOMPARE(code(response), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(response).contains(QStringLiteral("through the proxy “") +
                                                QString::fromLatin1(proxy.address())),
                 qPrintable(description(response)));
    }

    void aProxyThatDoesNotListenIsNamed() {
        const QByteArray address = "http://127.0.0.1:" + QByteArray::number(freePort());
        qputenv("http_proxy", address);
        const auto response = fetchedByProxy(QStringLiteral("http://") + ProxiedServer);
        QCOMPARE(code(response), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(response).contains(QStringLiteral("through the proxy “") +
                                                QString::fromLatin1(address)),
                 qPrintable(description(response)));
    }

    void thisComputerAndExceptionsHaveNoProxy() {
        qputenv("http_proxy", "http://127.0.0.1:9");
        qputenv("no_proxy", "other.invalid");
        const auto proxyFor = [](const QString &host) {
            return DesktopProxy::forURL(QUrl(QStringLiteral("http://") + host)).address;
        };
        QCOMPARE(proxyFor(ProxiedServer), QByteArray("http://127.0.0.1:9"));
        for (const char *host : {"localhost", "127.0.0.2", "[::1]", "other.invalid"}) {
            QVERIFY2(proxyFor(QString::fromLatin1(host)).isEmpty(), host);
        }
    }
};

VELMORA_TEST(DesktopProxyTest)
#include "DesktopProxyTest.moc"
