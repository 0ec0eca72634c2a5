#pragma once

#include <QtCore/QEventLoop>

#include "Engine/Foundation/WorkerThreads.h"
#include "Engine/Synchronization/SyncJob.h"

/// Synchronizes as the program does, with the merges that follow. Runs a nested event loop until
/// the job has ended.
inline Expected<void> runJob(const ProfileDatabase &profile, EngineNoteLibrary &library,
                             const StoreSession::Subject &subject,
                             std::shared_ptr<BlobStore> store) {
    WorkerThreads threads;
    const auto job = std::make_shared<SyncJob>(SyncJob::Kind::Synchronization, profile, library,
                                               subject, std::move(store));
    QEventLoop loop;
    job->start(threads, [&] { loop.quit(); });
    loop.exec();
    return job->result();
}
