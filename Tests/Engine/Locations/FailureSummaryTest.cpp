#include "Engine/Locations/FailureSummary.h"

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"
#include "Support/TestMain.h"

class FailureSummaryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aSavedFailureIsShownInThePresentLanguage() {
        QTranslator german;
        QVERIFY(german.load(QStringLiteral(":/VelmoraSync/Translations/Sync_de.qm")));
        addLocalizationTable(SyncTable, &german);
        const QString summary =
            FailureSummary::of(engineError(EngineErrorCode::PasswordRefused, QString()));
        QCOMPARE(summary, QStringLiteral("falsches Passwort"));
        const QString saved = FailureSummary::english(summary);
        QCOMPARE(FailureSummary::localized(saved), summary);
        removeLocalizationTables(&german);
        QCOMPARE(FailureSummary::localized(saved), QStringLiteral("wrong password"));
    }

    void eachFailureOfASynchronizationHasASummary() {
        using Code = EngineErrorCode;
        for (const Code code :
             {Code::ProfileNotWritten, Code::InvalidDatabase, Code::StoreUnreachable,
              Code::DamagedRecord, Code::BlobMissing, Code::BlobRefused, Code::AccessDenied,
              Code::StoreFull, Code::CertificateUntrusted, Code::UnknownVersion,
              Code::RemovalUndecided, Code::PasswordRefused, Code::ReadOnly, Code::NotServed}) {
            QVERIFY(!FailureSummary::of(engineError(code, QString())).isEmpty());
        }
    }

    void aTextWithoutTranslationStaysAsItIs() {
        for (const QString &text : {QString(), QStringLiteral("kein Platz")}) {
            QCOMPARE(FailureSummary::localized(FailureSummary::english(text)), text);
        }
    }
};

VELMORA_TEST(FailureSummaryTest)
#include "FailureSummaryTest.moc"
