#include <fcntl.h>
#include <unistd.h>

#include <QtNetwork/QSslSocket>
#include <QtTest/QSignalSpy>
#include <filesystem>
#include <future>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionClients.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionLink.h"
#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"
#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/NoteInspection.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/BackupSchedule.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/WebDAV/WebDAVMultiStatus.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"
#include "Engine/Synchronization/TransactionRecords.h"
#include "Host/InboxUUID.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Network/LocalHostName.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"
#include "Platform/Network/NetServiceDelegate.h"
#include "Platform/Security/Keychain.h"
#include "Platform/Security/SecretStore.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/Failure.h"
#include "Support/FreePort.h"
#include "Support/HostileDiscoveryDaemon.h"
#include "Support/HostileSecretService.h"
#include "Support/HostileStore.h"
#include "Support/KeychainRemoval.h"
#include "Support/MessageRecorder.h"
#include "Support/PeakMemory.h"
#include "Support/PrivateBus.h"
#include "Support/ScriptedServer.h"
#include "Support/SetDefault.h"
#include "Support/StallMeter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/TestWebDAVStore.h"
#include "Support/TlsServer.h"
#include "Support/WebDAVServer.h"

namespace {

using Connection = ScriptedServer::Connection;

/// Megabytes that a server may cause to be allocated, and milliseconds that the main thread may
/// work without responding, or not respond because it waits. Generous for a sanitized build.
constexpr qint64 LargestGrowth = 100;
constexpr qint64 LongestWork = 1000;
constexpr qint64 LongestStall = 3000;
/// Megabytes that are kept of the largest sound record: its texts, with two bytes per character.
constexpr qint64 SoundRecord = 128;
/// The number of lists in a record that is parsed: about the most.
constexpr qint64 MostLists = 60'000;

const QString ManyFiles = QStringLiteral("files");

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

/// A listing of `folder` that is read and, but for a few bytes, reaches every limit of a listing
/// that bounds memory. Other elements take time only.
QByteArray listingAtItsLimits(const QByteArray &folder) {
    constexpr qsizetype resources = WebDAVMultiStatus::MostResources;
    constexpr qsizetype pathSize = WebDAVMultiStatus::LongestPaths / resources;
    constexpr qsizetype size = WebDAVStore::ListingLimit / resources;
    QByteArray body;
    body.reserve(WebDAVStore::ListingLimit);
    body += "<D:multistatus xmlns:D=\"DAV:\"><D:response><D:href>" + folder +
            "</D:href><D:propstat><D:prop><D:resourcetype><D:collection/>"
            "</D:resourcetype></D:prop></D:propstat></D:response>";
    for (qsizetype i = 2; i < resources; ++i) {
        const QByteArray name = QByteArray::number(i).rightJustified(pathSize - folder.size(), 'x');
        const QByteArray response =
            "<D:response><D:href>" + folder + name + "</D:href></D:response>";
        body += response.leftJustified(size, ' ');
    }
    return body + "</D:multistatus>";
}

/// A page that is not the last one.
QByteArray dropboxPage(const QByteArray &entries) {
    return "{\"cursor\":\"c\",\"has_more\":true,\"entries\":[" + entries + "]}";
}

/// A number in four bytes, as messages and CBOR state lengths.
QByteArray fourBytes(qsizetype number) {
    QByteArray bytes(4, '\0');
    qToBigEndian(static_cast<quint32>(number), bytes.data());
    return bytes;
}

/// The bytes of a message with this body.
QByteArray framed(const QByteArray &body) {
    return fourBytes(body.size()) + body;
}

/// A map whose "names" are `count` repetitions of `item`.
QByteArray bomb(const QByteArray &item, qsizetype count) {
    return framed("\xa1\x65names\x9f" + item.repeated(count) + '\xff');
}

/// A text of 120 characters, and one that consists of nothing but "x": the first two state its type
/// and length.
const QByteArray LongName(122, 'x');

/// A message with one key. "x" is the key's characters and its value.
QByteArray longKey(qsizetype size) {
    const QByteArray begin = "\xa1\x7a" + fourBytes(size) + "\u00e9";
    return framed(begin + QByteArray(size - 2 + LongName.size(), 'x'));
}

/// Counts the services that a browser finds and loses.
class FoundServices : public NetServiceBrowserDelegate {
public:
    void netServiceBrowserDidFindServiceMoreComing(NetServiceBrowser * /*browser*/,
                                                   const std::shared_ptr<NetService> & /*service*/,
                                                   bool /*moreComing*/) override {
        ++found;
    }
    void netServiceBrowserDidRemoveServiceMoreComing(
        NetServiceBrowser * /*browser*/, const std::shared_ptr<NetService> & /*service*/,
        bool /*moreComing*/) override {
        ++lost;
    }

    int found = 0;
    int lost = 0;
};

/// Counts the attempts to resolve a service that have failed.
class FailedResolutions : public NetServiceDelegate {
public:
    void netServiceDidNotResolve(const std::shared_ptr<NetService> & /*service*/) override {
        ++count;
    }

    int count = 0;
};

const QString ServiceType = QStringLiteral("_velmora-test._tcp");

const QString GreedyName = QStringLiteral("kim at desk");

/// A client that the user has allowed. Sends a request that takes much memory, some bytes after it,
/// and reads nothing for longer than the server waits.
class GreedyClient {
public:
    GreedyClient(quint16 port, const QByteArray &secret, const QByteArray &request,
                 qsizetype bytesAfterIt)
        : m_bytesLeft(bytesAfterIt) {
        m_socket.setPeerVerifyMode(QSslSocket::VerifyNone);
        QObject::connect(&m_socket, &QSslSocket::encryptedBytesWritten, &m_socket,
                         [this] { sendMore(); });
        QObject::connect(&m_socket, &QSslSocket::readyRead, &m_socket, [this, request] {
            // The response to the greeting.
            if (!m_isWelcome) {
                m_isWelcome = true;
                m_socket.readAll();
                m_socket.setReadBufferSize(1);
                m_socket.write(request);
                m_reading.start();
            } else {
                m_isAnswered = true;
                if (!m_reading.isActive()) {
                    m_socket.readAll();
                }
            }
        });
        // Only who reads notices that the connection has ended.
        m_reading.setSingleShot(true);
        m_reading.setInterval(std::chrono::seconds(3));
        QObject::connect(&m_reading, &QTimer::timeout, &m_socket, [this] {
            m_socket.setReadBufferSize(0);
            m_socket.readAll();
        });
        m_socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), port);
        QCborMap greeting = DirectConnectionMessage::ofType(DirectConnectionMessage::Hello);
        greeting[DirectConnectionMessage::Name] = GreedyName;
        greeting[DirectConnectionMessage::Secret] = secret;
        m_socket.write(DirectConnectionMessage::encode(greeting));
    }
    ~GreedyClient() {
        m_socket.disconnect();
        m_socket.abort();
    }
    GreedyClient(const GreedyClient &) = delete;
    GreedyClient &operator=(const GreedyClient &) = delete;

    bool wasWelcome() const { return m_isWelcome; }
    bool isAnswered() const { return m_isAnswered; }
    bool hasEnded() const { return m_socket.state() == QAbstractSocket::UnconnectedState; }

