#include "Engine/Synchronization/DamagedRecords.h"

#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

void DamagedRecords::add(const Record &record, const Error &error) {
    if (isEngineError(error, EngineErrorCode::BlobMissing)) {
        m_missing.append(record);
        return;
    }
    if (record.written && TransactionRecords::isOfOneRecord(error)) {
        m_lost.append(record.name);
    }
    if (isEngineError(error, EngineErrorCode::DamagedRecord) && m_damaged.size() < MostSetAside) {
        m_damaged.append(record);
    } else {
        m_problems.add(error);
    }
}

Expected<void> DamagedRecords::setAside(const TransactionRecords &records,
                                        const EngineFuture &future) {
    qint64 size = 0;
    for (const Record &damaged : std::as_const(m_damaged)) {
        if (future.isCancelled()) {
            break;
        }
        if (size < BytesToSetAside) {
            size += move(records, damaged);
        } else {
            m_problems.add(damagedRecord(records.place(damaged.name)));
        }
    }
    return future.isCancelled() ? failure(operationCancelled()) : reportMissing(records);
}

qint64 DamagedRecords::move(const TransactionRecords &records, const Record &damaged) {
    const Expected<TransactionRecords::Copy> copy = records.setAside(damaged.name, damaged.written);
    if (!copy) {
        // Another computer has set it aside.
        if (!isEngineError(copy.error(), EngineErrorCode::BlobMissing)) {
            m_problems.add(copy.error());
        }
        return 0;
    }
    const EngineErrorCode code =
        damaged.written ? EngineErrorCode::RecordRepaired : EngineErrorCode::DamagedRecord;
    const QString text = damaged.written
                             ? localizedSyncString(
                                   "The record “%1” was damaged. It was moved to “%2”, and this "
                                   "computer writes its contents again.")
                             : localizedSyncString(
                                   "The record “%1” was damaged and was moved to “%2”. Synchronize "
                                   "on the computer that wrote it to restore its contents.");
    m_problems.add(engineError(code, text.arg(records.place(damaged.name), copy->place)));
    return copy->size;
}

Expected<void> DamagedRecords::reportMissing(const TransactionRecords &records) {
    if (m_missing.isEmpty()) {
        return {};
    }
    return records.listed().map([&](const QSet<QString> &listed) {
        for (const Record &missing : std::as_const(m_missing)) {
            if (!listed.contains(missing.name)) {
                continue;
            }
            if (missing.written) {
                m_lost.append(missing.name);
            }
            m_problems.add(
                missing.written
                    ? engineError(EngineErrorCode::RecordRepaired,
                                  "The location lists the record “%1” but does not return it. This "
                                  "computer writes its contents again.",
                                  records.place(missing.name))
                    : records.notReturned(missing.name));
        }
    });
}
