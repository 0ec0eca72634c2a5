#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Foundation/Turn.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxStore.h"
#include "Host/SyncStoreLayout.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/DropboxTestCase.h"
#include "Support/Failure.h"
#include "Support/FaultTestCase.h"
#include "Support/FaultyProxy.h"
#include "Support/SetDefault.h"
#include "Support/TestWebDAVStore.h"
#include "Support/WebDAVServer.h"

Q_DECLARE_METATYPE(FaultyProxy::Fault)
Q_DECLARE_METATYPE(FaultyProxy::Duration)

/// Any exchange with the server of a store fails, is cut short, happens twice or too late. What was
/// reported as synchronized is in the store, nothing was lost, nothing sound was set aside, and the
/// failure was reported.
class FailingServerTest : public FaultTestCase {
    Q_OBJECT
private:
    using Fault = FaultyProxy::Fault;
    using Duration = FaultyProxy::Duration;

    enum class Service { WebDAV, Dropbox };
    struct Outcome {
        Expected<void> result;
        QList<int> problems = {};
        Contents contents;
        QByteArrayList exchanges;
        bool hasFailed = false;
    };

    /// What is held back is late after this time.
    static constexpr HttpClient::Timeouts Impatient{.idle = std::chrono::milliseconds(150)};

    const QString m_package = QStringLiteral("Velmora.") + SyncStoreLayout::Extension;
    std::unique_ptr<SecretService> m_secrets;
    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<WebDAVServer> m_webDAV;
    std::unique_ptr<DropboxServer> m_dropbox;
    std::unique_ptr<FaultyProxy> m_webDAVProxy;
    std::unique_ptr<FaultyProxy> m_dropboxProxy;
    /// By name.
    QMap<QString, MemoryStore::Blobs> m_stores;
    QMap<std::pair<Service, QString>, Outcome> m_sound;

    /// Whether the same exchanges are part of another story as well.
    static bool isPartOfAnother(Service service, const QString &story) {
        const QStringList rewriting{QStringLiteral("clean up"), QStringLiteral("merge records")};
        return service == Service::Dropbox ? !rewriting.contains(story)
                                           : story == QStringLiteral("synchronize");
    }

    FaultyProxy &proxyOf(Service service) const {
        return service == Service::WebDAV ? *m_webDAVProxy : *m_dropboxProxy;
    }

    /// Returns the store at `port`, which is that of the server or of its proxy.
    std::shared_ptr<BlobStore> storeAt(Service service, quint16 port,
                                       HttpClient::Timeouts timeouts = {}) const {
        if (service == Service::WebDAV) {
            return webDAVStoreWithoutEngine(
                QStringLiteral("http://ida@localhost:%1/dav/%2").arg(port).arg(m_package),
                timeouts);
        }
        QUrl address = m_dropbox->address();
        address.setPort(port);
        const QString server = address.toString();
        using Configuration = DropboxConfiguration;
        setDefault(Configuration::TokenAddressDefault, server + DropboxServer::tokenPath());
        setDefault(Configuration::APIAddressDefault, server + QStringLiteral("/2"));
        setDefault(Configuration::ContentAddressDefault, server + QStringLiteral("/content/2"));
        return std::make_shared<DropboxStore>(
            locationWithoutEngine(
                Url::fromString(QStringLiteral("dropbox://") + m_dropbox->email())),
            std::make_shared<StoreOperations>(), std::make_shared<Turn>(), timeouts);
    }
    std::shared_ptr<BlobStore> storeAtServer(Service service) const {
        return storeAt(service, service == Service::WebDAV
                                    ? m_webDAV->port()
                                    : static_cast<quint16>(m_dropbox->address().port()));
    }

    /// Makes the server's store as it is before each story.
    void resetStore(Service service, const MemoryStore::Blobs &blobs) const {
        if (service == Service::WebDAV) {
            QDir(m_webDAV->folder() + u'/' + m_package).removeRecursively();
        } else {
            const QStringList paths = m_dropbox->files().keys();
            for (const QString &path : paths) {
                m_dropbox->removeFile(path);
            }
        }
        for (const auto &[name, contents] : blobs) {
            if (service == Service::WebDAV) {
                m_webDAV->putFile(m_package + u'/' + name, contents);
            } else {
                m_dropbox->putFile(u'/' + m_package + u'/' + name, contents);
            }
        }
    }

