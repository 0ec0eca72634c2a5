#include <ctime>

#include "Engine/Stores/Http/HttpAuthentication.h"
#include "Support/TestMain.h"

namespace {

using Scheme = HttpAuthentication::Scheme;

const UrlCredential Mufasa = {QStringLiteral("Mufasa"), QStringLiteral("Circle of Life")};
const QByteArray ExampleNonce = "7ypf/xlj9XXwfDPEoM4URrv/xwf94BcCAzFZH4GiTo0v";
const QByteArray ExampleClientNonce = "f2/wE4q74E6zIJEtWaHKaf5wv/H5QzzpXusqGemxURZJ";

QByteArray exampleChallenge(const QByteArray &algorithm) {
    return "Digest realm=\"http-auth@example.org\", qop=\"auth, auth-int\", algorithm=" +
           algorithm + ", nonce=\"" + ExampleNonce +
           "\", opaque=\"FQhe/qaU925kfnzjCev0ciny7QMkPqMAFRtzCUYo5tdS\"";
}

QByteArray simpleDigest(const QByteArray &more) {
    return "Digest realm=\"r\", nonce=\"n\", qop=\"auth\"" + more;
}

}  // namespace

/// The examples of RFC 7616, section 3.9.1, and RFC 7617, section 2, and challenges of hostile
/// servers.
class HttpAuthenticationTest : public QObject {
    Q_OBJECT
private:
    static QByteArray exampleAnswer(const QByteArray &challenge) {
        auto authentication = HttpAuthentication::fromChallenges(challenge);
        return authentication
                   ? authentication
                         ->authorization(Mufasa, "GET", "/dir/index.html", ExampleClientNonce)
                         .value_or(SecretBytes())
                         .toByteArray()
                   : QByteArray();
    }

private Q_SLOTS:
    void theDigestIsThatOfTheStandard_data() {
        QTest::addColumn<QByteArray>("algorithm");
        QTest::addColumn<QByteArray>("response");
        QTest::newRow("MD5") << QByteArray("MD5") << QByteArray("8ca523f5e9506fed4657c9700eebdbec");
        QTest::newRow("SHA-256")
            << QByteArray("SHA-256")
            << QByteArray("753927fa0e85d155564e2e272a28d1802ca10daf4496794697cf8db5856cb6c1");
    }

    void theDigestIsThatOfTheStandard() {
        QFETCH(QByteArray, algorithm);
        QFETCH(QByteArray, response);
        QCOMPARE(exampleAnswer(exampleChallenge(algorithm)),
                 "Digest username=\"Mufasa\", realm=\"http-auth@example.org\", "
                 "uri=\"/dir/index.html\", algorithm=" +
                     algorithm + ", nonce=\"" + ExampleNonce + "\", nc=00000001, cnonce=\"" +
                     ExampleClientNonce + "\", qop=auth, response=\"" + response +
                     "\", opaque=\"FQhe/qaU925kfnzjCev0ciny7QMkPqMAFRtzCUYo5tdS\"");
    }

    void basicIsThatOfTheStandard() {
        auto basic = HttpAuthentication::fromChallenges("Basic realm=\"WallyWorld\"");
        QVERIFY(basic);
        QCOMPARE(basic->scheme(), Scheme::Basic);
        QCOMPARE(basic->authorization({QStringLiteral("Aladdin"), QStringLiteral("open sesame")},
                                      "GET", "/"),
                 QByteArray("Basic QWxhZGRpbjpvcGVuIHNlc2FtZQ=="));
        QCOMPARE(basic->authorization({QStringLiteral("test"), QStringLiteral("123£")}, "GET", "/"),
                 QByteArray("Basic dGVzdDoxMjPCow=="));
    }

    void theStrongestChallengeIsChosen() {
        const QByteArray md5 = exampleChallenge("MD5");
        const QByteArray sha256 = exampleChallenge("SHA-256");
        for (const QByteArray &all :
             {"Basic realm=x, " + md5 + ", " + sha256, sha256 + ", " + md5 + ",Basic realm=x"}) {
            QVERIFY2(exampleAnswer(all).contains("algorithm=SHA-256"), all.constData());
        }
        QVERIFY(exampleAnswer("Basic realm=x, " + md5).contains("algorithm=MD5"));
        QVERIFY(exampleAnswer(md5 + ", Basic realm=x").contains("algorithm=MD5"));
    }

