#include "Engine/Notes/IdentifierSet.h"
#include "Support/TestMain.h"

class IdentifierSetTest : public QObject {
    Q_OBJECT
private:
    static OperationId identifier(int number) {
        return QByteArray::number(number).rightJustified(Operation::IdentifierSize, '0');
    }

private Q_SLOTS:
    void containsWhatWasAdded() {
        IdentifierSet set;
        for (int i = 1000; i > 0; i -= 2) {
            set.add(identifier(i));
        }
        set.add(QList{identifier(1), identifier(2), identifier(1)});
        set.sort();
        for (int i = 0; i <= 1001; ++i) {
            QCOMPARE(set.contains(identifier(i)), i == 1 || (i > 0 && i <= 1000 && i % 2 == 0));
        }
    }

    void keepsIdentifiersThatAreTooShortOrTooLong() {
        IdentifierSet set;
        const OperationId padded =
            OperationId("short").leftJustified(Operation::IdentifierSize, '\0');
        set.add(OperationId("short"));
        set.add(identifier(0) + '0');
        set.sort();
        QVERIFY(set.contains("short"));
        QVERIFY(!set.contains(padded));
        QVERIFY(set.contains(identifier(0) + '0'));
        QVERIFY(!set.contains(identifier(0)));
        QVERIFY(!set.contains({}));
    }
};

VELMORA_TEST(IdentifierSetTest)
#include "IdentifierSetTest.moc"