private:
    void sendMore() {
        constexpr qsizetype piece = 1 << 20;
        if (m_isWelcome && m_socket.bytesToWrite() + m_socket.encryptedBytesToWrite() == 0) {
            const qsizetype size = std::min(m_bytesLeft, piece);
            m_socket.write(QByteArray(size, 'x'));
            m_bytesLeft -= size;
        }
    }

    QSslSocket m_socket;
    QTimer m_reading;
    qsizetype m_bytesLeft;
    bool m_isWelcome = false;
    bool m_isAnswered = false;
};

}  // namespace

/// Servers, stores, services and daemons that fail or attack, each in its own way: what they cost
/// is bounded. Prints a table.
class HostileServersTest : public QObject {
    Q_OBJECT

    /// Performs the visit on a worker thread.
    using Visit = std::function<EngineErrorCode(EngineFuture &future)>;

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<DirectConnectionPeer> m_peer;
    std::unique_ptr<TlsServer> m_tlsServer;
    /// The location of the last visit, unless it had none.
    std::shared_ptr<QVSyncLocation> m_location;
    QTemporaryDir m_folder;
    /// The folder that was filled with records.
    QString m_filled;
    /// Contains a folder of very many files, which is made once, while no visit has it.
    std::unique_ptr<QTemporaryDir> m_manyFiles;
    bool m_hasManyFiles = false;
    /// The system bus, of which libraries look up the address once.
    std::unique_ptr<PrivateBus> m_bus;
    QStringList m_table;
    /// Made once.
    QByteArray m_largestSoundRecord;

    /// Measures what `begin` starts, until the function that it returns returns true, and adds a
    /// row to the table. `kept` is the number of megabytes that it may take besides.
    void measure(const std::function<std::function<bool()>()> &begin, int deadline,
                 qint64 kept = 0) {
        const PeakMemory memory;
        StallMeter meter;
        QElapsedTimer time;
        time.start();
        const bool isInTime = QTest::qWaitFor(begin(), deadline);
        const qint64 growth = memory.growth();
        m_table.append(QStringLiteral("| %1 | %2 | %3 | %4 | %5 |")
                           .arg(QString::fromUtf8(QTest::currentDataTag()))
                           .arg(growth)
                           .arg(meter.longestWork())
                           .arg(meter.longest())
                           .arg(time.elapsed()));
        QVERIFY2(isInTime, qPrintable(m_table.last()));
        QVERIFY2(growth >= 0 && growth <= LargestGrowth + kept, qPrintable(m_table.last()));
        QVERIFY2(meter.longestWork() <= LongestWork, qPrintable(m_table.last()));
        QVERIFY2(meter.longest() <= LongestStall, qPrintable(m_table.last()));
    }
    /// Measures `work` on a worker thread, and returns its result.
    template <class Work>
    auto measureOnThread(const Work &work, int deadline, qint64 kept = 0) {
        std::future<decltype(work())> result;
        const auto begin = [&]() -> std::function<bool()> {
            result = std::async(std::launch::async, work);
            return [&] {
                return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
            };
        };
        measure(begin, deadline, kept);
        return result;
    }

