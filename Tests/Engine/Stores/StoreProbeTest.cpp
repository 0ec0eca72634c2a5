#include "Engine/Stores/StoreProbe.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Support/Failure.h"
#include "Support/FaultyFolder.h"
#include "Support/MemoryStore.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Whether a store can be written, for stores that fail.
class StoreProbeTest : public QObject {
    Q_OBJECT
    using Fault = MemoryStore::Fault;

    MemoryStore::Blobs m_blobs;

    /// Runs the probe in a store of which the operation number `failing` fails.
    Expected<void> run(int failing, Fault fault) {
        int operation = 0;
        MemoryStore store(m_blobs, [&] { return operation++ == failing ? fault : Fault::None; });
        return StoreProbe(store).run(EngineFuture());
    }

private Q_SLOTS:
    void init() { m_blobs.clear(); }

    void aStoreThatWorksStaysAsItWas() {
        m_blobs[QStringLiteral("databases/other")] = "other";
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run(-1, Fault::None));
        QCOMPARE(m_blobs, before);
    }

    void everyFailureIsReportedOrDoesNoHarm() {
        for (const Fault fault :
             {Fault::Unreachable, Fault::LostAnswer, Fault::Torn, Fault::HalfKept, Fault::Lie}) {
            // List, write, read and remove, in two folders.
            for (int failing = 0; failing < 8; ++failing) {
                m_blobs.clear();
                const Expected<void> result = run(failing, fault);
                const bool isRemovalLost = failing % 4 == 3;
                QVERIFY2(isRemovalLost || m_blobs.empty(),
                         qPrintable(QStringLiteral("%1 %2").arg(int(fault)).arg(failing)));
                // Not a fault of these operations.
                const bool isKept = fault == Fault::HalfKept;
                const bool isNothing = (failing % 4 == 0 && (isKept || fault == Fault::Lie)) ||
                                       (failing % 4 == 2 && isKept);
                QVERIFY2(isNothing || isRemovalLost || !result,
                         qPrintable(QStringLiteral("%1 %2").arg(int(fault)).arg(failing)));
                // What is left is removed by the next one.
                QVERIFY(run(-1, Fault::None));
                QVERIFY(m_blobs.empty());
            }
        }
    }

    void aFullDiskIsReported() {
        TestHost host;
        const QString path = host.addLocation()->URL().path();
        const auto store =
            std::dynamic_pointer_cast<EngineSyncLocation>(host.locations().syncLocations().first())
                ->createBlobStore();
        const EngineFuture future;
        const FaultyFolder full(path, FaultyFolder::Fault::Full, 1,
                                FaultyFolder::Duration::FromThenOn);
        const Expected<void> result = StoreProbe(*store).run(future);
        QVERIFY(!result);
        QVERIFY(isEngineError(result.error(), EngineErrorCode::StoreFull));
        for (const char *folder : {"databases", "transactions"}) {
            const QDir inner(path + u'/' + QLatin1StringView(folder));
            QCOMPARE(inner.entryList(QDir::Files | QDir::Hidden), QStringList());
        }
    }

    void namesOfProbesAreExact() {
        QVERIFY(StoreProbe::isProbe(QStringLiteral("probe-11111111-1111-4111-8111-111111111111")));
        for (const char *other :
             {"probe-", "probe-1", "probe-notes", "xprobe-11111111-1111-4111-8111-111111111111",
              "probe-11111111-1111-4111-8111-111111111111.json"}) {
            QVERIFY2(!StoreProbe::isProbe(QLatin1StringView(other)), other);
        }
    }
};

VELMORA_TEST(StoreProbeTest)
#include "StoreProbeTest.moc"
