#include <QtCore/QDirIterator>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Engine/Synchronization/VerificationSession.h"
#include "Host/InboxUUID.h"
#include "Platform/Security/Keychain.h"
#include "Support/AskedUser.h"
#include "Support/AwaitOnThread.h"
#include "Support/DropboxTestCase.h"
#include "Support/Failure.h"
#include "Support/FreePort.h"
#include "Support/KeychainRemoval.h"
#include "Support/Replica.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

namespace {

const QString DownloadRoute = QStringLiteral("/content/2/files/download");
const QString UploadRoute = QStringLiteral("/content/2/files/upload");
const QStringList ThreeNotes{QStringLiteral("First"), QStringLiteral("Second"),
                             QStringLiteral("Third")};

/// A real store, whose blobs can be changed behind the program's back.
class StoreFixture {
public:
    using Blobs = QMap<QString, QByteArray>;

    StoreFixture() = default;
    virtual ~StoreFixture() = default;
    StoreFixture(const StoreFixture &) = delete;
    StoreFixture &operator=(const StoreFixture &) = delete;

    /// Returns a store as another computer would open it.
    virtual std::shared_ptr<BlobStore> store() = 0;
    virtual Blobs blobs() const = 0;
    virtual void put(const QString &name, const QByteArray &contents) = 0;
    virtual void remove(const QString &name) = 0;
};

class FilesFixture : public StoreFixture {
public:
    Blobs blobs() const override {
        Blobs blobs;
        QDirIterator files(package(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly)) {
                blobs.insert(file.fileName().mid(package().size() + 1), file.readAll());
            }
        }
        return blobs;
    }
    void put(const QString &name, const QByteArray &contents) override {
        QFile file(package() + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(contents), contents.size());
    }
    void remove(const QString &name) override { QVERIFY(QFile::remove(package() + u'/' + name)); }

protected:
    virtual QString package() const = 0;
};

class FolderFixture : public FilesFixture {
public:
    std::shared_ptr<BlobStore> store() override {
        return m_host.newLocation(Url::fromString(m_URL))->createBlobStore();
    }

protected:
    QString package() const override { return Url::fromString(m_URL).path(); }

private:
    TestHost m_host;
    const QString m_URL = m_host.makeSyncStore(QStringLiteral("Shared"));
};

class WebDAVFixture : public FilesFixture {
public:
    WebDAVFixture() : m_server({}) { m_server.storePassword(); }
    std::shared_ptr<BlobStore> store() override {
        return m_host
            .newLocation(Url::fromString(m_server.URLText(QStringLiteral("Shared.qvSyncStore"))))
            ->createBlobStore();
    }

protected:
    QString package() const override {
        return m_server.folder() + QStringLiteral("/Shared.qvSyncStore");
    }

private:
    TestHost m_host;
    WebDAVServer m_server;
};

class DropboxFixture : public StoreFixture {
public:
    DropboxFixture() {
        m_server.setEmail(QStringLiteral("damage%1@example.com").arg(++s_accounts));
        m_server.configure();
        DropboxTestCase::signIn(m_server.email());
    }
    ~DropboxFixture() override { DropboxServer::forget(); }
    std::shared_ptr<BlobStore> store() override {
        return m_host.newLocation(Url::fromString(QStringLiteral("dropbox://") + m_server.email()))
            ->createBlobStore();
    }
    Blobs blobs() const override {
        Blobs blobs;
        const QMap<QString, QByteArray> files = m_server.files();
        for (auto file = files.begin(); file != files.end(); ++file) {
            blobs.insert(file.key().mid(Package.size()), file.value());
        }
        return blobs;
    }
    void put(const QString &name, const QByteArray &contents) override {
        m_server.putFile(Package + name, contents);
    }
    void remove(const QString &name) override { m_server.removeFile(Package + name); }
    DropboxServer &server() { return m_server; }

private:
    static inline const QString Package = QStringLiteral("/Velmora.qvSyncStore/");
    static inline int s_accounts = 0;
    TestHost m_host;
    DropboxServer m_server;
};

/// The store that the server of a third computer serves.
class DirectConnectionFixture : public FilesFixture {
public:
    DirectConnectionFixture() {
        m_user.answerAll([](const Question & /*question*/) { return true; });
        auto &server = dynamic_cast<DirectConnectionServer &>(*m_host.engine().plugin().server());
        server.setPort(m_port);
        server.startServing();
        m_location = m_host.newLocation(Url::fromString(
            QStringLiteral("%1://127.0.0.1:%2").arg(DirectConnection::URLScheme).arg(m_port)));
    }
    ~DirectConnectionFixture() override {
        Keychain &keychain = Keychain::shared();
        const QString service = DirectConnection::ClientAuthorizationServiceName;
        const QStringList accounts = keychain.accounts(service).value_or(QStringList());
        for (const QString &account : accounts) {
            KeychainRemoval::removeFirst(keychain, service.toUtf8(), account.toUtf8());
        }
    }
    std::shared_ptr<BlobStore> store() override { return m_location->createBlobStore(); }

protected:
    QString package() const override {
        return DirectConnectionPackage::pathInProfile(m_host.directory());
    }

private:
    TestHost m_host;
    AskedUser m_user;
    const quint16 m_port = freePort();
    std::shared_ptr<EngineSyncLocation> m_location;
};

