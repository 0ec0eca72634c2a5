#include "Engine/Plugin/RemovedLocations.h"

#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/FileSizeLimit.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const QString WebDAVAddress = QStringLiteral("https://ida@dav.example/Shared.qvSyncStore");
const QString Account = QStringLiteral("ida@example.com");

}  // namespace

class RemovedLocationsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<SecretService> m_secrets;
    std::unique_ptr<TestHost> m_host;

    static void storePassword() {
        for (const QString &method :
             {UrlAuthenticationMethodHttpBasic, UrlAuthenticationMethodHttpDigest}) {
            UrlCredentialStorage::shared().setCredentialForProtectionSpace(
                {.user = QStringLiteral("ida"),
                 .password = QStringLiteral("secret"),
                 .persistence = UrlCredential::Persistence::Permanent},
                UrlProtectionSpace::ofURL(Url::fromString(WebDAVAddress), method));
        }
        QVERIFY(SecretStore::shared().finishWriting());
    }
    qsizetype countOfPasswords() const {
        return m_secrets->count({{QStringLiteral("host"), QStringLiteral("dav.example")}});
    }
    qsizetype countOfTokens() const {
        return m_secrets->count({{QStringLiteral("service"), QStringLiteral("Velmora Dropbox")}});
    }
    QVariant value(const QString &statement) {
        return m_host->engine().profile().value(statement).value();
    }
    int countOfRemovals() {
        return value(QStringLiteral(
                         "SELECT count(*) FROM settings WHERE key LIKE 'removedLocation %'"))
            .toInt();
    }
    void add(const QString &URL) {
        m_host->addLocation(URL);
        m_host->save();
    }
    void removeFirst() {
        m_host->engine().plugin().removedLocations().setUndoTime(std::chrono::milliseconds(0));
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
    }

