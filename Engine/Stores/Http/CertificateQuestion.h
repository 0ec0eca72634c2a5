#pragma once

#include <QtCore/QStringList>

#include "Application/Interface/QuestionPresenter.h"

class QSslCertificate;

/// The question whether to trust a certificate that no authority vouches for. Thread-safe.
namespace CertificateQuestion {

/// Returns the question about `certificate`, which `server` presents and which `reasons`
/// (sentences) speak against. The certificate is not trusted: names are cut to 120 characters, and
/// characters that are not printable are omitted. `server` is shown as passed. `certificate` must
/// not be null. `reasons` are shown one per line, in order. The texts are localized.
Question make(const QString &server, const QSslCertificate &certificate,
              const QStringList &reasons);
/// Returns the SHA-256 digest of `certificate` as the question shows it. 32 bytes in upper-case
/// hexadecimal digits, separated by colons. The same text identifies the certificate in the
/// profile, so its form must not change.
QString fingerprint(const QSslCertificate &certificate);

}  // namespace CertificateQuestion
