#include "Platform/Foundation/Url.h"

#include "Support/TestMain.h"

class UrlTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aDefaultUrlIsNil() {
        QVERIFY(Url().isNil());
        QCOMPARE(Url(), Url::fromString(QString()));
        QCOMPARE(Url().absoluteString(), QString());
        QVERIFY(!Url().port());
        QVERIFY(!Url().isFileURL());
    }

    void aTextWithinTheGrammarIsParsed_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("scheme");
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("host");
        QTest::addColumn<int>("port");
        QTest::addColumn<QString>("path");

        const auto row = [](const char *text, const char *scheme, const char *user,
                            const char *host, int port, const char *path) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(scheme)
                                << QString::fromUtf8(user) << QString::fromUtf8(host) << port
                                << QString::fromUtf8(path);
        };
        const int none = -1;
        row("http://a", "http", "", "a", none, "");
        row("http://a/", "http", "", "a", none, "/");
        row("http://a/b/c/", "http", "", "a", none, "/b/c");
        row("http://a/b//", "http", "", "a", none, "/b");
        row("http://a//b", "http", "", "a", none, "//b");
        row("HTTP://Example.ORG/Path", "HTTP", "", "Example.ORG", none, "/Path");
        row("http://a:0", "http", "", "a", 0, "");
        row("http://a:80/x", "http", "", "a", 80, "/x");
        row("http://a:65535/x", "http", "", "a", 65535, "/x");
        row("http://a:00080/x", "http", "", "a", 80, "/x");
        row("http://a:/x", "http", "", "a", none, "/x");
        row("http://u@a", "http", "u", "a", none, "");
        row("http://u:p@a", "http", "u", "a", none, "");
        row("http://u:p:q@a:1", "http", "u", "a", 1, "");
        row("http://:p@a", "http", "", "a", none, "");
        row("http://@a", "http", "", "a", none, "");
        row("http://u%40x%3Ay@a", "http", "u@x:y", "a", none, "");
        row("http://J%C3%BCrgen@b%C3%BCro/%E2%82%AC", "http", "Jürgen", "büro", none, "/€");
        row("http://a/b%20c%2fd%2Fe", "http", "", "a", none, "/b c/d/e");
        row("http://a/%23%25%3F", "http", "", "a", none, "/#%?");
        row("http://a/%2523", "http", "", "a", none, "/%23");
        row("http://a/b+c", "http", "", "a", none, "/b+c");
        row("http://a/@:!$&'()*+,;=-._~", "http", "", "a", none, "/@:!$&'()*+,;=-._~");
        row("http://!$&'()*+,;=-._~", "http", "", "!$&'()*+,;=-._~", none, "");
        row("http://a?", "http", "", "a", none, "");
        row("http://a?b=c&d=/e?f:@", "http", "", "a", none, "");
        row("http://a#", "http", "", "a", none, "");
        row("http://a#b/c?d:@", "http", "", "a", none, "");
        row("http://a/b?c#d", "http", "", "a", none, "/b");
        row("http://a?u@h:1", "http", "", "a", none, "");
        row("http://a/b:c@d", "http", "", "a", none, "/b:c@d");
        row("http://a/../b/./c", "http", "", "a", none, "/../b/./c");
        row("http://1.2.3.4", "http", "", "1.2.3.4", none, "");
        row("http://999.1", "http", "", "999.1", none, "");
        row("http://[::1]", "http", "", "::1", none, "");
        row("http://[::1]:", "http", "", "::1", none, "");
        row("http://u:p@[2001:DB8::7]:8080/x", "http", "u", "2001:DB8::7", 8080, "/x");
        row("http://[::]", "http", "", "::", none, "");
        row("http://[1:2:3:4:5:6:7:8]", "http", "", "1:2:3:4:5:6:7:8", none, "");
        row("http://[1:2:3:4:5:6:7::]", "http", "", "1:2:3:4:5:6:7::", none, "");
        row("http://[::ffff:1.2.3.4]", "http", "", "::ffff:1.2.3.4", none, "");
        row("http://[v1.a:b]", "http", "", "v1.a:b", none, "");
        row("http://", "http", "", "", none, "");
        row("file:///", "file", "", "", none, "/");
        row("file:///a%20b", "file", "", "", none, "/a b");
        row("file://host/a", "file", "", "host", none, "/a");
        row("file:/a", "file", "", "", none, "/a");
        row("a:", "a", "", "", none, "");
        row("a+b-c.9:x", "a+b-c.9", "", "", none, "x");
        row("mailto:u@a", "mailto", "", "", none, "u@a");
        row("urn:a:b", "urn", "", "", none, "a:b");
    }
    void aTextWithinTheGrammarIsParsed() {
        QFETCH(QString, text);
        QFETCH(QString, scheme);
        QFETCH(QString, user);
        QFETCH(QString, host);
        QFETCH(int, port);
        QFETCH(QString, path);
        const Url url = Url::fromString(text);
        QVERIFY(!url.isNil());
        QCOMPARE(url.absoluteString(), text);
        QCOMPARE(url.scheme(), scheme);
        QCOMPARE(url.user(), user);
        QCOMPARE(url.host(), host);
        QCOMPARE(url.port() ? int(*url.port()) : -1, port);
        QCOMPARE(url.path(), path);
    }

    void aTextOutsideTheGrammarIsNil_data() {
        QTest::addColumn<QString>("text");
        const char *texts[] = {
            "a",
            "/a",
            "//a",
            ":",
            ":a",
            "1a:b",
            "+a:b",
            "a_b:c",
            "a%41:b",
            "http//a",
            " http://a",
            "http://a ",
            "http://a\n",
            "http://a b",
            "http://a/b c",
            "http://a?b c",
            "http://a#b c",
            "http://a/b\tc",
            "http://a/\x7f",
            "http://a/\x01",
            "http://ä",
            "http://a/é",
            "http://a?é",
            "http://a/\xF0\x9F\x98\x80",
            "http://a:b",
            "http://a:80:90",
            "http://a:80x",
            "http://a:+80",
            "http://a:-1",
            "http://a:65536",
            "http://a:99999999999999999999999999",
            "http://u@v@a",
            "http://u/v@a:b@c:d@e[",
            "http://u[@a",
            "http://u%@a",
            "http://a%",
            "http://a%4",
            "http://a%4g",
            "http://a/%",
            "http://a/%4",
            "http://a/%zz",
            "http://a/%%41",
            "http://a?%",
            "http://a#%4",
            "http://a#b#c",
            "http://a/[b]",
            "http://a/b\\c",
            "http://a/b^c",
            "http://a/b`c",
            "http://a/{b}",
            "http://a/b|c",
            "http://a/\"b\"",
            "http://a/<b>",
            "http://a?[b]",
            "http://[",
            "http://[]",
            "http://[::1",
            "http://::1",
            "http://::1]",
            "http://[::1]]",
            "http://[::1]a",
            "http://[::1]:a",
            "http://a[::1]",
            "http://[1.2.3.4]",
            "http://[1:2:3:4:5:6:7]",
            "http://[1:2:3:4:5:6:7:8:9]",
            "http://[1::2::3]",
            "http://[12345::]",
            "http://[::g]",
            "http://[::1.2.3]",
            "http://[::1.2.3.256]",
            "http://[::127.1]",
            "http://[fe80::1%25eth0]",
            "http://[v.a]",
            "http://[v1.]",
            "http://[vg.a]",
            "http://[v1.%41]",
            "urn:a b",
        };
        for (const char *text : texts) {
            QTest::newRow(text) << QString::fromUtf8(text);
        }
        QTest::newRow("a zero byte") << QStringLiteral("http://a/b") + QChar(0);
        QTest::newRow("a zero byte in an address")
            << QStringLiteral("http://[::1") + QChar(0) + u']';
        QTest::newRow("half a surrogate pair") << QStringLiteral("http://a/") + QChar(0xD800);
        QTest::newRow("a full-width digit") << QStringLiteral("http://a:") + QChar(0xFF11);
    }
    void aTextOutsideTheGrammarIsNil() {
        QFETCH(QString, text);
        const Url url = Url::fromString(text);
        QVERIFY(url.isNil());
        QVERIFY(url.scheme().isEmpty());
        QVERIFY(url.user().isEmpty());
        QVERIFY(url.host().isEmpty());
        QVERIFY(!url.port());
        QVERIFY(url.path().isEmpty());
    }

    void aVeryLongTextIsParsedLikeAShortOne_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isGood");
        const qsizetype length = 300'000;
        const QString letters(length, u'a');
        const QString slashes(length, u'/');
        const QString escapes = QStringLiteral("%41").repeated(length / 3);
        const QString start = QStringLiteral("http://h/");
        QTest::newRow("path") << start + letters << true;
        QTest::newRow("segments") << start + slashes << true;
        QTest::newRow("escapes") << start + escapes << true;
        QTest::newRow("user") << QStringLiteral("http://") + letters + QStringLiteral("@h") << true;
        QTest::newRow("host") << QStringLiteral("http://") + letters << true;
        QTest::newRow("scheme") << letters + u':' << true;
        QTest::newRow("query") << start + u'?' + letters << true;
        QTest::newRow("fragment") << start + u'#' + escapes << true;
        QTest::newRow("port") << QStringLiteral("http://h:") + QString(length, u'0') +
                                     QStringLiteral("80")
                              << true;
        QTest::newRow("bad end of path") << start + letters + u' ' << false;
        QTest::newRow("bad end of segments") << start + slashes + u'[' << false;
        QTest::newRow("bad end of escapes") << start + escapes + u'%' << false;
        QTest::newRow("no scheme") << letters << false;
        QTest::newRow("colons") << QStringLiteral("http://") + QString(length, u':') << false;
        QTest::newRow("ats") << QStringLiteral("http://") + QString(length, u'@') << false;
        QTest::newRow("brackets") << QStringLiteral("http://") + QString(length, u'[') << false;
        QTest::newRow("address") << QStringLiteral("http://[") + QString(length, u':') + u']'
                                 << false;
    }
    void aVeryLongTextIsParsedLikeAShortOne() {
        QFETCH(QString, text);
        QFETCH(bool, isGood);
        const Url url = Url::fromString(text);
        QCOMPARE(!url.isNil(), isGood);
        QVERIFY(!isGood || url.absoluteString() == text);
    }

    void escapesThatAreNoUtf8DecodeToReplacementCharacters() {
        const Url url = Url::fromString(QStringLiteral("http://a/%FF"));
        QCOMPARE(url.path(), QStringLiteral("/") + QChar(QChar::ReplacementCharacter));
        QCOMPARE(url.absoluteString(), QStringLiteral("http://a/%FF"));
    }

    void onlyTheExactSchemeFileMakesAFileUrl() {
        QVERIFY(Url::fromString(QStringLiteral("file:///a")).isFileURL());
        QVERIFY(!Url::fromString(QStringLiteral("FILE:///a")).isFileURL());
        QVERIFY(!Url::fromString(QStringLiteral("files:///a")).isFileURL());
    }

    void aFileUrlGivesItsPathBack_data() {
        QTest::addColumn<QString>("path");
        for (const char *path :
             {"/", "/a", "/a b", "/#1", "/100%", "/%41", "/what?", "/a/b.qvSyncStore",
              "/é/€/\xF0\x9F\x98\x80", "/a;b=c&d+e@f:g,h!i$j'k(l)m*n", "/[x]{y}|z\\\"<>^`~",
              "/a\nb\tc", "//a", "/a//b", "/..", "/ "}) {
            QTest::newRow(path) << QString::fromUtf8(path);
        }
        QTest::newRow("long") << u'/' + QString(100'000, u'#');
    }
    void aFileUrlGivesItsPathBack() {
        QFETCH(QString, path);
        const Url url = Url::fileURL(path);
        QVERIFY(url.isFileURL());
        QCOMPARE(url.path(), path);
        QCOMPARE(url.host(), QString());
        QCOMPARE(Url::fromString(url.absoluteString()), url);
    }

    void aFileUrlKeepsWhatNeedsNoEscape() {
        QCOMPARE(Url::fileURL(QStringLiteral("/a b/c,d:e@f")).absoluteString(),
                 QStringLiteral("file:///a%20b/c,d:e@f"));
    }

    void aPathEndsWithoutASlash() {
        QCOMPARE(Url::fileURL(QStringLiteral("/a/b/")).path(), QStringLiteral("/a/b"));
        QCOMPARE(Url::fileURL(QStringLiteral("///")).path(), QStringLiteral("/"));
    }

    void onlyAnAbsolutePathHasAFileUrl() {
        QVERIFY(Url::fileURL(QStringLiteral("a/b")).isNil());
        QVERIFY(Url::fileURL(QString()).isNil());
    }

    void aPasswordIsNotShown_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *text, const char *shown) {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(shown);
        };
        row("http://u:secret@h/p", "http://u@h/p");
        row("http://:secret@h", "http://@h");
        row("http://u:a:b@h:80?q#f", "http://u@h:80?q#f");
        row("http://u@h:80/a:b@c", "http://u@h:80/a:b@c");
        row("http://h?y:z@c", "http://h?y:z@c");
        row("http://[::1]:80/", "http://[::1]:80/");
        row("mailto:a:b@c", "mailto:a:b@c");
        row("x:a//b:c@d", "x:a//b:c@d");
    }

    void aPasswordIsNotShown() {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(Url::fromString(text).stringWithoutPassword(), shown);
        QCOMPARE(Url().stringWithoutPassword(), QString());
    }

    void onlyAnIPv6AddressNeedsBracketsInAURL() {
        QCOMPARE(Url::hostInURL(QStringLiteral("fe80::1")), QStringLiteral("[fe80::1]"));
        QCOMPARE(Url::hostInURL(QStringLiteral("::1")), QStringLiteral("[::1]"));
        for (const QString &host :
             {QStringLiteral("[fe80::1]"), QStringLiteral("127.0.0.1"), QStringLiteral("host"),
              QStringLiteral("host:8080"), QString()}) {
            QCOMPARE(Url::hostInURL(host), host);
        }
    }

    void urlsAreEqualWhenTheirTextsAre() {
        const QString text = QStringLiteral("http://a/b");
        QCOMPARE(Url::fromString(text), Url::fromString(text));
        QVERIFY(Url::fromString(text) != Url::fromString(text + u'/'));
        QVERIFY(Url::fromString(text) != Url::fromString(QStringLiteral("HTTP://a/b")));
        QVERIFY(Url::fromString(text) != Url::fromString(QStringLiteral("http://a/%62")));
        QVERIFY(Url::fromString(text) != Url());
    }

    void urlsAreComparedInsideVariants() {
        const QString text = QStringLiteral("http://a/b");
        QCOMPARE(QVariant::fromValue(Url::fromString(text)),
                 QVariant::fromValue(Url::fromString(text)));
        QVERIFY(QVariant::fromValue(Url::fromString(text)) != QVariant::fromValue(Url()));
    }
};

VELMORA_TEST(UrlTest)
#include "UrlTest.moc"
