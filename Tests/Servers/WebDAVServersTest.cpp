#include "Engine/Foundation/EngineError.h"
#include "Engine/Locations/EngineSyncState.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Servers/ForeignServer.h"
#include "Support/Compaction.h"
#include "Support/EventTimeout.h"
#include "Support/Failure.h"
#include "Support/Replica.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/TestWebDAVStore.h"
#include "Support/Verification.h"
#include "Support/WebDAVServer.h"

using Written = BlobStore::Written;
/// Apache with an authentication, or another server.
using Server = std::variant<WebDAVServer::Authentication, ForeignServer::Kind>;
Q_DECLARE_METATYPE(Server)

/// Two computers over the servers that users have.
class WebDAVServersTest : public QObject {
    Q_OBJECT
private:
    static constexpr int Edits = 20;
    /// How often somebody sits down at one of the two computers.
    static constexpr int Visits = 4;

    std::unique_ptr<ForeignServer> m_server;
    /// Of Apache with TLS; trusted while the test runs.
    std::optional<TestAuthority> m_authority;
    std::optional<TrustedAuthority> m_trust;
    std::unique_ptr<WebDAVServer> m_apache;
    std::shared_ptr<WebDAVStore> m_store;
    EngineFuture m_future;

    static StoreSession::Subject subject() {
        return {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store"),
                QStringLiteral("the server")};
    }

    template <class Session>
    Expected<void> run(Replica &replica) {
        Session session(replica.profile(), replica.library(), subject());
        return runSession(session, *m_store);
    }

    static QList<Note> notes(Replica &replica) {
        QList<Note> notes = replica.library().synchronizedDatabase(InboxUUID)->notes().value();
        std::sort(notes.begin(), notes.end(),
                  [](const Note &one, const Note &other) { return one.UUID < other.UUID; });
        return notes;
    }

    static void addServers() {
        using Kind = ForeignServer::Kind;
        using Authentication = WebDAVServer::Authentication;
        QTest::addColumn<Server>("server");
        QTest::newRow("Apache") << Server(Authentication::Basic);
        QTest::newRow("Apache, Digest, TLS") << Server(Authentication::Digest);
        QTest::newRow("nginx with dav-ext") << Server(Kind::Nginx);
        QTest::newRow("nginx with dav-ext, TLS") << Server(Kind::NginxTLS);
        QTest::newRow("lighttpd") << Server(Kind::Lighttpd);
        QTest::newRow("lighttpd, Digest") << Server(Kind::LighttpdDigest);
        QTest::newRow("rclone") << Server(Kind::Rclone);
        QTest::newRow("rclone, TLS") << Server(Kind::RcloneTLS);
        QTest::newRow("rclone, memory") << Server(Kind::RcloneMemory);
        QTest::newRow("rclone, crypt") << Server(Kind::RcloneCrypt);
        QTest::newRow("SabreDAV, Digest") << Server(Kind::SabreDAV);
    }

    void startApache(WebDAVServer::Authentication authentication) {
        WebDAVServer::Options options{authentication};
        if (authentication == WebDAVServer::Authentication::Digest) {
            m_authority.emplace();
            m_trust.emplace(*m_authority);
            options.identity = m_authority->issue(QStringLiteral("DNS:localhost,IP:127.0.0.1"));
        }
        m_apache = std::make_unique<WebDAVServer>(options);
        m_apache->storePassword();
    }

    QString URLText(const QString &path) const {
        return m_apache ? m_apache->URLText(path) : m_server->URLText(path);
    }

    void start(const QString &path) {
        QFETCH(const Server, server);
        if (const auto *kind = std::get_if<ForeignServer::Kind>(&server)) {
            m_server = std::make_unique<ForeignServer>(*kind);
        } else {
            startApache(std::get<WebDAVServer::Authentication>(server));
        }
        m_store = webDAVStoreWithoutEngine(URLText(path));
        QCOMPARE(description(m_store->open(m_future)), QString());
    }

    std::shared_ptr<QVSyncState> stateOf(TestHost &host) const {
        const auto locations = host.locations().syncLocations();
        const auto location = locations.isEmpty()
                                  ? host.addLocation(URLText(QStringLiteral("Engines.qvSyncStore")))
                                  : locations.first();
        auto state = host.addState(location, host.inbox());
        state->setEnabled(true);
        host.save();
        return state;
    }

