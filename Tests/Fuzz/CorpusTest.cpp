#include <QtCore/QDir>
#include <QtCore/QMap>
#include <ctime>

#include "Support/PeakMemory.h"
#include "Support/TestMain.h"
#include "Tests/FuzzTargets.inc"

namespace {

const QString CorpusFolder = QStringLiteral(VELMORA_SOURCE_DIR "/Tests/Fuzz/Corpus/");
/// Maximum processor time for one input. The inputs take a small fraction of it unless work is not
/// linear.
constexpr std::clock_t TimeForOneInput = 5 * CLOCKS_PER_SEC;
/// Maximum memory for one input.
constexpr qint64 MegabytesForOneInput = 128;

}  // namespace

/// Runs every fuzz target over its corpus. A target aborts the process if a promise is broken.
class CorpusTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyTargetHasACorpus() {
        const QStringList names =
            QDir(CorpusFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        QStringList targets;
        for (auto each = FuzzTargets.keyBegin(); each != FuzzTargets.keyEnd(); ++each) {
            targets.append(QString::fromLatin1(*each));
        }
        QCOMPARE(names, targets);
        QVERIFY(targets.size() >= 12);
    }

    void noInputOfTheCorpusFails_data() {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("path");
        for (auto each = FuzzTargets.keyBegin(); each != FuzzTargets.keyEnd(); ++each) {
            const QString name = QString::fromLatin1(*each);
            const QStringList files = QDir(CorpusFolder + name).entryList(QDir::Files);
            QVERIFY2(files.size() >= 5, each->constData());
            for (const QString &file : files) {
                QTest::addRow("%s/%s", each->constData(), qPrintable(file))
                    << name << CorpusFolder + name + u'/' + file;
            }
        }
    }

    void noInputOfTheCorpusFails() {
        QFETCH(const QString, target);
        QFETCH(const QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray input = file.readAll();
        const PeakMemory memory;
        // Not of the computer, which may be busy.
        const std::clock_t begin = std::clock();
        FuzzTargets.value(target.toLatin1())(reinterpret_cast<const uint8_t *>(input.constData()),
                                             static_cast<size_t>(input.size()));
        QVERIFY(std::clock() - begin < TimeForOneInput);
        const qint64 growth = memory.growth();
        QVERIFY2(growth >= 0 && growth < MegabytesForOneInput, qPrintable(QString::number(growth)));
    }
};

VELMORA_TEST(CorpusTest)
#include "CorpusTest.moc"
