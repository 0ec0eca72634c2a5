#include "Engine/Stores/Dropbox/DropboxStore.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <future>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Host/QVSyncStoreCheck.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Support/DropboxTestCase.h"
#include "Support/Failure.h"
#include "Support/SetDefault.h"
#include "Support/TestMain.h"

namespace {

using Written = BlobStore::Written;

const QString Package = QStringLiteral("/Velmora.qvSyncStore/");
const QString DropboxBlob = QStringLiteral("transactions/11111111-1111-4111-8111-111111111111/1-a");
constexpr qint64 DropboxLimit = 1000;

const QString ListPath = QStringLiteral("/2/files/list_folder");
const QString ContinuePath = QStringLiteral("/2/files/list_folder/continue");
const QString DeletePath = QStringLiteral("/2/files/delete_v2");
const QString DownloadPath = QStringLiteral("/content/2/files/download");
const QString UploadPath = QStringLiteral("/content/2/files/upload");

QByteArray pathFailure(const char *tag) {
    return QByteArray(R"({"error":{".tag":"path","path":{".tag":")") + tag + "\"}}}";
}

/// A page of 10,000 long names, which is not the last one.
QByteArray fullPage() {
    const QByteArray name(200, 'x');
    const QJsonArray entries = QJsonArray::fromVariantList(
        QVariantList(10'000, QVariantMap{{QStringLiteral(".tag"), QStringLiteral("file")},
                                         {QStringLiteral("name"), QString::fromLatin1(name)}}));
    return QJsonDocument(QJsonObject{{QStringLiteral("cursor"), QStringLiteral("c")},
                                     {QStringLiteral("has_more"), true},
                                     {QStringLiteral("entries"), entries}})
        .toJson(QJsonDocument::Compact);
}

}  // namespace

/// A store in an account that was signed in to, over a real HTTP server and with a real keyring.
class DropboxStoreTest : public DropboxTestCase {
    Q_OBJECT

    std::shared_ptr<BlobStore> m_store;
    EngineFuture m_future;

    void signInAgain() { signIn(m_server->email()); }
    std::shared_ptr<BlobStore> newStore() {
        const Url URL = Url::fromString(QStringLiteral("dropbox://") + m_server->email());
        return m_host->newLocation(URL)->createBlobStore();
    }
    std::shared_ptr<BlobStore> impatientStore(HttpClient::Timeouts timeouts = {
                                                  .idle = std::chrono::milliseconds(100)}) {
        const Url URL = Url::fromString(QStringLiteral("dropbox://") + m_server->email());
        return std::make_shared<DropboxStore>(m_host->newLocation(URL),
                                              std::make_shared<StoreOperations>(),
                                              std::make_shared<Turn>(), timeouts);
    }
    Expected<QByteArray> read(const QString &name = DropboxBlob) {
        return m_store->read(name, DropboxLimit, m_future);
    }
    Expected<Written> write(const QString &name, const QByteArray &contents) {
        return m_store->writeIfAbsent(name, contents, m_future);
    }
    Expected<QStringList> list(const QString &folder) { return m_store->list(folder, m_future); }
    /// What an operation that needs the route at `path` ends with.
    Expected<void> outcomeAt(BlobStore &store, const QString &path) {
        if (path == UploadPath) {
            return store.writeIfAbsent(DropboxBlob, "x", m_future).map([](auto) {});
        }
        if (path == DownloadPath) {
            return store.read(DropboxBlob, DropboxLimit, m_future).map([](const auto &) {});
        }
        if (path == DeletePath) {
            return store.remove(DropboxBlob, m_future);
        }
        return store.list(QStringLiteral("databases"), m_future).map([](const auto &) {});
    }

private Q_SLOTS:
    void init() {
        DropboxTestCase::init();
        signIn(m_server->email());
        m_store = newStore();
    }

    void cleanup() {
        m_store.reset();
        DropboxTestCase::cleanup();
    }

