#include "Engine/Stores/Http/CertificateQuestion.h"

#include <QtNetwork/QSslCertificate>

#include "Host/SyncStrings.h"
#include "Platform/Foundation/DateText.h"

namespace {

/// Limit for text from an unknown source.
constexpr qsizetype LongestNameShown = 120;

QString shownName(const QString &name) {
    QString shown = name.simplified();
    shown.removeIf([](QChar character) { return !character.isPrint(); });
    return shown.size() <= LongestNameShown ? shown.trimmed()
                                            : shown.first(LongestNameShown) + u'…';
}

QString shownDate(const QDateTime &date) {
    return DateText::longDate(date.date());
}

}  // namespace

QString CertificateQuestion::fingerprint(const QSslCertificate &certificate) {
    return QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex(':').toUpper());
}

Question CertificateQuestion::make(const QString &server, const QSslCertificate &certificate,
                                   const QStringList &reasons) {
    const QStringList details = {
        reasons.join(u'\n'),
        QString(),
        localizedSyncString("Issued to: %1").arg(shownName(certificate.subjectDisplayName())),
        localizedSyncString("Issued by: %1").arg(shownName(certificate.issuerDisplayName())),
        localizedSyncString("Valid from %1 to %2")
            .arg(shownDate(certificate.effectiveDate()), shownDate(certificate.expiryDate())),
        localizedSyncString("Fingerprint (SHA-256): %1").arg(fingerprint(certificate)),
    };
    return {
        localizedSyncString(
            "The server “%1” cannot prove its identity. Trust its certificate for this location?")
            .arg(server),
        details.join(u'\n'), localizedSyncString("Trust This Certificate"),
        localizedSyncString("Do Not Trust")};
}