    /// Starts a synchronization of the inbox with the location of the last visit. Returns a
    /// function that returns whether it has ended.
    std::function<bool()> synchronize() {
        const QString inbox = m_host->inbox()->UUID();
        auto state = m_location->stateForDatabaseWithUUID(inbox);
        if (!state) {
            state = m_host->addState(m_location, m_host->inbox());
            state->setEnabled(true);
            m_host->save();
        }
        const auto isDone = std::make_shared<bool>(false);
        m_host->engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [isDone] { *isDone = true; });
        return [isDone] { return *isDone; };
    }
    /// Measures it.
    void measureSynchronization(qint64 kept = 0, int deadline = 60000) {
        measure([this] { return synchronize(); }, deadline, kept);
    }

    /// The number of megabytes that are kept of the visit `name`.
    static qint64 keptOf(const QString &name) {
        return name.contains(QStringLiteral("sound")) ? SoundRecord : 0;
    }
    /// The deadline that the name of the row tells. Without one, the row ends long before that.
    static std::chrono::milliseconds namedDeadline() {
        return QByteArray(QTest::currentDataTag()).contains("deadline of 0.3 s")
                   ? std::chrono::milliseconds(300)
                   : std::chrono::seconds(30);
    }

    /// The store of a location at a server.
    std::shared_ptr<BlobStore> serverStore(ScriptedServer::Script script) {
        m_server =
            std::make_unique<ScriptedServer>(std::move(script), ScriptedServer::Order::AllAtOnce);
        m_location = m_host->addLocation(m_server->URLText(QStringLiteral("a.qvSyncStore")));
        return storeOf(m_location);
    }
    Visit webDAV(ScriptedServer::Script script) {
        const auto store = serverStore(std::move(script));
        return [store](EngineFuture &future) { return code(store->open(future)); };
    }
    Visit webDAVListing(ScriptedServer::Script script) {
        const auto store = serverStore(std::move(script));
        return [store](EngineFuture &future) {
            return code(store->list(QStringLiteral("x"), future));
        };
    }
    /// The store of a server with short deadlines.
    std::shared_ptr<BlobStore> impatientStore(ScriptedServer::Script script,
                                              const QString &scheme = QStringLiteral("http")) {
        m_server = std::make_unique<ScriptedServer>(std::move(script));
        return webDAVStoreWithoutEngine(m_server->URLText(QStringLiteral("a.qvSyncStore"))
                                            .replace(QStringLiteral("http"), scheme),
                                        {std::chrono::milliseconds(300), std::chrono::seconds(1)});
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
    /// Reads records of a server that sends the same for each, as a synchronization does. Returns
    /// the result of the first one.
    Visit records(const std::shared_ptr<BlobStore> &store) {
        return [store](EngineFuture &future) {
            QStringList names;
            for (int i = 0; i < store->operationsAtOnce(); ++i) {
                names.append(newRecordName());
            }
            const auto read = TransactionRecords(*store, InboxUUID, future)
                                  .readSome(names, Transaction::UsualSize, [] {});
            return code(*read.front());
        };
    }
    Visit webDAVRecords(const QByteArray &record) {
        return records(serverStore(alikeForAll("200 OK", record)));
    }
    Visit dropbox(ScriptedServer::Script script) {
        const auto store = dropboxStore(std::move(script));
        return [store](EngineFuture &future) {
            return code(store->list(QStringLiteral("databases"), future));
        };
    }
    std::shared_ptr<BlobStore> dropboxStore(ScriptedServer::Script script) {
        m_server =
            std::make_unique<ScriptedServer>(std::move(script), ScriptedServer::Order::AllAtOnce);
        const QString address = QStringLiteral("http://127.0.0.1:%1").arg(m_server->port());
        setDefault(DropboxConfiguration::ApplicationKeyDefault, QStringLiteral("key"));
        setDefault(DropboxConfiguration::TokenAddressDefault, address);
        setDefault(DropboxConfiguration::APIAddressDefault, address);
        setDefault(DropboxConfiguration::ContentAddressDefault, address);
        DropboxTokens{.access = QByteArray("access"), .refresh = QByteArray("refresh")}.store(
            HostileAccount);
        m_location = m_host->addLocation(QStringLiteral("dropbox://") + HostileAccount);
        return storeOf(m_location);
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
                link.exchange(DirectConnectionMessage::encode(
                                  DirectConnectionMessage::ofType(DirectConnectionMessage::List)),
                              limit, {std::chrono::seconds(10)}, future));
        };
    }

    /// Starts a TLS server and returns its port.
    quint16 tlsServer(TlsServer::Script script) {
        const auto identity = DirectConnectionIdentity::load(m_folder.path());
        m_tlsServer = std::make_unique<TlsServer>(*identity, TLS1_3_VERSION, std::move(script));
        return m_tlsServer->port();
    }
    /// Requests something of a server that has a certificate.
    static Visit impatientRequest(quint16 port) {
        return [port](EngineFuture &future) {
            using namespace std::chrono_literals;
            HttpClient client({.timeouts = {.idle = 300ms, .total = 1s},
                               .trusts = [](const auto &, const auto &) { return true; }});
            const QString address = QStringLiteral("https://127.0.0.1:%1/").arg(port);
            return code(client.send({.method = "GET", .URL = QUrl(address)}, future));
        };
    }
    static Visit impatientLink(quint16 port) {
        return [port](EngineFuture &future) {
            using namespace std::chrono_literals;
            DirectConnectionLink link;
            if (!link.connect(QStringLiteral("127.0.0.1"), port, future)) {
                return EngineErrorCode::InvalidDatabase;
            }
            return code(
                link.exchange(DirectConnectionMessage::encode(
                                  DirectConnectionMessage::ofType(DirectConnectionMessage::List)),
                              DirectConnectionMessage::LimitBeforeAuthorization,
                              {.idle = 300ms, .total = 1s}, future));
        };
    }
    Visit drippingDirectConnection() {
        m_peer = DirectConnectionPeer::dripping(*DirectConnectionIdentity::load(m_folder.path()));
        return impatientLink(m_peer->port());
    }

    Visit visit(const QString &name) {
        constexpr qsizetype limit = DirectConnectionMessage::Limit;
        constexpr qsizetype strangersLimit = DirectConnectionMessage::LimitBeforeAuthorization;
        const QByteArray response = "<D:response><D:href>/a.qvSyncStore/x/x</D:href></D:response>";
        const QByteArray operations = "{\"version\":1,\"operations\":[";
        const QByteArray superseded = "{\"version\":1,\"superseded\":[";
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
            {QStringLiteral("WebDAV: endless extensions of chunks"),
             [&] {
                 return webDAV(endlessly("207 Multi-Status\r\nTransfer-Encoding: chunked\r\n",
                                         "1;" + QByteArray(9000, 'x') + "\r\nx\r\n"));
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
            {QStringLiteral("WebDAV: listing at its limits of bytes, resources and paths"),
             [&] {
                 return webDAVListing(
                     alikeForAll("207 Multi-Status", listingAtItsLimits("/a.qvSyncStore/x/")));
             }},
            {QStringLiteral("Record: 64 MiB of lists"),
             [&] { return record(operations, "[0],", Transaction::SizeLimit); }},
            {QStringLiteral("Record: lists of the largest cost"),
             [&] { return record(operations, "[0],", 4 * MostLists); }},
            {QStringLiteral("Record: 64 MiB of identifiers"),
             [&] {
                 return record(superseded, '"' + QByteArray(32, 'a') + "\",",
                               Transaction::SizeLimit);
             }},
            {QStringLiteral("Record: 240,000 identifiers, the most that are read"),
             [&] {
                 const QByteArray identifier = '"' + QByteArray(32, 'a') + '"';
                 return record(superseded + (identifier + ',').repeated(239'999) + identifier +
                               "]}");
             }},
            {QStringLiteral("Record: sound, 64 MiB"), [&] { return record(largestSoundRecord()); }},
            {QStringLiteral("WebDAV: 8 records of the largest cost at once"),
             [&] { return webDAVRecords(recordOfTheLargestCost()); }},
            {QStringLiteral("WebDAV: 8 sound records of 64 MiB"),
             [&] { return webDAVRecords(largestSoundRecord()); }},
            {QStringLiteral("Folder: 200,001 files, some in another encoding"),
             [&] {
                 return folderOf([&] {
                     takeManyFiles();
                     makeFiles(2, "\xff");
                 });
             }},
            {QStringLiteral("Folder: 95,000 files with names of 255 characters"),
             [&] { return folderOf([&] { makeFiles(95'000, QByteArray(243, 'x')); }); }},
            {QStringLiteral("WebDAV: silence (deadlines of 0.3 s and 1 s)"),
             [&] {
                 return impatient([](Connection &connection) { connection.waitUntilClosed(); });
             }},
            {QStringLiteral("WebDAV: slow header fields (deadlines of 0.3 s and 1 s)"),
             [&] {
                 return impatient([](Connection &connection) {
                     connection.readRequest();
                     connection.sendSlowly("HTTP/1.1 207 Multi-Status\r\n" +
                                           QByteArray("X-A: b\r\n").repeated(1000));
                 });
             }},
            {QStringLiteral("WebDAV: slow body (deadlines of 0.3 s and 1 s)"),
             [&] {
                 return impatient([](Connection &connection) {
                     connection.readRequest();
                     connection.send("HTTP/1.1 207 Multi-Status\r\nContent-Length: 9999\r\n\r\n");
                     connection.sendSlowly(QByteArray(9999, ' '));
                 });
             }},
            {QStringLiteral("WebDAV: request that is not read (deadlines of 0.3 s and 1 s)"),
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
            {QStringLiteral("WebDAV: TLS messages without data (deadlines of 0.3 s and 1 s)"),
             [&] { return impatientRequest(tlsServer(&TlsServer::updateKeys)); }},
            {QStringLiteral(
                 "Direct connection: TLS messages without data (deadlines of 0.3 s and 1 s)"),
             [&] { return impatientLink(tlsServer(&TlsServer::updateKeys)); }},
            {QStringLiteral("Direct connection: silence (deadlines of 0.3 s and 1 s)"),
             [&] { return impatientLink(tlsServer(&TlsServer::keepSilent)); }},
            {QStringLiteral("Direct connection: a byte at a time (deadlines of 0.3 s and 1 s)"),
             [&] { return drippingDirectConnection(); }},
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
            {QStringLiteral("Direct connection: a key of 63 MiB"),
             [&] { return directConnection(longKey(63 << 20), limit); }},
            {QStringLiteral("Direct connection: 490,000 names"),
             [&] { return directConnection(bomb(LongName, 490'000), limit); }},
            {QStringLiteral("Direct connection: 160,000 names, the largest list that is read"),
             [&] { return directConnection(bomb(LongName, 160'000), limit); }},
        };
        return visits.value(name)();
    }

    /// Creates a store in a folder and fills the folder of its transactions by `fill`.
    std::shared_ptr<QVSyncLocation> folder(const std::function<void(const QString &)> &fill) {
        const auto location = m_host->addLocation();
        m_filled = location->URL().path() + QStringLiteral("/transactions/@inbox/");
        QDir().mkpath(m_filled);
        QDir().mkpath(location->URL().path() + QStringLiteral("/databases"));
        fill(m_filled);
        m_location = location;
        return location;
    }
    static std::shared_ptr<BlobStore> storeOf(const std::shared_ptr<QVSyncLocation> &location) {
        return std::dynamic_pointer_cast<EngineSyncLocation>(location)->createBlobStore();
    }
    Visit record(const QByteArray &start, const QByteArray &item, qint64 size) {
        return record(start + item.repeated((size - start.size()) / item.size()));
    }
    Visit record(const QByteArray &contents) {
        const QString name = newRecordName();
        const auto store = storeOf(folder([&](const QString &path) {
            QFile file(path + name);
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(contents), contents.size());
        }));
        return [store, name](EngineFuture &future) {
            return code(TransactionRecords(*store, InboxUUID, future).read(name));
        };
    }
    const QByteArray &largestSoundRecord() {
        if (m_largestSoundRecord.isEmpty()) {
            m_largestSoundRecord = newLargestSoundRecord();
        }
        return m_largestSoundRecord;
    }
    static QByteArray newLargestSoundRecord() {
        constexpr qsizetype noteSize = 1 << 19;
        Transaction transaction;
        for (qint64 size = 2 * noteSize; size <= Transaction::SizeLimit; size += noteSize) {
            transaction.operations.append(
                Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces), QString(),
                                QString(noteSize, u'x'), {}, {}));
        }
        return transaction.encoded();
    }
    /// One that is read at the same time as others.
    static QByteArray recordOfTheLargestCost() {
        constexpr qsizetype size = 7 << 19;
        return "{\"version\":1,\"operations\":[\"" + QByteArray(size, 'x') + "\"," +
               QByteArray("[0],").repeated(MostLists) + "0]}";
    }
    Visit folderOf(const std::function<void()> &fill) {
        const auto store = storeOf(folder([&](const QString &) { fill(); }));
        return [store](EngineFuture &future) {
            return code(store->list(QStringLiteral("transactions/@inbox"), future));
        };
    }
    /// Makes files whose names begin with `prefix`.
    void makeFiles(qsizetype count, const QByteArray &prefix) const {
        const QByteArray path = m_filled.toUtf8() + prefix;
        for (qsizetype i = 0; i < count; ++i) {
            close(creat((path + QByteArray::number(i)).constData(), 0600));
        }
    }
    /// Makes the folder to be filled that of almost as many files as can be listed.
    void takeManyFiles() {
        QDir().rmdir(m_filled);
        if (!m_manyFiles) {
            m_manyFiles = std::make_unique<QTemporaryDir>();
            QDir().mkpath(m_filled);
            makeFiles(BlobStore::MostNames - 1, QByteArray(30, 'x'));
        } else {
            QVERIFY(QDir().rename(m_manyFiles->filePath(ManyFiles), m_filled));
        }
        m_hasManyFiles = true;
    }
    void returnManyFiles() {
        for (const char *name : {"\xff"
                                 "0",
                                 "\xff"
                                 "1"}) {
            unlink((m_filled.toUtf8() + name).constData());
        }
        QVERIFY(QDir().rename(m_filled, m_manyFiles->filePath(ManyFiles)));
    }
    static QString newRecordName() {
        return QUuid::createUuid().toString(QUuid::WithoutBraces) + SyncStoreLayout::RecordEnding;
    }

private Q_SLOTS:
    void initTestCase() {
        // It takes less time to make and remove files in memory.
        const QString inMemory = QStringLiteral("/dev/shm");
        if (QFileInfo(inMemory).isWritable()) {
            qputenv("TMPDIR", inMemory.toUtf8());
        }
        m_bus = std::make_unique<PrivateBus>();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_bus->address().toUtf8());
    }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_host->leaveUnverified("the folders contain what no program writes, and very much of it");
        // The daily backup would be measured, too, if it were made during a row.
        const QSignalSpy ended(&m_host->engine().backups(), &BackupSchedule::ended);
        m_host->engine().backups().check();
        QTRY_COMPARE(ended.size(), 1);
    }
    void cleanup() {
        m_location.reset();
        m_server.reset();
        m_peer.reset();
        m_tlsServer.reset();
        if (std::exchange(m_hasManyFiles, false)) {
            returnManyFiles();
        }
        // Qt does not remove files with names in another encoding.
        std::filesystem::remove_all(std::exchange(m_filled, {}).toStdString());
        m_host.reset();
    }
    void cleanupTestCase() {
        m_bus.reset();
        std::puts(
            "| server | memory, MB | main thread's longest work, ms | its longest stall, ms | ends "
            "after, ms |\n|---|--:|--:|--:|--:|");
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
        QTest::newRow("WebDAV: endless extensions of chunks") << Code::StoreUnreachable << 60000;
        QTest::newRow("WebDAV: changing challenges") << Code::AccessDenied << 5000;
        QTest::newRow("WebDAV: redirects without end") << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: 200,000 attributes") << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: 50,000 responses of another folder")
            << Code::StoreUnreachable << 20000;
        QTest::newRow("WebDAV: listing at its limits of bytes, resources and paths")
            << Code() << 60000;
        QTest::newRow("Record: 64 MiB of lists") << Code::BlobRefused << 20000;
        QTest::newRow("Record: lists of the largest cost") << Code::DamagedRecord << 20000;
        QTest::newRow("Record: 64 MiB of identifiers") << Code::BlobRefused << 20000;
        QTest::newRow("Record: 240,000 identifiers, the most that are read") << Code() << 20000;
        QTest::newRow("WebDAV: 8 records of the largest cost at once")
            << Code::DamagedRecord << 20000;
        QTest::newRow("WebDAV: 8 sound records of 64 MiB") << Code() << 60000;
        QTest::newRow("Folder: 200,001 files, some in another encoding")
            << Code::StoreUnreachable << 20000;
        QTest::newRow("Folder: 95,000 files with names of 255 characters")
            << Code::StoreUnreachable << 20000;
        QTest::newRow("WebDAV: silence (deadlines of 0.3 s and 1 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: slow header fields (deadlines of 0.3 s and 1 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: slow body (deadlines of 0.3 s and 1 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: request that is not read (deadlines of 0.3 s and 1 s)")
            << Code::StoreUnreachable << 5000;
        QTest::newRow("WebDAV: reset after the TLS hello") << Code::StoreUnreachable << 5000;
        for (const char *name :
             {"WebDAV: TLS messages without data (deadlines of 0.3 s and 1 s)",
              "Direct connection: TLS messages without data (deadlines of 0.3 s and 1 s)",
              "Direct connection: silence (deadlines of 0.3 s and 1 s)",
              "Direct connection: a byte at a time (deadlines of 0.3 s and 1 s)"}) {
            QTest::newRow(name) << Code::StoreUnreachable << 5000;
        }
        QTest::newRow("Dropbox: listing without end") << Code::BlobRefused << 60000;
        QTest::newRow("Dropbox: page of empty lists") << Code::StoreUnreachable << 20000;
        QTest::newRow("OAuth: endless answer of the token endpoint") << Code::BlobRefused << 10000;
        QTest::newRow("OAuth: refused for ever") << Code::StoreUnreachable << 10000;
        QTest::newRow("Direct connection: 64 MiB before trust") << Code::StoreUnreachable << 5000;
        QTest::newRow("Direct connection: empty lists") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: empty texts") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: nested lists") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: a key of 63 MiB") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: 490,000 names") << Code::StoreUnreachable << 30000;
        QTest::newRow("Direct connection: 160,000 names, the largest list that is read")
            << Code() << 30000;
    }

    void everyServerIsGivenUp() {
        QFETCH(const EngineErrorCode, expected);
        QFETCH(const int, deadline);
        const QString name = QString::fromUtf8(QTest::currentDataTag());
        const Visit visitServer = visit(name);
        EngineFuture future;
        auto result = measureOnThread([&] { return visitServer(future); }, deadline, keptOf(name));
        future.cancel();
        QCOMPARE(result.get(), expected);
    }

    void anAccountThatHangsDelaysNoOther_data() {
        QTest::addColumn<QString>("other");
        QTest::newRow("OAuth: silence of the token endpoint for another account")
            << QStringLiteral("ida@example.org");
    }
    void anAccountThatHangsDelaysNoOther() {
        QFETCH(const QString, other);
        std::atomic_bool hangs = false;
        const auto first = dropboxStore([&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                if (request.contains("refresh_token=hanging")) {
                    hangs = true;
                    connection.waitUntilClosed();
                } else if (request.contains("grant_type=")) {
                    connection.answer(
                        "200 OK",
                        R"({"access_token":"a","token_type":"bearer","expires_in":9999})");
                } else {
                    connection.answer("200 OK", R"({"entries":[],"cursor":"c","has_more":false})");
                }
            }
        });
        DropboxTokens expired{.access = QByteArray("access"),
                              .refresh = QByteArray("hanging"),
                              .expiry = QDateTime::currentDateTime().addDays(-1)};
        expired.store(HostileAccount);
        expired.refresh = QByteArray("refresh");
        expired.store(other);
        const auto list = [](BlobStore &store, const EngineFuture &future) {
            return code(store.list(QStringLiteral("databases"), future));
        };
        EngineFuture cancelled;
        auto hanging = std::async(std::launch::async, [&] { return list(*first, cancelled); });
        QTRY_VERIFY(hangs);
        const auto second = storeOf(m_host->addLocation(QStringLiteral("dropbox://") + other));
        EngineFuture future;
        auto result = measureOnThread([&] { return list(*second, future); }, 20000);
        future.cancel();
        cancelled.cancel();
        QCOMPARE(result.get(), EngineErrorCode());
        QCOMPARE(hanging.get(), EngineErrorCode::Cancelled);
    }

    void ourServerIsBounded_data() {
        constexpr qsizetype size = qsizetype(60) << 20;
        QCborMap reading = DirectConnectionMessage::ofType(DirectConnectionMessage::Read);
        reading[DirectConnectionMessage::Name] = QStringLiteral("transactions/@inbox/large");
        reading[DirectConnectionMessage::SizeLimit] = DirectConnectionMessage::ContentsLimit;
        QCborMap writing = DirectConnectionMessage::ofType(DirectConnectionMessage::Write);
        writing[DirectConnectionMessage::Name] = QStringLiteral("transactions/@inbox/written");
        QCborMap listing = DirectConnectionMessage::ofType(DirectConnectionMessage::List);
        listing[DirectConnectionMessage::Folder] = QStringLiteral("transactions/@inbox");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<qsizetype>("bytesAfterIt");
        QTest::addColumn<qsizetype>("written");
        QTest::addColumn<int>("computers");
        QTest::newRow("Our server: 4 paired computers that send 60 MiB, but for a byte")
            << fourBytes(size) << size - 1 << qsizetype(0) << 4;
        QTest::newRow("Our server: 2 paired computers that send 60 MiB each")
            << DirectConnectionMessage::encodeBeforeContents(writing, size) << size << size << 2;
        QTest::newRow("Our server: 4 paired computers that request 60 MiB each")
            << DirectConnectionMessage::encode(reading) << qsizetype(0) << qsizetype(0) << 4;
        QTest::newRow("Our server: a paired computer that lists 200,000 names")
            << DirectConnectionMessage::encode(listing) << qsizetype(0) << qsizetype(0) << 1;
    }
    void ourServerIsBounded() {
        using namespace std::chrono_literals;
        QFETCH(const QByteArray, request);
        QFETCH(const qsizetype, bytesAfterIt);
        QFETCH(const qsizetype, written);
        QFETCH(const int, computers);
        m_filled = DirectConnectionPackage::pathInProfile(m_host->directory()) +
                   QStringLiteral("/transactions/@inbox/");
        QVERIFY(QDir().mkpath(m_filled));
        const bool hasManyNames = QByteArray(QTest::currentDataTag()).contains("names");
        if (hasManyNames) {
            takeManyFiles();
        } else {
            QFile large(m_filled + QStringLiteral("large"));
            QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(60 << 20));
        }
        auto &server = dynamic_cast<DirectConnectionServer &>(*m_host->engine().plugin().server());
        // Short limits end what is not served. To prepare so many names takes longer than those.
        const bool isServed = written > 0 || hasManyNames;
        if (!isServed) {
            server.setLimits({.idleTime = 1s, .messageTime = 1s, .memoryTime = 300ms});
        }
        server.setPort(freePort());
        server.startServing();
        QVERIFY(server.isServing());
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(GreedyName, secret);
        std::vector<std::unique_ptr<GreedyClient>> clients;
        const auto connectClients = [&]() -> std::function<bool()> {
            for (int i = 0; i < computers; ++i) {
                clients.push_back(
                    std::make_unique<GreedyClient>(server.port(), secret, request, bytesAfterIt));
            }
            return [&] {
                return std::all_of(clients.begin(), clients.end(), [&](const auto &client) {
                    return client->wasWelcome() &&
                           (isServed ? client->isAnswered() : client->hasEnded());
                });
            };
        };
        measure(connectClients, 60000);
        QCOMPARE(QFileInfo(m_filled + QStringLiteral("written")).size(), written);
        server.stopServing();
        KeychainRemoval::removeFirst(Keychain::shared(),
                                     DirectConnection::ClientAuthorizationServiceName.toUtf8(),
                                     GreedyName.toUtf8());
    }

    void deletingAServedDatabaseIsBounded_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("Our server: 200,000 records of paired computers in a deleted database")
            << QStringLiteral("Plans");
    }
    void deletingAServedDatabaseIsBounded() {
        QFETCH(const QString, name);
        const auto database = m_host->addDatabase(name);
        m_filled = DirectConnectionPackage::pathInProfile(m_host->directory()) +
                   QStringLiteral("/transactions/%1/").arg(database->UUID());
        QVERIFY(QDir().mkpath(m_filled));
        takeManyFiles();
        // They are deleted.
        m_hasManyFiles = false;
        m_manyFiles.reset();
        m_host->engine().plugin().deletedDatabases().setUndoTime(std::chrono::milliseconds(0));
        const auto deleteDatabase = [&]() -> std::function<bool()> {
            const bool isDeleted = m_host->library().deleteDatabase(database).has_value();
            return [this, isDeleted] { return isDeleted && !QFileInfo::exists(m_filled); };
        };
        measure(deleteDatabase, 60000);
    }

    /// The main thread takes part in synchronizations.
    void everySynchronizationIsBounded_data() {
        QTest::addColumn<QString>("server");
        for (const char *server :
             {"WebDAV: endless body of a challenge", "WebDAV: endless header fields",
              "WebDAV: 200,000 attributes", "Record: lists of the largest cost",
              "Record: sound, 64 MiB", "Dropbox: page of empty lists",
              "OAuth: endless answer of the token endpoint"}) {
            QTest::addRow("Synchronization with %s", server) << QString::fromLatin1(server);
        }
    }
    void everySynchronizationIsBounded() {
        QFETCH(const QString, server);
        visit(server);
        measureSynchronization(keptOf(server));
    }

    /// The server is another process, so its memory is not measured. The texts that are written at
    /// a time are kept, and one record, which may have 64 MiB if characters are escaped.
    void everyUploadIsBounded_data() {
        QTest::addColumn<QChar>("character");
        QTest::addColumn<int>("usual");
        QTest::addColumn<int>("large");
        QTest::newRow("Upload: 2 notes of 8 MiB") << QChar(u'x') << 0 << 2;
        QTest::newRow("Upload: 7 notes of 1 MiB and one of 8 MiB, all characters escaped")
            << QChar(1) << 7 << 1;
    }
    void everyUploadIsBounded() {
        QFETCH(const QChar, character);
        QFETCH(const int, usual);
        QFETCH(const int, large);
        // In megabytes.
        constexpr qint64 kept = 2 * 15 + 64;
        const WebDAVServer server({.authentication = WebDAVServer::Authentication::None});
        m_location = m_host->addLocation(server.URLText(QStringLiteral("a.qvSyncStore")));
        qint64 characters = 0;
        for (int i = 0; i < usual + large; ++i) {
            const qsizetype size = i < usual ? Transaction::UsualSize : Operation::NoteLimit;
            Note note{.text = QString(size, character)};
            QVERIFY(m_host->inbox()->saveNote(note));
            characters += size;
        }
        measureSynchronization(kept);
        const QDir written(server.folder() + QStringLiteral("/a.qvSyncStore/transactions/@inbox"));
        qint64 size = 0;
        for (const QFileInfo &record : written.entryInfoList(QDir::Files)) {
            size += record.size();
        }
        QCOMPARE_GE(size, characters * (character == QChar(1) ? 6 : 1));
    }

    void everyListOfDatabasesIsBounded_data() {
        QTest::addColumn<int>("databases");
        QTest::addColumn<int>("nameSize");
        QTest::addColumn<EngineErrorCode>("expected");
        using Code = EngineErrorCode;
        QTest::newRow("WebDAV: 80,000 databases with names of 20 characters")
            << 80'000 << 20 << Code::StoreUnreachable;
        QTest::newRow("WebDAV: 40,000 databases with names of 4,080 characters")
            << 40'000 << 4080 << Code::StoreUnreachable;
        QTest::newRow("WebDAV: 10,000 databases with names of 4,080 characters")
            << 10'000 << 4080 << Code::StoreUnreachable;
        QTest::newRow("WebDAV: 980 databases with names of 4,080 characters, the most that fit")
            << 980 << 4080 << Code();
    }
    void everyListOfDatabasesIsBounded() {
        QFETCH(const int, databases);
        QFETCH(const int, nameSize);
        QFETCH(const EngineErrorCode, expected);
        m_server = std::make_unique<ScriptedServer>(HostileStore::databases(databases, nameSize),
                                                    ScriptedServer::Order::AllAtOnce);
        m_location = m_host->addLocation(m_server->URLText(HostileStore::Path));
        const auto store = m_location->createStore();
        std::promise<std::optional<Error>> promise;
        auto result = promise.get_future();
        const auto fetch = [&]() -> std::function<bool()> {
            store->openWithCompletionHandler([&](const auto &) {
                store->fetchDatabasesWithCompletionHandler(
                    [&](const auto &, const auto &error) { promise.set_value(error); });
            });
            return [&] {
                return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
            };
        };
        measure(fetch, 60000);
        const std::optional<Error> error = result.get();
        QCOMPARE(error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode(), expected);
    }

    /// The window looks for the conflicts of what it shows, too.
    void conflictingEditsAreBounded_data() {
        QTest::addColumn<int>("edits");
        QTest::addColumn<bool>("isLarge");
        QTest::newRow("Folder: 120,000 conflicting edits of one note") << 120'000 << false;
        QTest::newRow("Folder: 15 conflicting edits of 8 MiB") << 15 << true;
    }
    void conflictingEditsAreBounded() {
        QFETCH(const int, edits);
        QFETCH(const bool, isLarge);
        folder([](const QString &) {});
        HostileStore::writeRecords(
            m_location->URL().path(),
            isLarge ? HostileStore::largeEdits(edits) : HostileStore::conflictingEdits(edits));
        if (isLarge) {
            QVERIFY(QTest::qWaitFor(synchronize(), 240'000));
        } else {
            measureSynchronization(0, 240'000);
        }
        const auto lookUp = [&]() -> std::function<bool()> {
            const QList<NoteRow> rows = m_host->inbox()->rows(0, 100).value();
            const Note first = rows.first().note;
            const bool isFound =
                !first.conflict.isEmpty() && rows.size() < 1000 &&
                m_host->inbox()->rowsAt(rows.first().position).value() == rows &&
                m_host->inbox()->hasMoreEdits(first.conflict, rows.size()).value() != isLarge &&
                m_host->inbox()->countOfConflicts().value() == 1;
            return [isFound] { return isFound; };
        };
        measure(lookUp, 5000);
        const Note copy = m_host->inbox()->rows(0, 100).value().at(1).note;
        QVERIFY(copy.UUID != copy.conflict);
        // By its identifier only, as far as that takes a moment.
        const Note edit = isLarge ? Note{.UUID = copy.UUID} : copy;
        const auto lookUpVersions = [&]() -> std::function<bool()> {
            const bool isFound = m_host->inbox()->earlierVersions(copy).value().isEmpty() &&
                                 m_host->inbox()->removeNote(edit).value() &&
                                 m_host->inbox()->earlierVersions(copy).value().size() == 1;
            return [isFound] { return isFound; };
        };
        // The text of one edit, in several copies.
        measure(lookUpVersions, 5000, isLarge ? 64 : 0);
    }

    /// A record of some bytes makes the profile keep all of them as earlier versions.
    void supersededTextsAreBounded_data() {
        QTest::addColumn<int>("edits");
        QTest::addColumn<bool>("byOperation");
        QTest::newRow("Folder: a record that supersedes 15 edits of 8 MiB") << 15 << false;
        QTest::newRow("Folder: an operation that supersedes 15 edits of 8 MiB") << 15 << true;
    }
    void supersededTextsAreBounded() {
        QFETCH(const int, edits);
        QFETCH(const bool, byOperation);
        folder([](const QString &) {});
        const QString path = m_location->URL().path();
        HostileStore::writeRecords(path, HostileStore::largeEdits(edits));
        QVERIFY(QTest::qWaitFor(synchronize(), 120'000));
        const NoteLog &log = m_host->library().synchronizedDatabase(InboxUUID)->log();
        const QList<OperationId> all = log.operationIds().value();
        QCOMPARE(all.size(), edits);
        const Operation last =
            Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces), {}, {}, edits, all);
        const Transaction superseding =
            byOperation ? Transaction{{last}, {}} : Transaction{{}, all.mid(1)};
        HostileStore::writeRecords(path, {superseding.encoded()});
        measureSynchronization();
        QCOMPARE(log.operationIds().value().size(), 1);
    }

    void inspectionOfLargeTextsIsBounded_data() {
        QTest::addColumn<int>("edits");
        QTest::newRow("Folder: inspection of 15 edits of 8 MiB") << 15;
    }
    void inspectionOfLargeTextsIsBounded() {
        QFETCH(const int, edits);
        folder([](const QString &) {});
        HostileStore::writeRecords(m_location->URL().path(), HostileStore::largeEdits(edits));
        QVERIFY(QTest::qWaitFor(synchronize(), 120'000));
        const std::atomic_bool isCancelled = false;
        const QString path = m_host->engine().profile().path();
        auto result = measureOnThread(
            [&] { return NoteInspection::check(path, isCancelled).map(NoteInspection::text); },
            60'000);
        QCOMPARE(result.get().value(), QString());
    }

    /// VELMORA_RECORDS is their number. Twice as many must take about twice as long.
    void manySmallRecordsAreBounded_data() {
        const int set = qEnvironmentVariableIntValue("VELMORA_RECORDS");
        const int records = set > 0 ? set : 5000;
        QTest::addColumn<int>("records");
        QTest::addRow("Folder: %d small sound records", records) << records;
    }
    void manySmallRecordsAreBounded() {
        QFETCH(const int, records);
        folder([](const QString &) {});
        HostileStore::writeRecords(m_location->URL().path(), HostileStore::smallRecords(records));
        measureSynchronization(0, 300'000);
        QCOMPARE(m_host->inbox()->notes().value().size(), records);
    }

    void damagedRecordsAreSetAsideInBounds_data() {
        QTest::addColumn<int>("records");
        QTest::newRow("Folder: 30 damaged records, one of 32 MiB") << 30;
    }
    void damagedRecordsAreSetAsideInBounds() {
        QFETCH(const int, records);
        folder([&](const QString &path) {
            for (int i = 0; i < records; ++i) {
                // The first one is the large one.
                QFile file(path + QStringLiteral("%1-0000-4000-8000-000000000000.json")
                                      .arg(i, 8, 10, QLatin1Char('0')));
                QVERIFY(file.open(QIODevice::WriteOnly));
                QVERIFY(file.resize(i == 0 ? 32 << 20 : 1 << 19));
            }
        });
        measureSynchronization();
        const QStringList aside = QDir(m_filled).entryList({QStringLiteral("*.damaged-*")});
        QCOMPARE(aside.size(), 1);
        const QStringList left = QDir(m_filled).entryList({QStringLiteral("*.json")});
        QCOMPARE(left.size(), records - 1);
    }

    void everyPasswordServiceIsGivenUp_data() {
        using Attack = HostileSecretService::Attack;
        QTest::addColumn<Attack>("attack");
        QTest::newRow("Secret Service: no reply (deadline of 1 s)") << Attack::Silence;
        QTest::newRow("Secret Service: 400 items (deadline of 1 s)") << Attack::ManyItems;
        QTest::newRow("Secret Service: 10,000 items") << Attack::TooManyItems;
        QTest::newRow("Secret Service: huge secrets") << Attack::GiantSecrets;
        QTest::newRow("Secret Service: huge attributes") << Attack::GiantAttributes;
        QTest::newRow("Secret Service: searches of other types") << Attack::TypesOfSearches;
        QTest::newRow("Secret Service: properties of other types") << Attack::TypesOfProperties;
        QTest::newRow("Secret Service: secrets of other types") << Attack::TypesOfSecrets;
        QTest::newRow("Secret Service: leaves the bus") << Attack::Disappearance;
    }
    void everyPasswordServiceIsGivenUp() {
        QFETCH(const HostileSecretService::Attack, attack);
        const QByteArray before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        const PrivateBus bus;
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
        const HostileSecretService service(bus.address(), attack);
        SecretStore store(std::chrono::seconds(1));
        auto isFound = measureOnThread(
            [&] {
                return store.find({{"name", "one"}}).has_value();
            },
            5000);
        qputenv("DBUS_SESSION_BUS_ADDRESS", before);
        QVERIFY(!isFound.get());
    }

    void everyHostNameIsGivenUp_data() {
        using Attack = HostileDiscoveryDaemon::Attack;
        using Code = LocalHostName::ErrorCode;
        QTest::addColumn<Attack>("attack");
        QTest::addColumn<Code>("expected");
        QTest::newRow("Avahi: host name, no reply (deadline of 0.3 s)")
            << Attack::Silence << Code::NoService;
        QTest::newRow("Avahi: host name, huge address") << Attack::GiantReplies << Code::NotFound;
        QTest::newRow("Avahi: host name, other types") << Attack::Types << Code::NotFound;
    }
    void everyHostNameIsGivenUp() {
        QFETCH(const HostileDiscoveryDaemon::Attack, attack);
        QFETCH(const LocalHostName::ErrorCode, expected);
        const HostileDiscoveryDaemon daemon(m_bus->address(), attack);
        const auto deadline = namedDeadline();
        auto address = measureOnThread(
            [deadline] { return LocalHostName::address(QStringLiteral("host.local"), deadline); },
            3000);
        const Expected<QString> result = address.get();
        QVERIFY(!result);
        QCOMPARE(result.error().code, static_cast<int>(expected));
    }

    void browsingIsBounded_data() {
        using Attack = HostileDiscoveryDaemon::Attack;
        QTest::addColumn<Attack>("attack");
        QTest::addColumn<int>("found");
        QTest::addColumn<int>("lost");
        QTest::newRow("Avahi: search, no reply") << Attack::Silence << 0 << 0;
        QTest::newRow("Avahi: search, 5,000 services")
            << Attack::ManyServices << static_cast<int>(NetServiceBrowser::MostServices) << 1;
        QTest::newRow("Avahi: search, huge names") << Attack::GiantNames << 1 << 1;
        QTest::newRow("Avahi: search, leaves the bus") << Attack::Disappearance << 1 << 1;
        QTest::newRow("Avahi: search, other types") << Attack::Types << 1 << 1;
    }
    void browsingIsBounded() {
        QFETCH(const HostileDiscoveryDaemon::Attack, attack);
        QFETCH(const int, found);
        QFETCH(const int, lost);
        HostileDiscoveryDaemon daemon(m_bus->address(), attack);
        FoundServices services;
        std::unique_ptr<NetServiceBrowser> browser;
        const auto browse = [&]() -> std::function<bool()> {
            browser = std::make_unique<NetServiceBrowser>();
            browser->setDelegate(&services);
            browser->searchForServicesOfTypeInDomain(ServiceType, QString());
            return [&] {
                if (attack == HostileDiscoveryDaemon::Attack::Disappearance && services.found > 0) {
                    daemon.leaveBus();
                }
                const bool isDone = daemon.countOfMessages() > 0 && services.lost >= lost;
                if (isDone) {
                    browser.reset();
                }
                return isDone;
            };
        };
        measure(browse, 20000);
        QCOMPARE(services.found, found);
        QCOMPARE(services.lost, lost);
    }

    void resolvingIsBounded_data() {
        using Attack = HostileDiscoveryDaemon::Attack;
        QTest::addColumn<Attack>("attack");
        QTest::newRow("Avahi: service, no reply (deadline of 0.3 s)") << Attack::Silence;
        QTest::newRow("Avahi: service, huge names") << Attack::GiantReplies;
        QTest::newRow("Avahi: service, other types") << Attack::Types;
        QTest::newRow("Avahi: service, leaves the bus (deadline of 0.3 s)")
            << Attack::Disappearance;
    }
    void resolvingIsBounded() {
        QFETCH(const HostileDiscoveryDaemon::Attack, attack);
        const HostileDiscoveryDaemon daemon(m_bus->address(), attack);
        FailedResolutions failures;
        const auto service =
            std::make_shared<NetService>(QString(), ServiceType, QStringLiteral("A"));
        service->setDelegate(&failures);
        const auto resolve = [&]() -> std::function<bool()> {
            service->resolveWithTimeout(std::chrono::duration<double>(namedDeadline()).count());
            return [&] { return failures.count > 0; };
        };
        measure(resolve, 5000);
        QCOMPARE(service->hostName(), QString());
        service->setDelegate(nullptr);
    }

    void announcingIsBounded_data() {
        using Attack = HostileDiscoveryDaemon::Attack;
        QTest::addColumn<Attack>("attack");
        QTest::addColumn<int>("messages");
        QTest::newRow("Avahi: announcement, no reply") << Attack::Silence << 1;
        // Four questions, a new group, 101 attempts, 100 other names, and the end of the group.
        QTest::newRow("Avahi: announcement, every name is in use") << Attack::Collisions << 207;
        // Four questions, a new group, the service, the commitment, and the end of the group.
        QTest::newRow("Avahi: announcement, huge names") << Attack::GiantReplies << 8;
        QTest::newRow("Avahi: announcement, replies in another order") << Attack::OtherOrder << 8;
    }
    void announcingIsBounded() {
        using Attack = HostileDiscoveryDaemon::Attack;
        QFETCH(const HostileDiscoveryDaemon::Attack, attack);
        QFETCH(const int, messages);
        const HostileDiscoveryDaemon daemon(m_bus->address(), attack);
        auto service = std::make_shared<NetService>(QString(), ServiceType, QString(), 1);
        const MessageRecorder recorder("default");
        const auto isAttempted = [&] {
            const bool hasGroup = attack != Attack::Silence;
            return attack == Attack::Collisions
                       ? !recorder.messages().isEmpty()
                       : daemon.countOfMessages() >= messages - (hasGroup ? 1 : 0);
        };
        const auto announce = [&]() -> std::function<bool()> {
            service->publish();
            return [&] {
                if (isAttempted()) {
                    service.reset();
                }
                return daemon.countOfMessages() >= messages;
            };
        };
        measure(announce, 20000);
        QCOMPARE(daemon.countOfMessages(), messages);
        QCOMPARE(recorder.messages().filter(QStringLiteral("announced")).size(),
                 attack == Attack::Collisions ? 1 : 0);
    }

    void theTextOfAnErrorIsNoHostName() {
        const HostileDiscoveryDaemon daemon(m_bus->address(),
                                            HostileDiscoveryDaemon::Attack::NoHostName);
        const MessageRecorder recorder("default");
        NetService service(QString(), ServiceType, QString(), 1);
        service.publish();
        QTRY_VERIFY(!recorder.messages().filter(QStringLiteral("GetHostName")).isEmpty());
        // Four questions, and no new group.
        QCOMPARE(daemon.countOfMessages(), 4);
    }
};

VELMORA_TEST(HostileServersTest)
#include "HostileServersTest.moc"
