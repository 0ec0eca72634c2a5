#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslError>

/// The verification of the certificate of a server with the authorities that this computer trusts.
/// Thread-safe.
///
/// It is not that of Qt, which reads all authorities of the system each time: about 0.2 s of
/// processor time for each connection.
namespace ServerCertificate {

/// Returns the errors of the first certificate of `chain` as that of `host`, each once; none if it
/// can be trusted. The other certificates are what the server presents with it, in any order. An
/// empty chain and certificates that cannot be read are errors. A certificate with an RSA key of
/// less than 1024 bits or one that is as weak, or signed with SHA-1 or MD5, is an error of the code
/// CertificateBlacklisted, and so is one of an authority that issued it; how an authority that this
/// computer trusts has signed its own certificate does not matter.
///
/// The authorities are those of OpenSSL's folder and file of certificates, and those that are added
/// to the default QSslConfiguration. The first call of the process reads OpenSSL's file, which
/// takes less than 0.1 s. Authorities that are added to the folder later are found; what is removed
/// counts until the process ends. Revocations are not checked. Uses no network.
QList<QSslError> errors(const QList<QSslCertificate> &chain, const QString &host);

}  // namespace ServerCertificate
