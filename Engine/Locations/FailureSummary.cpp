#include "Engine/Locations/FailureSummary.h"

#include <array>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

namespace {

struct Summary {
    EngineErrorCode code;
    const char *text;
};

constexpr std::array Summaries{
    Summary{EngineErrorCode::PasswordRefused, QT_TRANSLATE_NOOP("Sync", "wrong password")},
    Summary{EngineErrorCode::AccessDenied, QT_TRANSLATE_NOOP("Sync", "access denied")},
    Summary{EngineErrorCode::ReadOnly, QT_TRANSLATE_NOOP("Sync", "read-only")},
    Summary{EngineErrorCode::StoreFull, QT_TRANSLATE_NOOP("Sync", "no space left")},
    Summary{EngineErrorCode::StoreUnreachable, QT_TRANSLATE_NOOP("Sync", "not available")},
    Summary{EngineErrorCode::CertificateUntrusted,
            QT_TRANSLATE_NOOP("Sync", "certificate not trusted")},
    Summary{EngineErrorCode::DamagedRecord, QT_TRANSLATE_NOOP("Sync", "damaged record")},
    Summary{EngineErrorCode::InvalidDatabase, QT_TRANSLATE_NOOP("Sync", "invalid name or text")},
    Summary{EngineErrorCode::BlobMissing, QT_TRANSLATE_NOOP("Sync", "a file is missing")},
    Summary{EngineErrorCode::BlobRefused, QT_TRANSLATE_NOOP("Sync", "a file cannot be used")},
    Summary{EngineErrorCode::UnknownVersion,
            QT_TRANSLATE_NOOP("Sync", "a newer version is needed")},
    Summary{EngineErrorCode::NotServed, QT_TRANSLATE_NOOP("Sync", "not shared by the server")},
    Summary{EngineErrorCode::RemovalUndecided,
            QT_TRANSLATE_NOOP("Sync", "waiting for your decision")},
    Summary{EngineErrorCode::ProfileNotWritten,
            QT_TRANSLATE_NOOP("Sync", "the profile cannot be saved")},
};

}  // namespace

QString FailureSummary::of(const Error &error) {
    for (const Summary &summary : Summaries) {
        if (isEngineError(error, summary.code)) {
            return localizedSyncString(summary.text);
        }
    }
    return {};
}

QString FailureSummary::english(const QString &summary) {
    for (const Summary &each : Summaries) {
        if (localizedSyncString(each.text) == summary) {
            return QString::fromUtf8(each.text);
        }
    }
    return summary;
}

QString FailureSummary::localized(const QString &english) {
    return localizedSyncString(english.toUtf8().constData());
}
