#include "Platform/Foundation/PathComponents.h"

#include "Platform/Foundation/PercentEscapes.h"
#include "Support/TestMain.h"

class PathComponentsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theLastComponentIsWhatStandsBehindTheLastSlash() {
        QCOMPARE(PathComponents::last(QStringLiteral("/a/b.c")), QStringLiteral("b.c"));
        QCOMPARE(PathComponents::last(QStringLiteral("/a/b/")), QStringLiteral("b"));
        QCOMPARE(PathComponents::last(QStringLiteral("a")), QStringLiteral("a"));
        QCOMPARE(PathComponents::last(QStringLiteral("/")), QStringLiteral("/"));
        QCOMPARE(PathComponents::last(QString()), QString());
    }

    void withoutTheLastComponentTheRestRemains() {
        QCOMPARE(PathComponents::withoutLast(QStringLiteral("/a/b")), QStringLiteral("/a"));
        QCOMPARE(PathComponents::withoutLast(QStringLiteral("/a")), QStringLiteral("/"));
        QCOMPARE(PathComponents::withoutLast(QStringLiteral("a")), QString());
        QCOMPARE(PathComponents::withoutLast(QStringLiteral("a//b")), QStringLiteral("a"));
    }

    void onlyTheLastExtensionOfTheLastComponentIsDropped() {
        QCOMPARE(PathComponents::withoutExtension(QStringLiteral("/x.y/S.qvSyncStore")),
                 QStringLiteral("/x.y/S"));
        QCOMPARE(PathComponents::withoutExtension(QStringLiteral("a.b.c")), QStringLiteral("a.b"));
        QCOMPARE(PathComponents::withoutExtension(QStringLiteral("/x.y/S")),
                 QStringLiteral("/x.y/S"));
        QCOMPARE(PathComponents::withoutExtension(QStringLiteral(".hidden")),
                 QStringLiteral(".hidden"));
        QCOMPARE(PathComponents::withoutExtension(QStringLiteral("a.")), QStringLiteral("a."));
    }

    void appendingPutsOneSlashBetween() {
        QCOMPARE(PathComponents::appending(QStringLiteral("h"), QStringLiteral("a")),
                 QStringLiteral("h/a"));
        QCOMPARE(PathComponents::appending(QStringLiteral("h/"), QStringLiteral("/a")),
                 QStringLiteral("h/a"));
        QCOMPARE(PathComponents::appending(QStringLiteral("h"), QString()), QStringLiteral("h"));
        QCOMPARE(PathComponents::appending(QString(), QStringLiteral("a")), QStringLiteral("a"));
    }

    void anExtensionIsAppendedToTheNameNotToASlash() {
        const QString extension = QStringLiteral("qvSyncStore");
        QCOMPARE(PathComponents::appendingExtension(QStringLiteral("My Store"), extension),
                 QStringLiteral("My Store.qvSyncStore"));
        QCOMPARE(PathComponents::appendingExtension(QStringLiteral("a/"), extension),
                 QStringLiteral("a.qvSyncStore"));
        QCOMPARE(PathComponents::appendingExtension(QString(), extension), QString());
    }

    void aRelativePathIsStandardizedButParentSegmentsStay() {
        QCOMPARE(PathComponents::standardizingRelative(QStringLiteral("h//a/./b/")),
                 QStringLiteral("h/a/b"));
        QCOMPARE(PathComponents::standardizingRelative(QStringLiteral("h/../a/..")),
                 QStringLiteral("h/../a/.."));
        QCOMPARE(PathComponents::standardizingRelative(QStringLiteral("/a/")),
                 QStringLiteral("/a"));
    }

    void aPathLiesInAFolderOnlyByWholeComponents() {
        const auto isAtOrBelow = [](const char *path, const char *folder) {
            return PathComponents::isAtOrBelow(QString::fromLatin1(path),
                                               QString::fromLatin1(folder));
        };
        QVERIFY(isAtOrBelow("/a/b", "/a/b"));
        QVERIFY(isAtOrBelow("/a/b/c/d", "/a/b"));
        QVERIFY(isAtOrBelow("/a", "/"));
        QVERIFY(isAtOrBelow("/a/b", "/a/"));
        QVERIFY(!isAtOrBelow("/a/bc", "/a/b"));
        QVERIFY(!isAtOrBelow("/a", "/a/b"));
    }

    void invalidCharactersAreEscapedInAURL() {
        QCOMPARE(PercentEscapes::adding(QStringLiteral("#%[]^ \"<>\\`{|}")),
                 QStringLiteral("%23%25%5B%5D%5E%20%22%3C%3E%5C%60%7B%7C%7D"));
        QCOMPARE(PercentEscapes::adding(QStringLiteral("ä\u2019\u0001")),
                 QStringLiteral("%C3%A4%E2%80%99%01"));
    }

    void reservedAndUnreservedCharactersStay() {
        const QString kept = QStringLiteral("AZaz09-_.!~*'();/?:@&=+$,");
        QCOMPARE(PercentEscapes::adding(kept), kept);
    }

    void furtherCharactersAreEscapedWhereAskedFor() {
        QCOMPARE(PercentEscapes::adding(QStringLiteral("a@b:c?"), QStringLiteral(":@\u2019")),
                 QStringLiteral("a%40b%3Ac?"));
    }
};

VELMORA_TEST(PathComponentsTest)
#include "PathComponentsTest.moc"