private Q_SLOTS:
    void init() {
        m_secrets = std::make_unique<SecretService>();
        m_host = std::make_unique<TestHost>();
    }
    void cleanup() {
        m_host.reset();
        m_secrets.reset();
    }

    void aPasswordIsForgottenIfTheUserAgrees() {
        storePassword();
        add(WebDAVAddress);
        m_host->application().answerQuestions(true);
        removeFirst();
        QTRY_COMPARE(m_host->application().questions().size(), 1);
        QCOMPARE(m_host->application().questions().first().text,
                 QStringLiteral("Forget the password of “ida@dav.example”?"));
        QTRY_COMPARE(countOfPasswords(), 0);
        QTRY_COMPARE(countOfRemovals(), 0);
    }

    void aPasswordIsKeptIfTheUserRefuses() {
        storePassword();
        add(WebDAVAddress);
        removeFirst();
        QTRY_COMPARE(m_host->application().questions().size(), 1);
        QTRY_COMPARE(countOfRemovals(), 0);
        SecretStore::shared().finishWriting();
        QCOMPARE(countOfPasswords(), 2);
        m_host->restart();
        QCOMPARE(m_host->application().questions().size(), 1);
    }

    void aPasswordThatAnotherLocationUsesIsKeptWithoutAQuestion() {
        storePassword();
        add(WebDAVAddress);
        add(QStringLiteral("https://ida@dav.example/Other.qvSyncStore"));
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(m_host->application().questions().isEmpty());
        QCOMPARE(countOfPasswords(), 2);
    }

    void thePasswordOfAFormerAddressIsForgotten_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("isForgotten");
        QTest::newRow("another server")
            << QStringLiteral("https://ida@other.example/Shared.qvSyncStore") << true;
        QTest::newRow("another user")
            << QStringLiteral("https://eva@dav.example/Shared.qvSyncStore") << true;
        QTest::newRow("another store")
            << QStringLiteral("https://ida@dav.example/Other.qvSyncStore") << false;
    }
    void thePasswordOfAFormerAddressIsForgotten() {
        QFETCH(QString, address);
        QFETCH(bool, isForgotten);
        storePassword();
        add(WebDAVAddress);
        m_host->application().answerQuestions(true);
        m_host->engine().plugin().removedLocations().setUndoTime(std::chrono::milliseconds(0));
        m_host->locations().syncLocations().first()->setURL(Url::fromString(address));
        m_host->save();
        QCOMPARE(countOfRemovals(), 1);
        QTRY_COMPARE(countOfRemovals(), 0);
        QCOMPARE(m_host->application().questions().size(), isForgotten ? 1 : 0);
        QTRY_COMPARE(countOfPasswords(), isForgotten ? 0 : 2);
        QCOMPARE(m_host->locations().countOfSyncLocations(), 1);
    }

    void anAddressThatIsRestoredKeepsItsPassword() {
        storePassword();
        add(WebDAVAddress);
        m_host->application().answerQuestions(true);
        const auto location = m_host->locations().syncLocations().first();
        location->setURL(Url::fromString(QStringLiteral("https://ida@other.example/")));
        m_host->save();
        location->setURL(Url::fromString(WebDAVAddress));
        m_host->save();
        m_host->restart();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(m_host->application().questions().isEmpty());
        QCOMPARE(countOfPasswords(), 2);
    }

    void theConsentToAnUnencryptedPasswordIsForgottenWithTheLastLocationOfTheServer() {
        const QString address = QStringLiteral("http://ida@dav.example/Shared.qvSyncStore");
        const Url URL = Url::fromString(address);
        QVERIFY(UnencryptedPasswords::accept(URL));
        add(address);
        add(QStringLiteral("http://eva@DAV.example:80/Other.qvSyncStore"));
        add(WebDAVAddress);
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(UnencryptedPasswords::areAccepted(URL).value());
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(!UnencryptedPasswords::areAccepted(URL).value());
    }

    void nothingIsAskedIfNoPasswordIsStored() {
        add(WebDAVAddress);
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(m_host->application().questions().isEmpty());
    }

    void tokensAreForgottenUnlessAnotherLocationUsesThem() {
        DropboxTokens{.access = QByteArray("token")}.store(Account);
        QVERIFY(SecretStore::shared().finishWriting());
        add(QStringLiteral("dropbox://") + Account);
        add(QStringLiteral("dropbox://") + Account);
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(SecretStore::shared().finishWriting());
        QCOMPARE(countOfTokens(), 1);
        removeFirst();
        QTRY_COMPARE(countOfTokens(), 0);
    }

    void theDataOfARemovedLocationInTheProfileIsForgotten() {
        add(QStringLiteral("velmora://desk:8442"));
        const QString identifier = value(QStringLiteral("SELECT uuid FROM locations")).toString();
        const ProfileDatabase &profile = m_host->engine().profile();
        // So many identifiers that it takes several steps.
        QVERIFY(profile.run(
            QStringLiteral("INSERT INTO known_transactions WITH RECURSIVE number (n) AS"
                           " (SELECT 1 UNION ALL SELECT n + 1 FROM number WHERE n < 300)"
                           " SELECT ?, id, 'a' || n, zeroblob(100000), '', 1 FROM number,"
                           " databases"),
            {identifier}));
        const QString key = QStringLiteral("velmora://desk:8442 ") + identifier;
        const auto pairings = m_host->engine().plugin().context().pairings;
        pairings->keep(key, "fingerprint", QByteArray("secret"));
        const QString pairing =
            QStringLiteral("SELECT count(*) FROM settings WHERE key LIKE 'directConnection%'");
        QTRY_COMPARE(value(pairing).toInt(), 1);
        QVERIFY(SecretStore::shared().finishWriting());
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QCOMPARE(value(pairing).toInt(), 0);
        QVERIFY(!pairings->fingerprint(key));
        const auto isForgotten = [&] {
            const auto secret = pairings->secret(key);
            return secret && !*secret;
        };
        QTRY_VERIFY(isForgotten());
        QCOMPARE(value(QStringLiteral("SELECT count(*) FROM known_transactions")).toInt(), 0);
    }

    void forgettingWaitsForTheNextStartIfTheLogCannotBeMoved() {
        add(QStringLiteral("velmora://desk:8442"));
        const QString identifier = value(QStringLiteral("SELECT uuid FROM locations")).toString();
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("INSERT INTO known_transactions WITH RECURSIVE number (n) AS"
                           " (SELECT 1 UNION ALL SELECT n + 1 FROM number WHERE n < 64)"
                           " SELECT ?, id, 'a' || n, zeroblob(1048576), '', 1 FROM number,"
                           " databases WHERE is_inbox"),
            {identifier}));
        m_host->restart();
        const QString known = QStringLiteral("SELECT count(*) FROM known_transactions");
        QCOMPARE(value(known).toInt(), 64);
        const auto &logged = m_host->application().logEntries();
        const qsizetype before = logged.size();
        int left = 0;
        {
            const FileSizeLimit half(32 << 20);
            removeFirst();
            QTRY_COMPARE_GE(logged.size(), before + 1);
            left = value(known).toInt();
            QCOMPARE_GT(left, 1);
            // Many times longer than a step.
            QTest::qWait(500);
        }
        QCOMPARE(logged.size(), before + 1);
        QCOMPARE(value(known).toInt(), left);
        QCOMPARE(countOfRemovals(), 1);
        m_host->restart();
        QTRY_COMPARE(countOfRemovals(), 0);
        QCOMPARE(value(known).toInt(), 0);
    }

    void theCertificatesOfAServerAreForgotten() {
        add(WebDAVAddress);
        const QString identifier = value(QStringLiteral("SELECT uuid FROM locations")).toString();
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("INSERT INTO trusted_certificates VALUES (?, 'f')"), {identifier}));
        removeFirst();
        QTRY_COMPARE(countOfRemovals(), 0);
        QCOMPARE(value(QStringLiteral("SELECT count(*) FROM trusted_certificates")).toInt(), 0);
    }

    void removalsThatFailedAreRepeatedAtTheNextStart() {
        DropboxTokens{.access = QByteArray("token")}.store(Account);
        QVERIFY(SecretStore::shared().finishWriting());
        add(QStringLiteral("dropbox://") + Account);
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
        QCOMPARE(countOfRemovals(), 1);
        m_host->restart();
        QTRY_COMPARE(countOfTokens(), 0);
        QTRY_COMPARE(countOfRemovals(), 0);
    }

    void secretsInALockedKeyringAreReportedAndForgottenAtALaterStart_data() {
        QTest::addColumn<QString>("URL");
        QTest::newRow("password") << WebDAVAddress;
        QTest::newRow("tokens") << QStringLiteral("dropbox://") + Account;
        QTest::newRow("pairing") << QStringLiteral("velmora://desk:8442");
    }

    void secretsInALockedKeyringAreReportedAndForgottenAtALaterStart() {
        QFETCH(QString, URL);
        storePassword();
        DropboxTokens{.access = QByteArray("token")}.store(Account);
        add(URL);
        const QString identifier = value(QStringLiteral("SELECT uuid FROM locations")).toString();
        m_host->engine().plugin().context().pairings->keep(URL + u' ' + identifier, "fingerprint",
                                                           QByteArray("secret"));
        QVERIFY(SecretStore::shared().finishWriting());
        const auto countOfAll = [this] { return m_secrets->count({}); };
        const qsizetype before = countOfAll();
        m_host->application().answerQuestions(true);
        m_secrets->lock();
        removeFirst();
        QTRY_COMPARE(m_host->application().logEntries().size(), 1);
        QVERIFY(m_host->application().logEntries().first().info.contains(
            QStringLiteral("The keyring is locked.")));
        QCOMPARE(countOfRemovals(), 1);
        QCOMPARE(countOfAll(), before);

        m_secrets->stopKeyring();
        m_secrets->startKeyring();
        m_host->restart();
        QTRY_COMPARE(countOfRemovals(), 0);
        QVERIFY(countOfAll() < before);
        QCOMPARE(m_host->application().logEntries().size(), 1);
    }

    void withoutAServiceTheRecordOfTheRemovalIsKept() {
        add(WebDAVAddress);
        m_secrets->stopKeyring();
        removeFirst();
        QTRY_COMPARE(m_host->application().logEntries().size(), 1);
        QCOMPARE(countOfRemovals(), 1);
    }

    void aReportNamesTheAddressIfAnotherLocationHasTheTitle() {
        const QString other = QStringLiteral("https://eva@dav.example/b/Shared.qvSyncStore");
        add(WebDAVAddress);
        add(other);
        m_secrets->stopKeyring();
        removeFirst();
        QTRY_COMPARE(m_host->application().logEntries().size(), 1);
        const QString report = m_host->application().logEntries().first().info;
        QVERIFY2(report.contains(u'“' + WebDAVAddress + u'”'), qPrintable(report));
    }

    void aRemovalThatIsRepeatedWhileItIsForgottenCanBeUndoneAgain() {
        add(WebDAVAddress);
        const QString identifier = value(QStringLiteral("SELECT uuid FROM locations")).toString();
        // So many identifiers that it takes several steps.
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("INSERT INTO known_transactions WITH RECURSIVE number (n) AS"
                           " (SELECT 1 UNION ALL SELECT n + 1 FROM number WHERE n < 1000)"
                           " SELECT ?, id, 'a' || n, zeroblob(100000), '', 1 FROM number,"
                           " databases"),
            {identifier}));
        const auto known = [this] {
            return value(QStringLiteral("SELECT count(*) FROM known_transactions")).toInt();
        };
        const auto location = m_host->locations().syncLocations().first();
        removeFirst();
        while (known() == 1000) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        m_host->locations().insertObjectInSyncLocationsAtIndex(location, 0);
        m_host->save();
        m_host->engine().plugin().removedLocations().setUndoTime(std::chrono::hours(1));
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
        const int left = known();
        QVERIFY(left > 0);
        m_host->leaveUnverified("the profile knows records that no store has");
        // Nothing tells that nothing happens.
        QTest::qWait(500);
        QCOMPARE(known(), left);
    }

    void aLocationThatIsAddedAgainLosesNothing() {
        storePassword();
        add(WebDAVAddress);
        const auto location = m_host->locations().syncLocations().first();
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
        QCOMPARE(countOfRemovals(), 1);
        m_host->locations().insertObjectInSyncLocationsAtIndex(location, 0);
        m_host->save();
        QCOMPARE(countOfRemovals(), 0);
        m_host->restart();
        QVERIFY(m_host->application().questions().isEmpty());
        QCOMPARE(countOfPasswords(), 2);
    }
};

VELMORA_TEST(RemovedLocationsTest)
#include "RemovedLocationsTest.moc"
