#include "Engine/Foundation/Sha256.h"

#include <QtCore/QCryptographicHash>

#include "Support/TestMain.h"

class Sha256Test : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theDigestIsThatOfQt() {
        for (const int size : {0, 1, 55, 56, 63, 64, 65, 1000, 1 << 20}) {
            const QByteArray bytes = QByteArray("What the record says.").repeated(size).first(size);
            QCOMPARE(sha256(bytes), QCryptographicHash::hash(bytes, QCryptographicHash::Sha256));
        }
    }
};

VELMORA_TEST(Sha256Test)
#include "Sha256Test.moc"
