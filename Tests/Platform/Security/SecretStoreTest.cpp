#include "Platform/Security/SecretStore.h"

#include <QtCore/QThread>
#include <atomic>
#include <future>
#include <stop_token>

#include "Platform/Foundation/NotificationCenter.h"
#include "Support/KeychainRemoval.h"
#include "Support/PromptingSecretService.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"

using namespace std::chrono_literals;

/// Each store is a run of its own.
class SecretStoreTest : public QObject {
    Q_OBJECT
    using User = PromptingSecretService::User;

    static constexpr std::chrono::milliseconds Short = 300ms;

    std::unique_ptr<SecretService> m_service;
    int m_tellings = 0;
    int m_removalTellings = 0;

    static StoredSecret item(const QByteArray &name, const QByteArray &secret,
                             SecretKeeping keeping = SecretKeeping::Permanent) {
        return {.attributes = {{"xdg:schema", "velmora.Test"}, {"name", name}},
                .label = QStringLiteral("of a test"),
                .secret = secret,
                .keeping = keeping};
    }

    static std::optional<QByteArray> secretOf(SecretStore &store, const QByteArray &name) {
        const auto items = store.find(item(name, {}).attributes);
        return items && !items->isEmpty() ? std::optional(items->first().secret.toByteArray())
                                          : std::nullopt;
    }

    static void keep(const QByteArray &name, const QByteArray &secret) {
        SecretStore store;
        store.set(item(name, secret));
        QVERIFY(store.finishWriting());
    }

    static bool isNotFound(const QByteArray &name) {
        SecretStore store;
        const auto items = store.find(item(name, {}).attributes);
        return items && items->isEmpty();
    }

    /// Sets two, and expects them in memory, and one telling that gives `reason`.
    void expectKeptInMemoryAndToldOnce(SecretStore &store, const QString &reason) {
        store.set(item("one", "1"));
        store.set(item("two", "2"));
        QCOMPARE(secretOf(store, "one"), QByteArray("1"));
        QVERIFY(!store.finishWriting());
        store.set(item("three", "3"));
        store.finishWriting();
        QCOMPARE(secretOf(store, "one"), QByteArray("1"));
        QCOMPARE(secretOf(store, "two"), QByteArray("2"));
        QCOMPARE(secretOf(store, "three"), QByteArray("3"));
        QVERIFY(store.error());
        QCOMPARE(store.error()->localizedFailureReason, reason);
        QTRY_COMPARE(m_tellings, 1);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(m_tellings, 1);
    }

private Q_SLOTS:
    void initTestCase() {
        NotificationCenter::defaultCenter().addObserver(
            this, SecretsNotKeptNotification, [this](const Notification &notification) {
                QCOMPARE(QThread::currentThread(), qApp->thread());
                QCOMPARE(notification.object, nullptr);
                ++m_tellings;
            });
        NotificationCenter::defaultCenter().addObserver(
            this, SecretNotRemovedNotification,
            [this](const Notification & /*notification*/) { ++m_removalTellings; });
    }

    void init() {
        m_service = std::make_unique<SecretService>();
        m_tellings = 0;
        m_removalTellings = 0;
    }

    void cleanup() { m_service.reset(); }

    void aSecretIsFoundAtOnceAndInALaterRun() {
        {
            SecretStore store;
            store.set(item("name", "first"));
            QCOMPARE(secretOf(store, "name"), QByteArray("first"));
            store.set(item("name", "second"));
            QCOMPARE(secretOf(store, "name"), QByteArray("second"));
        }
        SecretStore later;
        QCOMPARE(secretOf(later, "name"), QByteArray("second"));
        QCOMPARE(m_service->count({{QStringLiteral("name"), QStringLiteral("name")}}), 1);
        QVERIFY(!later.error());
        QCOMPARE(m_tellings, 0);
    }

    void aStoredSecretIsReadFromTheServiceAgain() {
        SecretStore store;
        store.set(item("name", "mine"));
        QVERIFY(store.finishWriting());
        keep("name", "of another program");
        QCOMPARE(secretOf(store, "name"), QByteArray("of another program"));
    }

    void aSecretForThisRunNeverReachesTheService() {
        {
            SecretStore store;
            store.set(item("name", "passing", SecretKeeping::ThisRun));
            QVERIFY(store.finishWriting());
            QCOMPARE(secretOf(store, "name"), QByteArray("passing"));
        }
        QVERIFY(isNotFound("name"));
    }