    void openingMakesNothing() {
        QCOMPARE(description(m_store->open(m_future)), QString());
        QVERIFY(m_server->files().isEmpty());
    }

    void anAccountIsCheckedLikeAnyOtherLocation() {
        QCOMPARE(write(QStringLiteral("transactions/a"), "x"), Expected<Written>(Written::New));
        std::optional<QVSyncStoreCheck> found;
        newStore()->checkWithCompletionHandler([&](const QVSyncStoreCheck &check) {
            MainQueue::dispatchAsync([&found, check] { found = check; });
        });
        QTRY_VERIFY(found);
        QVERIFY2(!found->error, qPrintable(found->error.value_or(Error()).localizedDescription));
        QVERIFY(found->isReadable && found->isWritable);
        QCOMPARE(m_server->files().keys(), QStringList(Package + QStringLiteral("transactions/a")));
    }

    void aBlobIsReadAsItWasWritten() {
        QByteArray contents(
            "\0\xff"
            "bytes",
            7);
        QCOMPARE(write(DropboxBlob, contents), Expected<Written>(Written::New));
        QCOMPARE(m_server->files().value(Package + DropboxBlob), contents);
        QCOMPARE(read(), Expected<QByteArray>(contents));
        QCOMPARE(write(QStringLiteral("transactions/empty"), {}), Expected<Written>(Written::New));
        QCOMPARE(read(QStringLiteral("transactions/empty")), Expected<QByteArray>(QByteArray()));
    }

    void namesOfAllKindsArrive() {
        const QString name = QStringLiteral("transactions/Ä \"quoted\" \\ 😀 \x7f").chopped(2) +
                             QStringLiteral("%41+&");
        QCOMPARE(write(name, "x"), Expected<Written>(Written::New));
        QCOMPARE(m_server->files().keys(), QStringList(Package + name));
        QCOMPARE(read(name), Expected<QByteArray>(QByteArray("x")));
        QCOMPARE(list(QStringLiteral("transactions")),
                 Expected<QStringList>(QStringList(name.section(u'/', 1))));
    }

    void aBlobIsNeverWrittenOver() {
        QCOMPARE(write(DropboxBlob, "first"), Expected<Written>(Written::New));
        QCOMPARE(write(DropboxBlob, "second"), Expected<Written>(Written::AlreadyThere));
        QCOMPARE(write(DropboxBlob, "first"), Expected<Written>(Written::AlreadyThere));
        QCOMPARE(write(DropboxBlob.section(u'/', 0, 1), "x"),
                 Expected<Written>(Written::AlreadyThere));
        QCOMPARE(read(), Expected<QByteArray>(QByteArray("first")));
    }

    void onlyOneOfManyConcurrentWritersWritesABlob() {
        std::vector<std::future<Expected<Written>>> writers;
        for (int i = 0; i < 8; ++i) {
            writers.push_back(std::async(std::launch::async, [this, i] {
                return write(DropboxBlob, QByteArray(900, static_cast<char>('a' + i)));
            }));
        }
        int news = 0;
        for (std::future<Expected<Written>> &writer : writers) {
            const Expected<Written> result = writer.get();
            QCOMPARE(description(result), QString());
            news += *result == Written::New ? 1 : 0;
        }
        QCOMPARE(news, 1);
    }

    void aFolderIsListedInOrderWithItsFolders() {
        m_server->putFile(Package + QStringLiteral("transactions/b/1"), "x");
        m_server->putFile(Package + QStringLiteral("transactions/b/2"), "x");
        m_server->putFile(Package + QStringLiteral("transactions/a"), "x");
        m_server->putFile(Package + QStringLiteral("transactions/.hidden"), "x");
        const QStringList names = {QStringLiteral("a"), QStringLiteral("b")};
        QCOMPARE(list(QStringLiteral("transactions")), Expected<QStringList>(names));
    }