    qsizetype countSetAside(BlobStore &store) const {
        const QStringList names =
            store.list(SyncStoreLayout::TransactionsFolder + u'/' + UUID(), EngineFuture()).value();
        return std::count_if(names.begin(), names.end(), TransactionName::isOfDamaged);
    }

    /// Tells the story with a copy of its profile at `profile`. The first login of the story has
    /// expired.
    Outcome tell(Service service, const StoreStory &story, const QString &profile, Fault fault,
                 qint64 exchange, Duration duration) {
        copyProfile(folder(story.profile), profile);
        resetStore(service, m_stores.value(story.store));
        m_dropbox->expireAccessTokens();
        FaultyProxy &proxy = proxyOf(service);
        proxy.setFault(fault, exchange, duration);
        Computer computer(profile);
        orThrow(computer.open());
        const auto store = storeAt(service, proxy.port(),
                                   fault == Fault::Late ? Impatient : HttpClient::Timeouts());
        const Expected<QList<Error>> problems = perform(story.job, computer, *store);
        return {.result = problems.map([](const QList<Error> & /*all*/) {}),
                .problems = codes(problems),
                .contents = computer.contents(),
                .exchanges = proxy.exchanges(),
                .hasFailed = proxy.hasFailed()};
    }

    /// Tells the story without a fault, once for all.
    Outcome tellSoundly(Service service, const QString &story) {
        Outcome &outcome = m_sound[{service, story}];
        if (outcome.exchanges.isEmpty()) {
            outcome = tell(service, storeStories().value(story), newFolder(), Fault::None,
                           std::numeric_limits<qint64>::max(), Duration::Once);
        }
        return outcome;
    }

    /// Whether the client may send the request again by itself. Servers also report an internal
    /// error if the folder for what is put does not exist.
    static bool mayHeal(Fault fault, const QByteArray &exchange) {
        return fault == Fault::Reset || fault == Fault::LostAnswer || fault == Fault::CutRequest ||
               (fault == Fault::InternalError && exchange.startsWith("PUT "));
    }

    void verifyFailure(Service service, const StoreStory &story, Fault fault, qint64 exchange,
                       Duration duration, const Contents &before, const Outcome &sound) {
        const QString profile = newFolder();
        const Outcome outcome = tell(service, story, profile, fault, exchange, duration);
        QVERIFY(outcome.hasFailed);
        const QByteArray name = outcome.exchanges.value(exchange - 1);
        const bool isReported = !outcome.result || outcome.problems != sound.problems;
        if (fault == Fault::Duplicate) {
            QVERIFY2(!isReported, name);
        } else {
            QVERIFY2(isReported || (mayHeal(fault, name) && duration == Duration::Once), name);
        }
        QVERIFY(outcome.result || !description(outcome.result).isEmpty());
        verifyBetween(outcome.contents, before, sound.contents);
        const auto store = storeAtServer(service);
        if (!isReported) {
            QCOMPARE(outcome.contents, sound.contents);
            verifySound(profile, *store);
        }
        FaultyProxy &proxy = proxyOf(service);
        orThrow(store->open(EngineFuture()));
        if (fault == Fault::Late && exchange % 2 == 0) {
            verifyNothingIsLost(profile, *store);
        }
        proxy.deliverHeld();
        verifyNothingIsLost(profile, *store);
        const qsizetype setAside = countSetAside(*store);
        QVERIFY(story.store == QStringLiteral("Damaged") ? setAside >= 1 : setAside == 0);
        QDir(profile).removeRecursively();
    }

private Q_SLOTS:
    void initTestCase() {
        m_secrets = std::make_unique<SecretService>();
        m_host = std::make_unique<TestHost>();
        m_dropbox = std::make_unique<DropboxServer>();
        m_dropbox->configure();
        DropboxTestCase::signIn(m_dropbox->email());
        m_dropboxProxy =
            std::make_unique<FaultyProxy>(static_cast<quint16>(m_dropbox->address().port()));
        m_webDAV = std::make_unique<WebDAVServer>(WebDAVServer::Options());
        m_webDAVProxy = std::make_unique<FaultyProxy>(m_webDAV->port());
        for (const quint16 port : {m_webDAV->port(), m_webDAVProxy->port()}) {
            QVERIFY(UnencryptedPasswords::accept(
                Url::fromString(QStringLiteral("http://localhost:%1/").arg(port))));
            UrlCredentialStorage::shared().setCredentialForProtectionSpace(
                {WebDAVServer::User, WebDAVServer::Password,
                 UrlCredential::Persistence::ForSession},
                UrlProtectionSpace{QStringLiteral("localhost"),
                                   port,
                                   QStringLiteral("http"),
                                   {},
                                   UrlAuthenticationMethodHttpBasic});
        }
        MemoryStore::Blobs blobs;
        MemoryStore store(blobs);
        writeProfiles(store);
        m_stores.insert(QStringLiteral("Sound"), blobs);
        m_stores.insert(QStringLiteral("Damaged"), damage(blobs));
        fillTier(blobs);
        m_stores.insert(QStringLiteral("Full"), blobs);
        mergeWithoutRemoval(blobs);
        m_stores.insert(QStringLiteral("Merged"), blobs);
    }

