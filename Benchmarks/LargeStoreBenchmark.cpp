#include <malloc.h>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QUuid>

#include "Benchmarks/Benchmark.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Notes/TransactionName.h"
#include "Host/InboxUUID.h"
#include "Support/PeakMemory.h"
#include "Support/StallMeter.h"
#include "Support/TestHost.h"

namespace {

constexpr double LongestStall = 100;
constexpr int SmallRecords = 100'000;
/// So many fill a record of the largest size that is read.
constexpr int Identifiers = 1'900'000;
/// A note with four bytes of UTF-8 a character.
constexpr int NotesOfLargeRecord = 60'000;

QString newUUID() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

Operation operation(const QString &text) {
    return Operation::make(newUUID(), QStringLiteral("Title"), text, 0, {});
}

/// The largest record of identifiers only.
Transaction largeRecordOfIdentifiers() {
    Transaction transaction;
    for (int i = 0; i < Identifiers; ++i) {
        transaction.superseded.append(QUuid::createUuid().toRfc4122());
    }
    return transaction;
}

/// The largest record of notes only.
Transaction largeRecordOfNotes() {
    Transaction transaction;
    for (int i = 0; i < NotesOfLargeRecord; ++i) {
        transaction.operations.append(operation(QString(900, u'x')));
    }
    return transaction;
}

/// A store whose records the inbox of an engine does not know yet.
class LargeStore {
public:
    LargeStore() {
        malloc_trim(0);
        const auto location = m_host.addLocation();
        m_state = m_host.addState(location, m_host.inbox());
        m_folder = location->URL().path() + QStringLiteral("/transactions/") + InboxUUID + u'/';
        m_state->setEnabled(true);
        m_host.save();
        QDir().mkpath(m_folder);
    }

    void write(const Transaction &transaction) const {
        const QByteArray record = transaction.encoded();
        QFile file(m_folder + TransactionName::of(record));
        if (record.size() > Transaction::SizeLimit || !file.open(QIODevice::WriteOnly) ||
            file.write(record) != record.size()) {
            qFatal("cannot write a record");
        }
    }

    /// Synchronizes twice.
    void measure(const QString &name, Benchmark::Report &report, double seconds,
                 double idleSeconds) {
        const auto add = [&](const char *what, double ours, double reference, const char *unit) {
            report.add(
                {name + QLatin1StringView(what), ours, reference, QString::fromUtf8(unit), 1.0});
        };
        {
            StallMeter meter;
            const PeakMemory memory;
            add(": time / target", synchronize(), seconds, "s");
            add(": longest stall / 100 ms", static_cast<double>(meter.longest()), LongestStall,
                "ms");
            add(": memory / 1,000 MB", static_cast<double>(memory.growth()), 1000, "MB");
        }
        StallMeter meter;
        add(": later synchronization / target", synchronize(), idleSeconds, "s");
        add(": its longest stall / 100 ms", static_cast<double>(meter.longest()), LongestStall,
            "ms");
    }

private:
    /// Returns the seconds that it takes.
    double synchronize() const {
        QEventLoop loop;
        QElapsedTimer timer;
        timer.start();
        m_host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {m_state}, [&] { loop.quit(); });
        loop.exec();
        return static_cast<double>(timer.elapsed()) / 1000;
    }

    mutable TestHost m_host;
    std::shared_ptr<QVSyncState> m_state;
    QString m_folder;
};

void measureLargeStores(Benchmark::Report &report) {
    {
        LargeStore store;
        store.write(largeRecordOfIdentifiers());
        store.measure(QStringLiteral("64 MiB of identifiers"), report, 60, 3);
    }
    {
        LargeStore store;
        store.write(largeRecordOfNotes());
        store.measure(QStringLiteral("64 MiB of notes"), report, 60, 1);
    }
    LargeStore store;
    for (int i = 0; i < SmallRecords; ++i) {
        store.write({{operation(QStringLiteral("Text"))}, {QUuid::createUuid().toRfc4122()}});
    }
    store.measure(QStringLiteral("100,000 records"), report, 120, 3);
}

const Benchmark::Suite largeStoreSuite(QStringLiteral("large stores"), &measureLargeStores);

}  // namespace