    void aMissingFolderIsEmpty() {
        QCOMPARE(list(QStringLiteral("transactions/none")), Expected<QStringList>(QStringList()));
    }

    void aLongFolderIsListedPageByPage() {
        QStringList names;
        for (int i = 0; i < 25; ++i) {
            names.append(QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')));
            m_server->putFile(Package + QStringLiteral("transactions/") + names.last(), "x");
        }
        m_server->setPageSize(4);
        QCOMPARE(list(QStringLiteral("transactions")), Expected<QStringList>(names));
        QCOMPARE(m_server->count(ListPath), 1);
        QCOMPARE(m_server->count(ContinuePath), 6);
    }

    void aListingThatStartsAgainForgetsEarlierPages() {
        for (const char *name : {"a", "b", "c"}) {
            m_server->putFile(Package + QStringLiteral("transactions/") + QLatin1StringView(name),
                              "x");
        }
        m_server->setPageSize(2);
        m_server->resetNextCursor(Package + QStringLiteral("transactions/a"));
        QCOMPARE(list(QStringLiteral("transactions")),
                 Expected<QStringList>(QStringList{QStringLiteral("b"), QStringLiteral("c")}));
        QCOMPARE(m_server->count(ListPath), 2);
    }

    void anEndlessListIsRefused() {
        const QByteArray page = fullPage();
        m_server->setAnswer(ListPath, 200, page);
        m_server->setAnswer(ContinuePath, 200, page);
        const Expected<QStringList> result = list(QStringLiteral("databases"));
        QCOMPARE(code(result), EngineErrorCode::BlobRefused);
        QVERIFY2(m_server->count(ContinuePath) < 20,
                 qPrintable(QString::number(m_server->count(ContinuePath))));
    }

    void aListOfPagesWithoutNamesEndsInTime() {
        const QByteArray page = R"({"entries":[],"cursor":"c","has_more":true})";
        m_server->setAnswer(ListPath, 200, page);
        m_server->setAnswer(ContinuePath, 200, page);
        const auto store = impatientStore({.total = std::chrono::milliseconds(500)});
        const Expected<QStringList> result = store->list(QStringLiteral("databases"), m_future);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(m_server->count(ContinuePath) < DropboxStore::MostPages / 2,
                 qPrintable(QString::number(m_server->count(ContinuePath))));
    }

    void anInvalidPageIsReportedWithWhatIsWrong_data() {
        QTest::addColumn<QByteArray>("page");
        QTest::addColumn<QString>("key");
        const QString entries = QStringLiteral("entries");
        QTest::newRow("not JSON") << QByteArray("[") << entries;
        QTest::newRow("no entries") << QByteArray(R"({"has_more":false})") << entries;
        QTest::newRow("entries that are none")
            << QByteArray(R"({"entries":{},"has_more":false})") << entries;
        QTest::newRow("no end") << QByteArray(R"({"entries":[]})") << QStringLiteral("has_more");
        QTest::newRow("incomplete without cursor")
            << QByteArray(R"({"entries":[],"cursor":"","has_more":true})")
            << QStringLiteral("cursor");
    }
    void anInvalidPageIsReportedWithWhatIsWrong() {
        QFETCH(const QByteArray, page);
        QFETCH(const QString, key);
        m_server->setAnswer(ListPath, 200, page);
        const Expected<QStringList> result = list(QStringLiteral("databases"));
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(result).contains(QStringLiteral("sent an invalid response")));
        QCOMPARE(result.error().details,
                 QStringLiteral("“%1” is missing from the response or is not valid.").arg(key));
    }

    void aMissingBlobHasItsOwnError() {
        const auto result = read();
        QCOMPARE(code(result), EngineErrorCode::BlobMissing);
        QVERIFY(description(result).contains(m_server->email()));
        QVERIFY(description(result).contains(Package + DropboxBlob));
    }