    void anySecretIsKeptByteByByte() {
        const QByteArray bytes("\0\xFF\xC3\xA4 p\0", 7);
        keep("bytes", bytes);
        keep("empty", "");
        SecretStore store;
        QCOMPARE(secretOf(store, "bytes"), bytes);
        QCOMPARE(secretOf(store, "empty"), QByteArray(""));
    }

    void aPartOfTheAttributesFindsAllThatHaveIt() {
        keep("one", "1");
        SecretStore store;
        store.set(item("two", "2", SecretKeeping::ThisRun));
        QCOMPARE(store.find({{"xdg:schema", "velmora.Test"}})->size(), 2);
        QCOMPARE(store.find({{"xdg:schema", "velmora.Other"}})->size(), 0);
    }

    void theSecretsOfARunAreSharedByItsThreads() {
        SecretStore store;
        std::atomic_int countOfFound = 0;
        std::vector<std::unique_ptr<QThread>> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back(QThread::create([&store, &countOfFound, i] {
                const QByteArray name = QByteArray::number(i);
                store.set(item(name, name));
                countOfFound += secretOf(store, name) == name;
                store.finishWriting();
                countOfFound += secretOf(store, name) == name;
            }));
            threads.back()->start();
        }
        for (const auto &thread : threads) {
            thread->wait();
        }
        QCOMPARE(countOfFound, 8);
        QVERIFY(!store.error());
    }

    void restartsOfKeyringAndBusAreSurvived() {
        keep("name", "before");
        SecretStore store;
        QCOMPARE(secretOf(store, "name"), QByteArray("before"));
        m_service->stopKeyring();
        QVERIFY(!store.find(item("name", {}).attributes));
        m_service->startKeyring();
        QCOMPARE(secretOf(store, "name"), QByteArray("before"));
        m_service->stopBus();
        QVERIFY(!store.find(item("name", {}).attributes));
        m_service->startBus();
        m_service->startKeyring();
        QCOMPARE(secretOf(store, "name"), QByteArray("before"));
        store.set(item("name", "after"));
        QVERIFY(store.finishWriting());
    }

    void removingTakesTheFirstOnly() {
        for (const char *secret : {"1", "2"}) {
            m_service->addItem({{QStringLiteral("xdg:schema"), QStringLiteral("velmora.Test")},
                                {QStringLiteral("name"), QStringLiteral("twice")}},
                               secret);
        }
        SecretStore store;
        QCOMPARE(store.find(item("twice", {}).attributes)->size(), 2);
        QVERIFY(KeychainRemoval::removeFirst(store, item("twice", {}).attributes));
        QCOMPARE(store.find(item("twice", {}).attributes)->size(), 1);
        QVERIFY(KeychainRemoval::removeFirst(store, item("twice", {}).attributes));
        QVERIFY(!KeychainRemoval::removeFirst(store, item("twice", {}).attributes));
    }

    void removingLaterTellsWhetherItWasDone() {
        keep("name", "secret");
        SecretStore store;
        QList<bool> answers;
        const auto remember = [&](const Expected<bool> &isRemoved) {
            answers.append(isRemoved.value());
        };
        store.removeFirstLater(item("name", {}).attributes, remember);
        store.removeFirstLater(item("name", {}).attributes, remember);
        QVERIFY(answers.isEmpty());
        QTRY_COMPARE(answers, QList<bool>({true, false}));
        QVERIFY(isNotFound("name"));
        store.set(item("J\xC3", "1"));
        store.removeFirstLater(item("J\xC3", {}).attributes, remember);
        QTRY_COMPARE(answers, QList<bool>({true, false, true}));
    }

    void aPendingSecretCanBeRemoved() {
        SecretStore store;
        store.set(item("name", "secret"));
        QVERIFY(KeychainRemoval::removeFirst(store, item("name", {}).attributes));
        QVERIFY(!secretOf(store, "name"));
        QVERIFY(isNotFound("name"));
    }

    void aSecretInMemoryOnlyIsRemovedWithoutAService() {
        m_service->stopKeyring();
        SecretStore store;
        store.set(item("name", "secret"));
        QVERIFY(!store.finishWriting());
        QVERIFY(KeychainRemoval::removeFirst(store, item("name", {}).attributes));
        QVERIFY(!secretOf(store, "name"));
        QVERIFY(!KeychainRemoval::removeFirst(store, item("name", {}).attributes));
    }

    void withoutABusSecretsStayInMemory() {
        m_service->stopBus();
        SecretStore store;
        const auto found = store.find(item("one", {}).attributes);
        QVERIFY(!found);
        QVERIFY(SecretStore::isServiceMissing(found.error()));
        QVERIFY(!store.findAttributes(item("one", {}).attributes));
        QCOMPARE(m_tellings, 0);
        expectKeptInMemoryAndToldOnce(
            store, QStringLiteral("No password service is running on this computer."));
    }

    void withoutAServiceOnTheBusSecretsStayInMemory() {
        m_service->stopKeyring();
        SecretStore store;
        expectKeptInMemoryAndToldOnce(
            store, QStringLiteral("No password service is running on this computer."));
    }

    void whileTheKeyringIsLockedSecretsStayInMemory() {
        keep("locked", "secret");
        m_service->lock();
        SecretStore store;
        QVERIFY(!secretOf(store, "locked"));
        expectKeptInMemoryAndToldOnce(store, QStringLiteral("The keyring is locked."));
        m_service->stopKeyring();
        m_service->startKeyring();
        QCOMPARE(secretOf(store, "locked"), QByteArray("secret"));
    }

    void aKeyringThatCannotBeUnlockedAtLoginKeepsNothing() {
        keep("locked", "secret");
        m_service->stopKeyring();
        m_service->startKeyring("another password");
        SecretStore store;
        QVERIFY(!secretOf(store, "locked"));
        expectKeptInMemoryAndToldOnce(store, QStringLiteral("The keyring is locked."));
    }

    void aKeyringThatCrashesWhileWritingIsDetected() {
        SecretStore store;
        m_service->freezeKeyring();
        store.set(item("one", "1"));
        QCOMPARE(m_tellings, 0);
        m_service->stopKeyring();
        QTRY_COMPARE(m_tellings, 1);
        expectKeptInMemoryAndToldOnce(store, store.error()->localizedFailureReason);
    }

    void aKeyringThatDiesWhileItIsAskedFindsNothing() {
        SecretStore store;
        m_service->freezeKeyring();
        bool isFound = true;
        const std::unique_ptr<QThread> asking(
            QThread::create([&] { isFound = store.find(item("one", {}).attributes).has_value(); }));
        asking->start();
        m_service->stopKeyring();
        QVERIFY(asking->wait());
        QVERIFY(!isFound);
        m_service->startKeyring();
        QVERIFY(store.find(item("one", {}).attributes).has_value());
    }

    void aServiceThatDoesNotReplyIsWaitedForOnce() {
        SecretStore store(Short);
        m_service->freezeKeyring();
        store.set(item("one", "1"));
        QCOMPARE(secretOf(store, "one"), QByteArray("1"));
        QVERIFY(!store.find(item("other", {}).attributes));
        QVERIFY(!store.finishWriting());
        QVERIFY(!store.error());
        // Leaving the block ends the store's run: it has to, though nothing was answered.
    }

    void cancellingEndsALookUpAndRefusesNoOther() {
        m_service->stopKeyring();
        SecretStore store;
        // Its end ends the question.
        const PromptingSecretService prompting(m_service->busAddress(), User::LooksAway);
        std::stop_source cancellation;
        auto finding = std::async(std::launch::async, [&] {
            return store.find(item("one", {}).attributes, cancellation.get_token());
        });
        QTRY_COMPARE(prompting.countOfPrompts(), 1);
        cancellation.request_stop();
        const auto found = finding.get();
        QVERIFY(!found);
        QVERIFY(SecretStore::isCancelled(found.error()));
        QCOMPARE(store.findAttributes(item("one", {}).attributes)->size(), 1);
        // The prompt is still open: neither is there another one, nor does anything wait for it.
        const auto locked = store.find(item("other", {}).attributes);
        QVERIFY(!locked);
        QCOMPARE(locked.error().localizedFailureReason, QStringLiteral("The keyring is locked."));
        const auto again = store.find(item("one", {}).attributes, cancellation.get_token());
        QVERIFY(!again);
        QVERIFY(SecretStore::isCancelled(again.error()));
        QCOMPARE(prompting.countOfPrompts(), 1);
    }

    void theEndDoesNotWaitLongForAServiceThatDoesNotReply() {
        auto store = std::make_unique<SecretStore>();
        m_service->freezeKeyring();
        store->set(item("one", "1"));
        store->findLater(item("other", {}).attributes, [](const auto &) {});
        QElapsedTimer time;
        time.start();
        store.reset();
        QCOMPARE_LT(time.elapsed(), 2000);
    }

    void aRemovalThatIsNotAnsweredDoesNotBlockLaterWrites() {
        SecretStore store(Short);
        m_service->freezeKeyring();
        store.set(item("one", "1"));
        std::optional<Expected<bool>> isRemoved;
        store.removeFirstLater(item("other", {}).attributes,
                               [&](const Expected<bool> &answer) { isRemoved = answer; });
        QVERIFY(!store.finishWriting());
        QVERIFY(!isRemoved);
        m_service->stopKeyring();
        QTRY_VERIFY(isRemoved);
        QVERIFY(!*isRemoved);
        m_service->startKeyring();
        store.set(item("two", "2"));
        SecretStore later;
        QTRY_COMPARE(secretOf(later, "two"), QByteArray("2"));
    }

    void pendingSecretsAreWrittenAtTheEnd() {
        {
            SecretStore store;
            for (const char *name : {"1", "2", "3", "4", "5", "6", "7", "8"}) {
                store.set(item(name, name));
            }
        }
        SecretStore later;
        QCOMPARE(later.find({{"xdg:schema", "velmora.Test"}})->size(), 8);
    }

    void aDismissedPromptKeepsSecretsInMemory() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store;
        expectKeptInMemoryAndToldOnce(store, QStringLiteral("The keyring is locked."));
    }

    void writesThatWaitBehindADismissedPromptDoNotPromptAgain() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store;
        for (const char *name : {"1", "2", "3", "4"}) {
            store.set(item(name, name));
        }
        QVERIFY(!store.finishWriting());
        const int before = prompting.countOfPrompts();
        QVERIFY(before >= 1 && before < 4);
        store.set(item("5", "5"));
        QVERIFY(!store.finishWriting());
        QVERIFY(prompting.countOfPrompts() > before);
    }

    void attributesAreFoundWithoutAPrompt() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::LooksAway);
        SecretStore store(Short);
        QCOMPARE(store.findAttributes(item("one", {}).attributes)->size(), 1);
        bool isFound = false;
        store.findAttributesLater(item("one", {}).attributes, [&](const auto &found) {
            isFound = found && found->size() == 1;
        });
        QTRY_VERIFY(isFound);
        QCOMPARE(prompting.countOfPrompts(), 0);
    }

    void findingLaterReportsADeclinedPromptAsAnError() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store(Short);
        std::optional<Expected<QList<StoredSecret>>> found;
        store.findLater(item("one", {}).attributes, [&](const auto &items) { found = items; });
        QVERIFY(!found);
        QTRY_VERIFY(found);
        QVERIFY(!*found);
        QCOMPARE(found->error().localizedFailureReason, QStringLiteral("The keyring is locked."));
    }

    void findingLaterFindsWhatFindFinds() {
        keep("kept", "1");
        SecretStore store;
        store.set(item("set", "2", SecretKeeping::ThisRun));
        QByteArrayList secrets;
        const auto keepSecrets = [&](const Expected<QList<StoredSecret>> &items) {
            for (const StoredSecret &found : items.value_or(QList<StoredSecret>())) {
                secrets.append(found.secret.toByteArray());
            }
        };
        store.findLater({{"xdg:schema", "velmora.Test"}}, keepSecrets);
        QTRY_COMPARE(secrets.size(), 2);
        QCOMPARE(secrets, QByteArrayList({"2", "1"}));
    }

    void onceDeclinedLookingUpDoesNotPromptAgain() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store;
        const auto declined = store.find(item("one", {}).attributes);
        QVERIFY(!declined);
        QCOMPARE(declined.error().localizedFailureReason, QStringLiteral("The keyring is locked."));
        QVERIFY(!SecretStore::isServiceMissing(declined.error()));
        QCOMPARE(prompting.countOfPrompts(), 1);
        QVERIFY(!store.find(item("one", {}).attributes));
        QCOMPARE(prompting.countOfPrompts(), 1);
        QCOMPARE(m_tellings, 0);
    }

    void aDismissedPromptMakesTheRemovalFail() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store;
        QVERIFY(!KeychainRemoval::removeFirst(store, item("open", {}).attributes));
        QCOMPARE(prompting.countOfPrompts(), 1);
        QVERIFY(!KeychainRemoval::removeFirst(store, item("locked", {}).attributes));
        QCOMPARE(prompting.countOfPrompts(), 2);
    }

    void aDeclinedRemovalIsAnErrorAndReported() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store;
        QList<Expected<bool>> answers;
        const auto remember = [&](const Expected<bool> &isRemoved) { answers.append(isRemoved); };
        store.removeFirstLater(item("open", {}).attributes, remember);
        store.removeFirstLater(item("locked", {}).attributes, remember);
        QTRY_COMPARE(answers.size(), 2);
        for (const Expected<bool> &answer : answers) {
            QVERIFY(!answer);
            QCOMPARE(answer.error().localizedFailureReason,
                     QStringLiteral("The keyring is locked."));
            QCOMPARE(store.removalError(), answer.error());
        }
        QTRY_COMPARE(m_removalTellings, 2);
    }

    void aRemovalWithoutAServiceIsAnErrorUnlessTheSecretIsInMemory() {
        m_service->stopKeyring();
        SecretStore store;
        store.set(item("name", "secret"));
        QVERIFY(!store.finishWriting());
        QList<Expected<bool>> answers;
        const auto remember = [&](const Expected<bool> &isRemoved) { answers.append(isRemoved); };
        store.removeFirstLater(item("name", {}).attributes, remember);
        store.removeFirstLater(item("name", {}).attributes, remember);
        QTRY_COMPARE(answers.size(), 2);
        QCOMPARE(answers.first(), Expected<bool>(true));
        QVERIFY(!answers.last());
        QVERIFY(SecretStore::isServiceMissing(answers.last().error()));
        QVERIFY(!store.removalError());
        QCOMPARE(m_removalTellings, 0);
    }

    void anEncryptedSessionIsAskedForFirst() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::Declines);
        SecretStore store;
        QVERIFY(!store.find(item("one", {}).attributes));
        QCOMPARE(prompting.firstAlgorithm(), QStringLiteral("dh-ietf1024-sha256-aes128-cbc-pkcs7"));
    }

    void aServiceThatCrashesDuringAPromptIsDetected() {
        m_service->stopKeyring();
        auto prompting =
            std::make_unique<PromptingSecretService>(m_service->busAddress(), User::LooksAway);
        SecretStore store;
        store.set(item("one", "1"));
        QTRY_COMPARE(prompting->countOfPrompts(), 1);
        prompting.reset();
        QVERIFY(!store.finishWriting());
        QTRY_COMPARE(m_tellings, 1);
        QCOMPARE(secretOf(store, "one"), QByteArray("1"));
    }

    void anOpenPromptBlocksNoOtherCall() {
        m_service->stopKeyring();
        PromptingSecretService prompting(m_service->busAddress(), User::LooksAway);
        SecretStore store(Short);
        store.set(item("one", "1"));
        QTRY_COMPARE(prompting.countOfPrompts(), 1);
        QCOMPARE(secretOf(store, "one"), QByteArray("1"));
        QVERIFY(!store.find(item("other", {}).attributes));
        const int before = prompting.countOfPrompts();
        QVERIFY(!store.find(item("other", {}).attributes));
        QCOMPARE(prompting.countOfPrompts(), before);
        QVERIFY(!store.finishWriting());
    }

    void attributesThatCannotBeSentAreRememberedForThisRun_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("cut UTF-8") << QByteArray("J\xC3");
        QTest::newRow("NUL") << QByteArray("a\0b", 3);
    }

    void attributesThatCannotBeSentAreRememberedForThisRun() {
        QFETCH(QByteArray, name);
        SecretStore store;
        QVERIFY(!store.find(item(name, {}).attributes));
        QVERIFY(!KeychainRemoval::removeFirst(store, item(name, {}).attributes));
        store.set(item(name, "secret"));
        QCOMPARE(secretOf(store, name), QByteArray("secret"));
        QTRY_COMPARE(m_tellings, 1);
        QVERIFY(KeychainRemoval::removeFirst(store, item(name, {}).attributes));
        QVERIFY(!secretOf(store, name));
    }

    void noErrorHoldsASecret() {
        m_service->stopKeyring();
        SecretStore store;
        store.set(item("account-name", "pass-word"));
        store.finishWriting();
        const Error error = store.error().value();
        for (const QString &text :
             {error.domain, error.localizedDescription, error.localizedFailureReason}) {
            QVERIFY(!text.isEmpty());
            QVERIFY(!text.contains(QLatin1StringView("pass-word")));
            QVERIFY(!text.contains(QLatin1StringView("account-name")));
        }
    }

    void testsHaveNoSessionBusOfTheirOwn() {
        m_service.reset();
        SecretStore store;
        QVERIFY(!store.find(item("one", {}).attributes));
        QVERIFY(qgetenv("DBUS_SESSION_BUS_ADDRESS").endsWith("/no-bus"));
    }
};

VELMORA_TEST(SecretStoreTest)
#include "SecretStoreTest.moc"