enum class StoreKind { Folder, WebDAV, Dropbox, DirectConnection };

std::unique_ptr<StoreFixture> fixtureFor(StoreKind kind) {
    switch (kind) {
        case StoreKind::Folder:
            return std::make_unique<FolderFixture>();
        case StoreKind::WebDAV:
            return std::make_unique<WebDAVFixture>();
        case StoreKind::Dropbox:
            return std::make_unique<DropboxFixture>();
        case StoreKind::DirectConnection:
            return std::make_unique<DirectConnectionFixture>();
    }
    return nullptr;
}

QByteArray withFlippedBit(const QByteArray &record) {
    QByteArray flipped = record;
    flipped[record.indexOf("Second")] = 'R';
    return flipped;
}

QByteArray firstHalf(const QByteArray &record) {
    return record.first(record.size() / 2);
}

}  // namespace

/// What happens to a record that is damaged in a real store.
class DamagedStoreTest : public QObject {
    Q_OBJECT

    using Damage = QByteArray (*)(const QByteArray &record);

    std::unique_ptr<SecretService> m_secrets;
    std::unique_ptr<StoreFixture> m_fixture;
    std::unique_ptr<Replica> m_author;
    std::unique_ptr<Replica> m_reader;
    /// Of the last synchronization.
    QStringList m_problems;

    static inline const StoreSession::Subject Subject{InboxUUID, QStringLiteral("Inbox"),
                                                      QStringLiteral("store")};

    Expected<void> run(StoreSession &session) {
        const EngineFuture future;
        const std::shared_ptr<BlobStore> store = m_fixture->store();
        Expected<void> result = awaitOnThread([&] { return store->open(future); });
        while (result && !session.isDone()) {
            result = awaitOnThread([&] {
                         return session.accessStore(*store, future);
                     }).and_then([&] { return session.accessProfile(); });
        }
        return result;
    }

    Expected<void> synchronize(Replica &replica) {
        SyncSession session(replica.profile(), replica.library(), Subject);
        const Expected<void> result = run(session);
        m_problems.clear();
        for (const Error &problem : session.problems().kept()) {
            m_problems.append(problem.localizedDescription);
        }
        return result;
    }

    static QStringList titles(Replica &replica) {
        QStringList titles;
        const QList<Note> notes = replica.library().inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        titles.sort();
        return titles;
    }

    static void save(Replica &replica, const QString &title) {
        Note note{{}, title, title, {}};
        QVERIFY(replica.library().inbox()->saveNote(note));
    }

    /// The record that contains `title`.
    QString recordWith(const QByteArray &title) const {
        const StoreFixture::Blobs blobs = m_fixture->blobs();
        for (auto blob = blobs.begin(); blob != blobs.end(); ++blob) {
            if (blob.key().endsWith(QStringLiteral(".json")) && blob.value().contains(title)) {
                return blob.key();
            }
        }
        return {};
    }

    QStringList setAside() const {
        return m_fixture->blobs().keys().filter(QStringLiteral(".damaged-"));
    }

    void begin(StoreKind kind) {
        m_fixture = fixtureFor(kind);
        m_author = std::make_unique<Replica>();
        m_reader = std::make_unique<Replica>();
        for (const QString &title : ThreeNotes) {
            save(*m_author, title);
            QCOMPARE(description(synchronize(*m_author)), QString());
        }
        QCOMPARE(m_problems, QStringList());
    }

    /// Both computers and the store are sound and contain the same.
    void verifySound() {
        for (Replica *replica : {m_author.get(), m_reader.get(), m_author.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
        }
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            VerificationSession session(replica->profile(), replica->library(), Subject);
            QCOMPARE(description(run(session)), QString());
            QVERIFY(session.problems().kept().isEmpty());
        }
    }

    static void addStores() {
        QTest::addColumn<StoreKind>("kind");
        QTest::newRow("folder") << StoreKind::Folder;
        QTest::newRow("WebDAV") << StoreKind::WebDAV;
        QTest::newRow("Dropbox") << StoreKind::Dropbox;
        QTest::newRow("direct connection") << StoreKind::DirectConnection;
    }

    static void addDamages() {
        QTest::addColumn<StoreKind>("kind");
        QTest::addColumn<Damage>("damage");
        for (const auto &[store, kind] :
             {std::pair("folder", StoreKind::Folder), std::pair("WebDAV", StoreKind::WebDAV),
              std::pair("Dropbox", StoreKind::Dropbox)}) {
            QTest::addRow("flipped bit, %s", store) << kind << Damage(withFlippedBit);
            QTest::addRow("half, %s", store) << kind << Damage(firstHalf);
        }
    }

private Q_SLOTS:
    void initTestCase() { m_secrets = std::make_unique<SecretService>(); }
    void cleanupTestCase() { m_secrets.reset(); }
    void cleanup() {
        verifySound();
        m_reader.reset();
        m_author.reset();
        m_fixture.reset();
    }