    /// Returns the error; empty if there is none.
    static QString synchronize(TestHost &host, const std::shared_ptr<QVSyncState> &state) {
        bool isDone = false;
        host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { isDone = true; });
        if (!QTest::qWaitFor([&] { return isDone; }, EventTimeout)) {
            return QStringLiteral("not ended");
        }
        const auto &result = std::dynamic_pointer_cast<EngineSyncState>(state)->lastResult();
        return result ? description(result->error) : QStringLiteral("no result");
    }

    static QStringList titles(TestHost &host) {
        QStringList titles;
        const QList<Note> notes = host.inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        titles.sort();
        return titles;
    }

private Q_SLOTS:
    void cleanup() {
        m_store.reset();
        m_apache.reset();
        m_server.reset();
        m_trust.reset();
        m_authority.reset();
    }

    void allOperationsWork_data() { addServers(); }
    void allOperationsWork() {
        start(QStringLiteral("Trip%20%26%20more.qvSyncStore"));
        const QString name =
            QStringLiteral("transactions/Gr\u00fc\u00dfe \u20ac/%1").arg(InboxUUID);
        const QByteArray contents("\0\xff and more", 11);
        QCOMPARE(m_store->writeIfAbsent(name, contents, m_future), Expected<Written>(Written::New));
        QCOMPARE(m_store->read(name, 1000, m_future), Expected<QByteArray>(contents));
        QCOMPARE(m_store->list(name.section(u'/', 0, 1), m_future),
                 Expected<QStringList>(QStringList{InboxUUID}));
        QCOMPARE(m_store->list(QStringLiteral("transactions/none"), m_future),
                 Expected<QStringList>(QStringList()));
        QCOMPARE(description(m_store->remove(name, m_future)), QString());
        QCOMPARE(description(m_store->remove(name, m_future)), QString());
        QCOMPARE(code(m_store->read(name, 1000, m_future)), EngineErrorCode::BlobMissing);
        // Opening again finds the package.
        QCOMPARE(description(m_store->open(m_future)), QString());
        const QByteArray large(3 << 20, 'x');
        QCOMPARE(m_store->writeIfAbsent(name, large, m_future), Expected<Written>(Written::New));
        QCOMPARE(m_store->read(name, large.size(), m_future), Expected<QByteArray>(large));
    }

    void twoEnginesHaveTheSameNotes_data() { addServers(); }
    void twoEnginesHaveTheSameNotes() {
        start(QStringLiteral("Engines.qvSyncStore"));
        TestHost host;
        QStringList expected;
        for (int i = 0; i < Visits; ++i) {
            host.goToComputer(QStringLiteral("Computer %1").arg(i % 2));
            const auto state = stateOf(host);
            QCOMPARE(synchronize(host, state), QString());
            QCOMPARE(titles(host), expected);
            for (int j = 0; j < 2; ++j) {
                // The later of them find connections of the earlier ones.
                Note note{{}, QStringLiteral("Note %1.%2").arg(i).arg(j), QStringLiteral("x"), {}};
                QVERIFY(host.inbox()->saveNote(note));
                expected.append(note.title);
                QCOMPARE(synchronize(host, state), QString());
            }
        }
    }

    void twoComputersHaveTheSameNotes_data() { addServers(); }
    void twoComputersHaveTheSameNotes() {
        start(QStringLiteral("Shared.qvSyncStore"));
        Replica one;
        Replica other;
        for (int i = 0; i < Edits; ++i) {
            Note note{{}, QStringLiteral("Note %1").arg(i), QStringLiteral("Text"), {}};
            Replica &author = i % 2 == 0 ? one : other;
            QVERIFY(author.library().inbox()->saveNote(note));
            for (Replica *replica : {&one, &other}) {
                QCOMPARE(description(run<SyncSession>(*replica)), QString());
                QCOMPARE(description(run<Compaction>(*replica)), QString());
            }
        }
        QCOMPARE(description(run<SyncSession>(one)), QString());
        QCOMPARE(notes(one).size(), Edits);
        QCOMPARE(notes(other), notes(one));
        QCOMPARE(description(run<CleanSession>(one)), QString());
        for (Replica *replica : {&one, &other}) {
            QCOMPARE(description(run<SyncSession>(*replica)), QString());
            QCOMPARE(
                Verification::problems(replica->profile(), replica->library(), subject(), *m_store),
                QStringList());
        }
    }
};

VELMORA_TEST(WebDAVServersTest)
#include "WebDAVServersTest.moc"
