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

QStringList newKey(TestAuthority::Weakness weakness) {
    const QStringList kind = weakness == TestAuthority::Weakness::Key
                                 ? QStringList{QStringLiteral("rsa:512")}
                                 : QStringList{QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                                               QStringLiteral("ec_paramgen_curve:P-256")};
    return QStringList{QStringLiteral("req"), QStringLiteral("-nodes"), QStringLiteral("-newkey")} +
           kind;
}

QString digestOf(TestAuthority::Weakness weakness) {
    return weakness == TestAuthority::Weakness::Digest ? QStringLiteral("-sha1")
                                                       : QStringLiteral("-sha256");
}

}  // namespace

TestAuthority::TestAuthority(const QString &name, Weakness weakness)
    : m_identity{m_folder.filePath(QStringLiteral("authority.pem")),
                 m_folder.filePath(QStringLiteral("authority.key"))} {
    runOpenssl(newKey(weakness) +
               QStringList{digestOf(weakness), QStringLiteral("-x509"), QStringLiteral("-utf8"),
                           QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"),
                           QStringLiteral("/CN=") + name, QStringLiteral("-keyout"), m_identity.key,
                           QStringLiteral("-out"), m_identity.certificate});
}

TestAuthority::TestAuthority(const TestAuthority &issuer, const QString &name,
                             const QStringList &extensions, Weakness weakness)
    : m_identity(issuer.issueWith(name, extensions, 1, weakness)) {}

QSslCertificate TestAuthority::certificate() const {
    return QSslCertificate::fromPath(m_identity.certificate).value(0);
}

TestAuthority::Identity TestAuthority::issue(const QString &names, int days,
                                             Weakness weakness) const {
    return issueWith(QStringLiteral("Test Server"), {QStringLiteral("subjectAltName=") + names},
                     days, weakness);
}

TestAuthority::Identity TestAuthority::issueWith(const QString &commonName,
                                                 const QStringList &extensions, int days,
                                                 Weakness weakness) const {
    const QString stem = m_folder.filePath(QString::number(++m_count));
    const Identity identity = {stem + QStringLiteral(".pem"), stem + QStringLiteral(".key")};
    const QString request = stem + QStringLiteral(".csr");
    const QString configuration = stem + QStringLiteral(".extensions");
    QFile file(configuration);
    if (!file.open(QIODevice::WriteOnly) || file.write(extensions.join(u'\n').toLatin1()) < 0) {
        throw std::runtime_error("cannot write " + configuration.toStdString());
    }
    file.close();
    runOpenssl(newKey(weakness) + QStringList{QStringLiteral("-subj"),
                                              QStringLiteral("/CN=") + commonName,
                                              QStringLiteral("-keyout"), identity.key,
                                              QStringLiteral("-out"), request});
    // "req" could sign as well, but not for 0 days, which make an expired certificate.
    runOpenssl({QStringLiteral("x509"), QStringLiteral("-req"), digestOf(weakness),
                QStringLiteral("-in"), request, QStringLiteral("-CA"), m_identity.certificate,
                QStringLiteral("-CAkey"), m_identity.key, QStringLiteral("-CAcreateserial"),
                QStringLiteral("-days"), QString::number(days), QStringLiteral("-extfile"),
                configuration, QStringLiteral("-out"), identity.certificate});
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
