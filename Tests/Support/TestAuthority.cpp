#include "Support/TestAuthority.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <stdexcept>

namespace {

void runOpenssl(const QStringList &arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("openssl"), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error(
            "This test needs the program openssl: " + process.errorString().toStdString() + ' ' +
            process.readAll().toStdString());
    }
}

const QStringList NewKey = {QStringLiteral("req"),
                            QStringLiteral("-newkey"),
                            QStringLiteral("ec"),
                            QStringLiteral("-pkeyopt"),
                            QStringLiteral("ec_paramgen_curve:P-256"),
                            QStringLiteral("-nodes")};

}  // namespace

TestAuthority::TestAuthority(const QString &name)
    : m_identity{m_folder.filePath(QStringLiteral("authority.pem")),
                 m_folder.filePath(QStringLiteral("authority.key"))} {
    runOpenssl(NewKey + QStringList{QStringLiteral("-x509"), QStringLiteral("-utf8"),
                                    QStringLiteral("-days"), QStringLiteral("2"),
                                    QStringLiteral("-subj"), QStringLiteral("/CN=") + name,
                                    QStringLiteral("-keyout"), m_identity.key,
                                    QStringLiteral("-out"), m_identity.certificate});
}

QSslCertificate TestAuthority::certificate() const {
    return QSslCertificate::fromPath(m_identity.certificate).value(0);
}

TestAuthority::Identity TestAuthority::issue(const QString &names, int days) const {
    const QString stem = m_folder.filePath(QString::number(++m_count));
    const Identity identity = {stem + QStringLiteral(".pem"), stem + QStringLiteral(".key")};
    const QString request = stem + QStringLiteral(".csr");
    const QString extensions = stem + QStringLiteral(".extensions");
    QFile file(extensions);
    if (!file.open(QIODevice::WriteOnly) || file.write("subjectAltName=" + names.toLatin1()) < 0) {
        throw std::runtime_error("cannot write " + extensions.toStdString());
    }
    file.close();
    runOpenssl(NewKey + QStringList{QStringLiteral("-subj"), QStringLiteral("/CN=Test Server"),
                                    QStringLiteral("-keyout"), identity.key, QStringLiteral("-out"),
                                    request});
    // "req" could sign as well, but not for 0 days, which make an expired certificate.
    runOpenssl({QStringLiteral("x509"), QStringLiteral("-req"), QStringLiteral("-in"), request,
                QStringLiteral("-CA"), m_identity.certificate, QStringLiteral("-CAkey"),
                m_identity.key, QStringLiteral("-CAcreateserial"), QStringLiteral("-days"),
                QString::number(days), QStringLiteral("-extfile"), extensions,
                QStringLiteral("-out"), identity.certificate});
    return identity;
}

TrustedAuthority::TrustedAuthority(const TestAuthority &authority)
    : m_before(QSslConfiguration::defaultConfiguration()) {
    QSslConfiguration configuration = m_before;
    configuration.addCaCertificate(authority.certificate());
    QSslConfiguration::setDefaultConfiguration(configuration);
}

TrustedAuthority::~TrustedAuthority() {
    QSslConfiguration::setDefaultConfiguration(m_before);
}