    void aBlobLongerThanTheLimitIsRefused() {
        m_server->putFile(Package + DropboxBlob, QByteArray(DropboxLimit, 'x'));
        QVERIFY(read());
        m_server->putFile(Package + DropboxBlob, QByteArray(DropboxLimit + 1, 'x'));
        QCOMPARE(code(read()), EngineErrorCode::BlobRefused);
        m_server->putFile(Package + DropboxBlob, QByteArray(3 << 20, 'x'));
        QCOMPARE(code(read()), EngineErrorCode::BlobRefused);
        QVERIFY(description(read()).contains(QStringLiteral("too large")));
    }

    void aFolderInPlaceOfARecordIsRefused() {
        m_server->putFile(Package + QStringLiteral("databases/folder/x"), "x");
        QCOMPARE(code(read(QStringLiteral("databases/folder"))), EngineErrorCode::BlobRefused);
        m_server->putFile(Package + QStringLiteral("transactions"), "x");
        QCOMPARE(code(list(QStringLiteral("transactions"))), EngineErrorCode::BlobRefused);
    }

    void aFileInPlaceOfThePackageIsRefused() {
        m_server->putFile(Package.chopped(1), "x");
        QCOMPARE(code(m_store->open(m_future)), EngineErrorCode::BlobRefused);
    }

    void invalidNamesAreRefused() {
        for (const char *name : {"", "/etc/passwd", "databases/../x", "databases/x\ny"}) {
            QCOMPARE(code(read(QString::fromLatin1(name))), EngineErrorCode::BlobRefused);
        }
        QCOMPARE(m_server->count(DownloadPath), 0);
    }

    void aBlobCanBeRemoved() {
        QVERIFY(write(DropboxBlob, "x"));
        QCOMPARE(description(m_store->remove(DropboxBlob, m_future)), QString());
        QVERIFY(m_server->files().isEmpty());
        QCOMPARE(description(m_store->remove(DropboxBlob, m_future)), QString());
    }