    void theAuthorHealsWhatIsDamaged_data() { addDamages(); }
    void theAuthorHealsWhatIsDamaged() {
        QFETCH(StoreKind, kind);
        QFETCH(Damage, damage);
        begin(kind);
        const QString name = recordWith("Second");
        const QByteArray damaged = damage(m_fixture->blobs().value(name));
        m_fixture->put(name, damaged);
        QCOMPARE(description(synchronize(*m_author)), QString());
        QCOMPARE(m_problems.size(), 1);
        QVERIFY(m_problems.first().contains(QStringLiteral("writes its contents again")));
        QCOMPARE(setAside().size(), 1);
        QCOMPARE(m_fixture->blobs().value(setAside().first()), damaged);
        QVERIFY(!m_fixture->blobs().contains(name));
        for (Replica *replica : {m_reader.get(), m_author.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
            QCOMPARE(m_problems, QStringList());
            QCOMPARE(titles(*replica), ThreeNotes);
        }
    }

    void aReaderSetsAsideWhatTheAuthorThenWritesAgain_data() { addDamages(); }
    void aReaderSetsAsideWhatTheAuthorThenWritesAgain() {
        QFETCH(StoreKind, kind);
        QFETCH(Damage, damage);
        begin(kind);
        const QString name = recordWith("Second");
        const QByteArray damaged = damage(m_fixture->blobs().value(name));
        m_fixture->put(name, damaged);
        QCOMPARE(description(synchronize(*m_reader)), QString());
        QCOMPARE(m_problems.size(), 1);
        QVERIFY(m_problems.first().contains(QFileInfo(name).fileName()));
        QVERIFY(m_problems.first().contains(QStringLiteral("Synchronize on the computer that")));
        QCOMPARE(titles(*m_reader), QStringList({ThreeNotes.first(), ThreeNotes.last()}));
        QCOMPARE(setAside().size(), 1);
        QCOMPARE(m_fixture->blobs().value(setAside().first()), damaged);
        QCOMPARE(description(synchronize(*m_reader)), QString());
        QCOMPARE(m_problems, QStringList());
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
            QCOMPARE(m_problems, QStringList());
        }
        QCOMPARE(titles(*m_reader), ThreeNotes);
    }

    void theServingComputerSetsADamagedRecordAside() {
        begin(StoreKind::DirectConnection);
        QCOMPARE(description(synchronize(*m_author)), QString());
        const QString name = recordWith("Second");
        m_fixture->put(name, withFlippedBit(m_fixture->blobs().value(name)));
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
        }
        QCOMPARE(setAside().size(), 1);
        QCOMPARE(titles(*m_reader), ThreeNotes);
    }

    void aRecordThatWasDeletedFromOutsideIsWrittenAgain_data() { addStores(); }
    void aRecordThatWasDeletedFromOutsideIsWrittenAgain() {
        QFETCH(StoreKind, kind);
        begin(kind);
        m_fixture->remove(recordWith("Second"));
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
            QCOMPARE(m_problems, QStringList());
        }
        QCOMPARE(titles(*m_reader), ThreeNotes);
    }

    void anUploadOfWhichTheServerKeepsHalfIsReportedAndWrittenAgain() {
        begin(StoreKind::Dropbox);
        DropboxServer &server = dynamic_cast<DropboxFixture &>(*m_fixture).server();
        save(*m_author, QStringLiteral("Zeroth"));
        server.setTrouble(UploadRoute, DropboxServer::Trouble::KeepsHalf);
        const Expected<void> synchronized = synchronize(*m_author);
        QCOMPARE(code(synchronized), EngineErrorCode::DamagedRecord);
        QVERIFY(description(synchronized).contains(QStringLiteral("was not stored")));
        server.clearTroubles();
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
        }
        QCOMPARE(titles(*m_reader), ThreeNotes + QStringList{QStringLiteral("Zeroth")});
    }

    void aFailedReadChangesNothing_data() {
        QTest::addColumn<DropboxServer::Trouble>("trouble");
        QTest::newRow("error") << DropboxServer::Trouble::BreaksDown;
        QTest::newRow("garbage") << DropboxServer::Trouble::AnswersGarbage;
        QTest::newRow("cut") << DropboxServer::Trouble::HangsUp;
    }
    void aFailedReadChangesNothing() {
        QFETCH(DropboxServer::Trouble, trouble);
        begin(StoreKind::Dropbox);
        DropboxServer &server = dynamic_cast<DropboxFixture &>(*m_fixture).server();
        QCOMPARE(description(synchronize(*m_reader)), QString());
        const StoreFixture::Blobs before = m_fixture->blobs();
        server.setTrouble(DownloadRoute, trouble);
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            QVERIFY(!synchronize(*replica));
            QCOMPARE(m_fixture->blobs(), before);
        }
        server.clearTroubles();
        for (Replica *replica : {m_author.get(), m_reader.get()}) {
            QCOMPARE(description(synchronize(*replica)), QString());
            QCOMPARE(m_problems, QStringList());
        }
        QCOMPARE(m_fixture->blobs(), before);
    }
};

VELMORA_TEST(DamagedStoreTest)
#include "DamagedStoreTest.moc"