    void cleanupTestCase() {
        m_webDAVProxy.reset();
        m_webDAV.reset();
        m_dropboxProxy.reset();
        m_dropbox.reset();
        DropboxServer::forget();
        m_host.reset();
        m_secrets.reset();
    }

    void losesNothing_data() {
        QTest::addColumn<int>("service");
        QTest::addColumn<QString>("story");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<Duration>("duration");
        QTest::addColumn<int>("row");
        int row = 0;
        const QStringList names = storeStories().keys();
        for (const Service service : {Service::WebDAV, Service::Dropbox}) {
            for (const QString &name : names) {
                if (!isThorough() && isPartOfAnother(service, name)) {
                    continue;
                }
                const QByteArray text =
                    (service == Service::WebDAV ? "WebDAV, " : "Dropbox, ") + name.toUtf8();
                int number = static_cast<int>(names.indexOf(name));
                const auto add = [&](const char *failure, Fault fault,
                                     Duration duration = Duration::Once) {
                    // Every other failure, others for the next story.
                    if (++number % 2 == 0 && !isThorough()) {
                        return;
                    }
                    QTest::addRow("%s, %s", text.constData(), failure)
                        << static_cast<int>(service) << name << fault << duration << row++;
                };
                add("one error", Fault::InternalError);
                add("busy for a moment", Fault::Unavailable);
                add("busy", Fault::Unavailable, Duration::FromThenOn);
                add("one reset", Fault::Reset);
                add("resets", Fault::Reset, Duration::FromThenOn);
                add("one lost response", Fault::LostAnswer);
                add("lost responses", Fault::LostAnswer, Duration::FromThenOn);
                add("half of a request", Fault::CutRequest);
                add("only header fields", Fault::CutHeaders);
                add("half of a response", Fault::CutBody);
                add("twice", Fault::Duplicate);
                add("always twice", Fault::Duplicate, Duration::FromThenOn);
                add("too late", Fault::Late);
            }
        }
    }
    void losesNothing() {
        QFETCH(const int, service);
        QFETCH(QString, story);
        QFETCH(Fault, fault);
        QFETCH(Duration, duration);
        QFETCH(const int, row);
        const auto used = static_cast<Service>(service);
        const StoreStory told = storeStories().value(story);
        const Contents before = contentsAt(folder(told.profile));
        const Outcome sound = tellSoundly(used, story);
        QCOMPARE(description(sound.result), QString());
        forCalls(
            sound.exchanges.size(), 1,
            [&](qint64 exchange) {
                verifyFailure(used, told, fault, exchange, duration, before, sound);
            },
            row);
    }
};

VELMORA_TEST(FailingServerTest)
#include "FailingServerTest.moc"