    void recordsOfDatabasesAreFetched() {
        const QString UUID = QStringLiteral("11111111-1111-4111-8111-111111111111");
        m_server->putFile(Package + QStringLiteral("databases/") + UUID + QStringLiteral(".json"),
                          R"({"uuid":"11111111-1111-4111-8111-111111111111","name":"Trip",)"
                          R"("version":1})");
        const auto location = m_host->addLocation(QStringLiteral("dropbox://") + m_server->email());
        const std::shared_ptr<QVSyncStore> store = location->createStore();
        std::promise<std::optional<Error>> opened;
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &error) { opened.set_value(error); });
        QCOMPARE(opened.get_future().get(), std::nullopt);
        std::promise<QVRemoteDatabases> fetched;
        store->fetchDatabasesWithCompletionHandler(
            [&](const std::optional<QVRemoteDatabases> &databases, const std::optional<Error> &) {
                fetched.set_value(databases.value_or(QVRemoteDatabases()));
            });
        const QVRemoteDatabases databases = fetched.get_future().get();
        QCOMPARE(databases.size(), 1);
        QCOMPARE(databases.first()->UUID(), UUID);
        QCOMPARE(databases.first()->metadata()->name(), QStringLiteral("Trip"));
    }

    void anExpiredTokenIsRefreshed() {
        QVERIFY(write(DropboxBlob, "x"));
        m_server->expireAccessTokens();
        QCOMPARE(description(read()), QString());
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 2);
        QCOMPARE(description(read()), QString());
        // And kept.
        QCOMPARE(description(newStore()->open(m_future)), QString());
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 2);
        // More than once, since the refresh token stays.
        m_server->expireAccessTokens();
        QCOMPARE(description(read()), QString());
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 3);
    }

    void aTokenThatIsAboutToExpireIsRefreshedBefore() {
        m_server->setSecondsToLive(30);
        signInAgain();
        const int tokens = m_server->count(DropboxServer::tokenPath());
        m_server->setSecondsToLive(14400);
        m_store = newStore();
        QCOMPARE(description(m_store->open(m_future)), QString());
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), tokens + 1);
        QCOMPARE(m_server->count(ListPath), 1);
    }

    void concurrentRequestsRefreshAnExpiredTokenOnce() {
        QVERIFY(write(DropboxBlob, "x"));
        m_server->expireAccessTokens();
        std::vector<std::shared_ptr<BlobStore>> stores;
        std::vector<std::future<Expected<QByteArray>>> readers;
        for (int i = 0; i < 8; ++i) {
            stores.push_back(newStore());
            readers.push_back(std::async(std::launch::async, [this, store = stores.back()] {
                return store->read(DropboxBlob, DropboxLimit, m_future);
            }));
        }
        for (std::future<Expected<QByteArray>> &reader : readers) {
            QCOMPARE(description(reader.get()), QString());
        }
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 2);
    }

    void waitingForATokenThatAnotherRefreshesCanBeCancelled() {
        m_server->expireAccessTokens();
        m_server->setTrouble(DropboxServer::tokenPath(), DropboxServer::Trouble::Stalls);
        const int tokens = m_server->count(DropboxServer::tokenPath());
        const auto read = [](const std::shared_ptr<BlobStore> &store, const EngineFuture &future) {
            return std::async(std::launch::async, [store, &future] {
                return store->read(DropboxBlob, DropboxLimit, future);
            });
        };
        EngineFuture refreshing;
        auto first = read(newStore(), refreshing);
        QTRY_COMPARE(m_server->count(DropboxServer::tokenPath()), tokens + 1);
        EngineFuture waiting;
        auto second = read(newStore(), waiting);
        QTRY_COMPARE(m_server->count(DownloadPath), 2);
        waiting.cancel();
        QCOMPARE(code(second.get()), EngineErrorCode::Cancelled);
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), tokens + 1);
        refreshing.cancel();
        QCOMPARE(code(first.get()), EngineErrorCode::Cancelled);
    }

    void anInvalidatedSignInAsksTheUserToSignInAgain() {
        m_server->revokeEverything();
        const Expected<void> result = m_store->open(m_future);
        QCOMPARE(code(result), EngineErrorCode::AccessDenied);
        QCOMPARE(description(result), QStringLiteral("The sign-in to Dropbox as “%1” is no longer "
                                                     "valid. Edit the location to sign in again.")
                                          .arg(m_server->email()));
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 2);
        signInAgain();
        QCOMPARE(description(m_store->open(m_future)), QString());
    }

    void aRefreshedTokenThatIsRefusedIsNotRefreshedAgain() {
        m_server->setAnswer(ListPath, 401, R"({"error":{".tag":"missing_scope"}})");
        QVERIFY(
            description(m_store->open(m_future)).contains(QStringLiteral("is no longer valid")));
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 2);
        QCOMPARE(m_server->count(ListPath), 2);
    }

    void withoutARefreshTokenTheUserIsAskedToSignInAgain() {
        m_server->giveNoRefreshTokens();
        signInAgain();
        m_server->expireAccessTokens();
        QVERIFY(
            description(m_store->open(m_future)).contains(QStringLiteral("is no longer valid")));
    }

    void anAccountThatIsNotSignedInSaysSo() {
        m_server->setEmail(QStringLiteral("somebody.else@example.com"));
        const Expected<void> result = newStore()->open(m_future);
        QCOMPARE(code(result), EngineErrorCode::AccessDenied);
        QCOMPARE(
            description(result),
            QStringLiteral("Velmora is not signed in to Dropbox as “somebody.else@example.com”. "
                           "Edit the location to sign in."));
        QCOMPARE(m_server->count(ListPath), 0);
    }

    void anAddressIsTakenAsItIsWritten() {
        m_server->setEmail(QStringLiteral("Ada%2B%40l+x@Example.COM"));
        signInAgain();
        QCOMPARE(description(newStore()->open(m_future)), QString());
    }

    void withoutAnApplicationKeyItSaysSo() {
        DropboxServer::forget();
        const std::shared_ptr<BlobStore> store = newStore();
        const QString expected = QStringLiteral(
            "Dropbox cannot be used because no application key is configured. Velmora’s "
            "documentation describes how to set one.");
        QCOMPARE(description(store->open(m_future)), expected);
        for (const QString &path : {ListPath, UploadPath, DownloadPath, DeletePath}) {
            QCOMPARE(description(outcomeAt(*store, path)), expected);
        }
    }

    void retryAfterIsObeyed_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("status");
        QTest::newRow("upload") << UploadPath << 429;
        QTest::newRow("list") << ListPath << 429;
        QTest::newRow("unavailable") << UploadPath << 503;
    }

    void retryAfterIsObeyed() {
        QFETCH(QString, path);
        QFETCH(int, status);
        m_server->limitRate(path, 2, "1", status);
        QCOMPARE(description(outcomeAt(*m_store, path)), QString());
        QCOMPARE(m_server->count(path), 3);
    }

    void aLongDelayDemandedByTheServerIsReportedAtOnce() {
        m_server->limitRate(UploadPath, 1, "3600");
        const auto result = write(DropboxBlob, "x");
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(result).contains(QStringLiteral("is busy. Try again later.")));
        QCOMPARE(m_server->count(UploadPath), 1);
    }

    void waitingForTheServerCanBeCancelled() {
        m_server->limitRate(UploadPath, 1, "100");
        auto writer = std::async(std::launch::async, [this] { return write(DropboxBlob, "x"); });
        QTRY_COMPARE(m_server->count(UploadPath), 1);
        m_future.cancel();
        QCOMPARE(code(writer.get()), EngineErrorCode::Cancelled);
        QCOMPARE(m_server->count(UploadPath), 1);
        std::destroy_at(&m_future);
        std::construct_at(&m_future);
    }

    void aCancelledOperationReportsItsCancellation() {
        EngineFuture cancelled;
        cancelled.cancel();
        QCOMPARE(code(m_store->read(DropboxBlob, DropboxLimit, cancelled)),
                 EngineErrorCode::Cancelled);
        QCOMPARE(code(m_store->writeIfAbsent(DropboxBlob, "x", cancelled)),
                 EngineErrorCode::Cancelled);
        QCOMPARE(code(m_store->remove(DropboxBlob, cancelled)), EngineErrorCode::Cancelled);
        QVERIFY(m_server->files().isEmpty());
    }

    void aStalledOperationCanBeCancelled() {
        for (const QString &path : {DropboxServer::tokenPath(), DownloadPath}) {
            EngineFuture future;
            m_server->expireAccessTokens();
            m_server->setTrouble(path, DropboxServer::Trouble::Stalls);
            const int before = m_server->count(path);
            auto reader = std::async(std::launch::async, [&] {
                return m_store->read(DropboxBlob, DropboxLimit, future);
            });
            QTRY_COMPARE(m_server->count(path), before + 1);
            future.cancel();
            QCOMPARE(code(reader.get()), EngineErrorCode::Cancelled);
            m_server->clearTroubles();
        }
    }

    void failuresOfTheServerAreReported_data() {
        using Trouble = DropboxServer::Trouble;
        QTest::addColumn<QString>("path");
        QTest::addColumn<Trouble>("trouble");
        QTest::addColumn<QString>("expected");
        const std::tuple<const char *, Trouble, const char *> troubles[] = {
            {"stalls", Trouble::Stalls, "does not respond"},
            {"garbage", Trouble::AnswersGarbage, "sent an invalid response"},
            {"breaks down", Trouble::BreaksDown, "reported an internal error (HTTP 500)"},
            {"hangs up", Trouble::HangsUp, "closed the connection"},
        };
        for (const QString &path : {ListPath, UploadPath, DownloadPath, DeletePath}) {
            for (const auto &[name, trouble, expected] : troubles) {
                QTest::addRow("%s %s", qPrintable(path.section(u'/', -1)), name)
                    << path << trouble << QString::fromLatin1(expected);
            }
        }
        QTest::newRow("list other JSON") << ListPath << Trouble::AnswersBesidesTheQuestion
                                         << QStringLiteral("sent an invalid response");
    }

    void failuresOfTheServerAreReported() {
        QFETCH(QString, path);
        QFETCH(DropboxServer::Trouble, trouble);
        QFETCH(QString, expected);
        // So that every route has something to say.
        m_server->putFile(
            Package + (path == UploadPath ? QStringLiteral("databases/x") : DropboxBlob),
            "contents");
        m_server->setTrouble(path, trouble);
        const auto store =
            trouble == DropboxServer::Trouble::Stalls ? impatientStore() : newStore();
        const Expected<void> result = outcomeAt(*store, path);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(expected), qPrintable(description(result)));
    }

    void refusalsOfDropboxAreReportedInWords_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<EngineErrorCode>("expectedCode");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, int status, const QByteArray &body,
                            EngineErrorCode expectedCode, const char *expected) {
            QTest::newRow(name) << status << body << expectedCode << QString::fromUtf8(expected);
        };
        row("full", 409, R"({"error":{".tag":"path","reason":{".tag":"insufficient_space"}}})",
            EngineErrorCode::StoreFull, "The Dropbox of “test");
        row("no permission", 409,
            R"({"error":{".tag":"path","reason":{".tag":"no_write_permission"}}})",
            EngineErrorCode::AccessDenied, "does not allow");
        row("restricted", 409, pathFailure("restricted_content"), EngineErrorCode::AccessDenied,
            "does not allow");
        row("too many writes", 409,
            R"({"error":{".tag":"path","reason":{".tag":"too_many_write_operations"}}})",
            EngineErrorCode::StoreUnreachable, "is busy");
        row("name", 409, pathFailure("disallowed_name"), EngineErrorCode::BlobRefused,
            "a valid item");
        row("unknown", 409, pathFailure("invented_yesterday"), EngineErrorCode::StoreUnreachable,
            "unexpected response (HTTP 409)");
        row("no JSON", 409, "<html>", EngineErrorCode::StoreUnreachable,
            "unexpected response (HTTP 409)");
        row("endless", 409, QByteArray(R"({"error":{".tag":"path","path":)").repeated(100),
            EngineErrorCode::StoreUnreachable, "unexpected response (HTTP 409)");
        row("wrong request", 400, "Error in call", EngineErrorCode::StoreUnreachable,
            "unexpected response (HTTP 400)");
        row("forbidden", 403, "{}", EngineErrorCode::AccessDenied, "does not allow");
        row("unavailable", 503, "", EngineErrorCode::StoreUnreachable, "is busy");
    }

    void refusalsOfDropboxAreReportedInWords() {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(EngineErrorCode, expectedCode);
        QFETCH(QString, expected);
        m_server->setAnswer(UploadPath, status, body);
        const auto result = write(DropboxBlob, "x");
        QCOMPARE(code(result), expectedCode);
        QVERIFY2(description(result).contains(expected), qPrintable(description(result)));
    }

    void aServerThatIsNotThereSaysSo() {
        QTcpServer free;
        QVERIFY(free.listen(QHostAddress::LocalHost));
        setDefault(DropboxConfiguration::APIAddressDefault,
                   QStringLiteral("http://127.0.0.1:%1/2").arg(free.serverPort()));
        free.close();
        QVERIFY(description(newStore()->open(m_future))
                    .contains(QStringLiteral("refused the connection")));
    }
};

VELMORA_TEST(DropboxStoreTest)
#include "DropboxStoreTest.moc"