    void otherSchemesAreNotAnswered_data() {
        QTest::addColumn<QByteArray>("challenges");
        for (const char *text : {"",
                                 ",",
                                 "NTLM",
                                 "Negotiate",
                                 "NTLM, Negotiate",
                                 "NTLM TlRMTVNTUAACAAAA==",
                                 "Negotiate abc=, NTLM",
                                 "Bearer realm=\"Basic realm=x\"",
                                 "=",
                                 "realm=\"Basic\"",
                                 "Digest",
                                 "Digest realm=\"x\"",
                                 "Digest realm=\"x\", nonce=\"\", qop=auth",
                                 "Digest realm=\"x\", nonce=\"n\"",
                                 "Digest realm=\"x\", nonce=\"n\", qop=\"auth-int\"",
                                 "Digest realm=\"x\r\nY: z\", nonce=\"n\", qop=auth",
                                 "Digest realm=\"x\", nonce=\"n\r\", qop=auth",
                                 "Digest realm=\"x\", nonce=\"n\", qop=auth, algorithm=MD5-sess",
                                 "Digest realm=\"x\", nonce=\"n\", qop=auth, algorithm=SHA-512-256",
                                 "Digest nonce=\"n\", qop=auth",
                                 "NTLM \"",
                                 "\"Basic\"",
                                 "Bearer a=\"\\"}) {
            QTest::newRow(text) << QByteArray(text);
        }
    }

    void otherSchemesAreNotAnswered() {
        QFETCH(QByteArray, challenges);
        QVERIFY(!HttpAuthentication::fromChallenges(challenges));
    }

    void aSupportedSchemeIsFoundBesideOthers() {
        for (const char *text :
             {"NTLM, Basic realm=\"x\"", "Negotiate abc=, basic",
              "Bearer a=\"b, Digest \\\" c\", "
              "BASIC realm=x",
              "NTLM abc , Basic realm = \"x\"", "NTLM a/b+c, Basic", ",, Basic"}) {
            const auto found = HttpAuthentication::fromChallenges(text);
            QVERIFY2(found && found->scheme() == Scheme::Basic, text);
        }
        const auto digest = HttpAuthentication::fromChallenges("NTLM, " + simpleDigest({}));
        QVERIFY(digest && digest->scheme() == Scheme::Digest);
    }

    void quotesAndBackslashesAreEscaped() {
        auto digest = HttpAuthentication::fromChallenges(
            "Digest realm=\"say \\\"x\\\" \\\\ y\", nonce=\"a\\\"b\", qop=\"auth\"");
        QVERIFY(digest);
        const QByteArray answer =
            digest
                ->authorization({QStringLiteral("i\"d\\a"), QStringLiteral("secret")}, "GET", "/",
                                "c")
                .value_or(SecretBytes())
                .toByteArray();
        QVERIFY2(
            answer.startsWith("Digest username=\"i\\\"d\\\\a\", realm=\"say \\\"x\\\" \\\\ y\""),
            answer.constData());
        QVERIFY(answer.contains(", nonce=\"a\\\"b\","));
        const auto hash = [](const QByteArray &text) {
            return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
        };
        QVERIFY(answer.contains(hash(hash("i\"d\\a:say \"x\" \\ y:secret") +
                                     ":a\"b:00000001:c:auth:" + hash("GET:/"))));
    }

    void everyUseOfANonceIsCounted() {
        auto digest = HttpAuthentication::fromChallenges(simpleDigest({}));
        QVERIFY(digest);
        const QByteArray first =
            digest->authorization(Mufasa, "GET", "/").value_or(SecretBytes()).toByteArray();
        const QByteArray second =
            digest->authorization(Mufasa, "GET", "/").value_or(SecretBytes()).toByteArray();
        QVERIFY(first.contains("nc=00000001,"));
        QVERIFY(second.contains("nc=00000002,"));
        const auto clientNonce = [](const QByteArray &answer) {
            return answer.mid(answer.indexOf("cnonce=\"") + 8, 32);
        };
        QVERIFY(clientNonce(first) != clientNonce(second));
    }

    void userNamesThatTheSchemeCannotExpressAreNotSent() {
        auto basic = HttpAuthentication::fromChallenges("Basic realm=\"x\"");
        auto digest = HttpAuthentication::fromChallenges(simpleDigest({}));
        QVERIFY(basic && digest);
        const UrlCredential colon = {QStringLiteral("a:b"), QStringLiteral("c")};
        QVERIFY(!basic->authorization(colon, "GET", "/"));
        QVERIFY(digest->authorization(colon, "GET", "/"));
        const UrlCredential lines = {QStringLiteral("a\r\nHost: b"), QStringLiteral("c")};
        QVERIFY(!basic->authorization(lines, "GET", "/"));
        QVERIFY(!digest->authorization(lines, "GET", "/"));
    }

    void aLongChallengeIsReadInLinearTime() {
        const auto time = [](int count) {
            const QByteArray many = QByteArray("a=\"b\",").repeated(count);
            const auto before = std::clock();
            const bool isFound(
                HttpAuthentication::fromChallenges("NTLM " + many + " Basic realm=x"));
            const bool isNone =
                !HttpAuthentication::fromChallenges(QByteArray("NTLM ").repeated(count));
            return isFound && isNone ? std::clock() - before : 0;
        };
        // Quadratic work takes a hundred times as long.
        const auto small = time(20'000);
        const auto large = time(200'000);
        QVERIFY(small > 0 && large > 0);
        QCOMPARE_LT(large, 40 * small);
    }
};

VELMORA_TEST(HttpAuthenticationTest)
#include "HttpAuthenticationTest.moc"
