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
/// Nearly as many as a record may have.
constexpr int Identifiers = 240'000;
/// Nearly as many as a record may have, with texts that together make it nearly as long as it may
/// be.
constexpr int NotesOfLargeRecord = 12'000;
constexpr int CharactersOfNote = 5'000;

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
        transaction.operations.append(operation(QString(CharactersOfNote, u'x')));
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

    void write(const Transaction &transaction) {
        const QByteArray record = transaction.encoded();
        QFile file(m_folder + TransactionName::of(record));
        if (!Transaction::decoded(record, {}) || !file.open(QIODevice::WriteOnly) ||
            file.write(record) != record.size()) {
            qFatal("cannot write a record");
        }
        m_rows += transaction.operations.size() + transaction.superseded.size();
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
            requireAllMerged();
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

    /// A record that was refused would be quick.
    void requireAllMerged() const {
        const auto count = m_host.engine().profile().value(QStringLiteral(
            "SELECT (SELECT count(*) FROM operations) + (SELECT count(*) FROM superseded)"));
        if (count.value_or(0).toLongLong() < m_rows) {
            qFatal("not all records were merged");
        }
    }

    mutable TestHost m_host;
    std::shared_ptr<QVSyncState> m_state;
    QString m_folder;
    qint64 m_rows = 0;
};

void measureLargeStores(Benchmark::Report &report) {
    {
        LargeStore store;
        store.write(largeRecordOfIdentifiers());
        store.measure(QStringLiteral("240,000 identifiers"), report, 60, 3);
    }
    {
        LargeStore store;
        store.write(largeRecordOfNotes());
        store.measure(QStringLiteral("60 MB of notes"), report, 60, 1);
    }
    LargeStore store;
    for (int i = 0; i < SmallRecords; ++i) {
        store.write({{operation(QStringLiteral("Text"))}, {QUuid::createUuid().toRfc4122()}});
    }
    store.measure(QStringLiteral("100,000 records"), report, 120, 3);
}

const Benchmark::Suite largeStoreSuite(QStringLiteral("large stores"), &measureLargeStores);

}  // namespace
