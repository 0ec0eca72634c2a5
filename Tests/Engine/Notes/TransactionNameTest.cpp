#include "Engine/Notes/TransactionName.h"
#include "Support/TestMain.h"

class TransactionNameTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNameIsTheDigestAsAUUIDOfVersion8() {
        // SHA-256 of "abc" begins with ba7816bf 8f01cfea 414140de 5dae2223.
        QCOMPARE(TransactionName::of("abc"),
                 QStringLiteral("ba7816bf-8f01-8fea-8141-40de5dae2223.json"));
        QVERIFY(TransactionName::isValid(TransactionName::of("abc")));
        QVERIFY(TransactionName::matches(TransactionName::of("abc"), "abc"));
        QVERIFY(!TransactionName::matches(TransactionName::of("abc"), "abd"));
    }

    void aRandomNameMatchesEveryRecord() {
        const QString old = QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a11.json");
        QVERIFY(TransactionName::isValid(old));
        QVERIFY(TransactionName::matches(old, "abc"));
    }

    void aFileThatIsSetAsideIsNoRecord() {
        const QString aside = TransactionName::ofDamaged(TransactionName::of("abc"), "abd");
        QVERIFY(aside.startsWith(QStringLiteral("ba7816bf-8f01-8fea-8141-40de5dae2223.damaged-")));
        QVERIFY(!TransactionName::isValid(aside));
        QVERIFY(TransactionName::isOfDamaged(aside));
        QVERIFY(!TransactionName::isOfDamaged(TransactionName::of("abc")));
        QVERIFY(!aside.endsWith(QStringLiteral(".json")));
        QVERIFY(aside != TransactionName::ofDamaged(TransactionName::of("abc"), "abe"));
    }
};

VELMORA_TEST(TransactionNameTest)
#include "TransactionNameTest.moc"
