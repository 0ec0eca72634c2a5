#include "Other Sources/QVURLCredentialUtilities.h"

#include "Platform/Foundation/Url.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"

namespace {

const auto Permanent = UrlCredential::Persistence::Permanent;

Url url(const char *text) {
    return Url::fromString(QString::fromLatin1(text));
}

UrlCredential credential(const char *user, const char *password) {
    return {QString::fromLatin1(user), QString::fromLatin1(password), Permanent};
}

}  // namespace

class QVURLCredentialUtilitiesTest : public QObject {
    Q_OBJECT
    SecretService m_secretService;

private Q_SLOTS:
    void aNilURLHasNeitherSpaceNorCredential() {
        QVERIFY(!QVHTTPBasicURLProtectionSpaceForURL(Url()));
        QVERIFY(!QVHTTPDigestURLProtectionSpaceForURL(Url()));
        QVERIFY(!QVHTTPBasicURLCredentialForURL(Url()));
        QVERIFY(!QVHTTPDigestURLCredentialForURL(Url()));
        QVERIFY(!QVDefaultURLCredentialForURL(Url()));
    }

    void aSpaceIsMadeOfHostPortAndSchemeWithoutRealm() {
        const Url URL = url("https://u@Example.org:8443/a");
        const UrlProtectionSpace basic{QStringLiteral("Example.org"), 8443, QStringLiteral("https"),
                                       std::nullopt, UrlAuthenticationMethodHttpBasic};
        QCOMPARE(QVHTTPBasicURLProtectionSpaceForURL(URL), std::optional(basic));
        UrlProtectionSpace digest = basic;
        digest.authenticationMethod = UrlAuthenticationMethodHttpDigest;
        QCOMPARE(QVHTTPDigestURLProtectionSpaceForURL(URL), std::optional(digest));
        QVERIFY(UrlAuthenticationMethodHttpBasic != UrlAuthenticationMethodHttpDigest);
    }

    void aURLWithoutPortHasPort0() {
        QCOMPARE(QVHTTPBasicURLProtectionSpaceForURL(url("https://u@h/a"))->port, 0);
    }

    void theCredentialOfTheURLsUserComesFirst() {
        const Url URL = url("http://u@users/a");
        auto &storage = UrlCredentialStorage::shared();
        const auto space = QVHTTPBasicURLProtectionSpaceForURL(URL);
        storage.setDefaultCredentialForProtectionSpace(credential("d", "default"), space);
        storage.setCredentialForProtectionSpace(credential("u", "mine"), space);
        QCOMPARE(QVHTTPBasicURLCredentialForURL(URL), std::optional(credential("u", "mine")));
    }

    void withoutOneOfItsUserTheDefaultIsTaken() {
        const Url URL = url("http://unknown@defaults/a");
        UrlCredentialStorage::shared().setDefaultCredentialForProtectionSpace(
            credential("d", "default"), QVHTTPBasicURLProtectionSpaceForURL(URL));
        QCOMPARE(QVHTTPBasicURLCredentialForURL(URL), std::optional(credential("d", "default")));
        QCOMPARE(QVHTTPBasicURLCredentialForURL(url("http://defaults/a")),
                 std::optional(credential("d", "default")));
    }

    void aURLWithoutUserDoesNotTakeThatOfAnEmptyName() {
        const Url URL = url("http://@empty/a");
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            credential("", "p"), QVHTTPBasicURLProtectionSpaceForURL(URL));
        QCOMPARE(QVHTTPBasicURLCredentialForURL(URL), std::optional(credential("", "p")));
        QVERIFY(!QVHTTPBasicURLCredentialForURL(url("http://empty/a")));
    }

    void basicComesBeforeDigest() {
        const Url URL = url("http://u@both/a");
        auto &storage = UrlCredentialStorage::shared();
        storage.setCredentialForProtectionSpace(credential("u", "digest"),
                                                QVHTTPDigestURLProtectionSpaceForURL(URL));
        QCOMPARE(QVDefaultURLCredentialForURL(URL), std::optional(credential("u", "digest")));
        storage.setDefaultCredentialForProtectionSpace(credential("d", "basic"),
                                                       QVHTTPBasicURLProtectionSpaceForURL(URL));
        // Even where it is only the default of its space.
        QCOMPARE(QVDefaultURLCredentialForURL(URL), std::optional(credential("d", "basic")));
    }

    void digestHasItsOwnCredentials() {
        const Url URL = url("http://u@own/a");
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            credential("u", "basic"), QVHTTPBasicURLProtectionSpaceForURL(URL));
        QVERIFY(!QVHTTPDigestURLCredentialForURL(URL));
    }
};

VELMORA_TEST(QVURLCredentialUtilitiesTest)
#include "QVURLCredentialUtilitiesTest.moc"
