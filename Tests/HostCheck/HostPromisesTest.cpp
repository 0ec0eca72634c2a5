#include "HostCheck/HostCheck.h"
#include "Support/TestMain.h"

namespace {

/// Returns the text of a header without the marks of comments and with single spaces.
QString proseOf(const QString &header) {
    QFile file(VELMORA_SOURCE_DIR + QString("/") + header);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QString text = QString::fromUtf8(file.readAll());
    return text.remove("///").simplified();
}

}  // namespace

class HostPromisesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySentenceIsInItsHeader() {
        for (const HostPromise &promise : HostCheck::promises()) {
            QVERIFY2(proseOf(promise.header).contains(QString::fromUtf8(promise.sentence)),
                     promise.key);
        }
    }

    void everyPromiseHasAKeyOfItsOwn() {
        QSet<QString> keys;
        for (const HostPromise &promise : HostCheck::promises()) {
            QVERIFY2(!keys.contains(promise.key), promise.key);
            keys.insert(promise.key);
        }
        QVERIFY(keys.size() > 100);
    }
};

VELMORA_TEST(HostPromisesTest)
#include "HostPromisesTest.moc"
