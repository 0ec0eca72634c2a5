#include "Engine/Stores/Http/ServerCertificate.h"

#include <openssl/x509.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtNetwork/QSslConfiguration>
#include <QtTest/QtTest>

#include "Support/TestAuthority.h"
#include "Support/TestMain.h"

/// The authorities of the system are those of the test.
class ServerCertificateTest : public QObject {
    Q_OBJECT
private:
    using Errors = QList<QSslError::SslError>;

    const TestAuthority m_ofSystem{QStringLiteral("Authority in the file")};
    QTemporaryDir m_folder;

    static QList<QSslCertificate> issue(const TestAuthority &authority, const QString &names,
                                        int days = 1) {
        return QSslCertificate::fromPath(authority.issue(names, days).certificate);
    }
    static QList<QSslCertificate> issueWith(const TestAuthority &authority,
                                            const QString &commonName,
                                            const QStringList &extensions) {
        return QSslCertificate::fromPath(authority.issueWith(commonName, extensions).certificate);
    }

    static Errors errors(const QList<QSslCertificate> &chain,
                         const QString &host = QStringLiteral("localhost")) {
        Errors errors;
        const QList<QSslError> found = ServerCertificate::errors(chain, host);
        for (const QSslError &error : found) {
            errors.append(error.error());
        }
        return errors;
    }

    static Errors untrusted() {
        return {QSslError::UnableToGetLocalIssuerCertificate,
                QSslError::UnableToVerifyFirstCertificate};
    }

    void write(const QString &name, const QSslCertificate &certificate) const {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(certificate.toPem()) > 0);
    }

private Q_SLOTS:
    void initTestCase() {
        write(QStringLiteral("file"), m_ofSystem.certificate());
        QVERIFY(
            qputenv("SSL_CERT_FILE", QFile::encodeName(m_folder.filePath(QStringLiteral("file")))));
        QVERIFY(qputenv("SSL_CERT_DIR", QFile::encodeName(m_folder.path())));
        // The test must not be as strict or as lenient as the computer on which it runs.
        QVERIFY(QSslConfiguration::defaultConfiguration().caCertificates().isEmpty());
    }

    void anAuthorityOfTheSystemIsTrusted() {
        QCOMPARE(errors(issue(m_ofSystem, QStringLiteral("DNS:localhost"))), Errors());
    }

    void anotherAuthorityIsNot() {
        const TestAuthority other;
        const auto chain = issue(other, QStringLiteral("DNS:localhost"));
        QCOMPARE(errors(chain), untrusted());
        QCOMPARE(errors(chain + QList{other.certificate()}),
                 Errors{QSslError::SelfSignedCertificateInChain});
        QCOMPARE(errors({other.certificate()}),
                 (Errors{QSslError::SelfSignedCertificate, QSslError::HostNameMismatch}));
    }

    void anAuthorityOfTheSameNameIsNot() {
        const TestAuthority impostor(QStringLiteral("Authority in the file"));
        QCOMPARE(errors(issue(impostor, QStringLiteral("DNS:localhost"))), untrusted());
    }

    void anAuthorityThatIsAddedToTheFolderIsFound() {
        const TestAuthority added(QStringLiteral("Authority that is added"));
        const auto chain = issue(added, QStringLiteral("DNS:localhost"));
        QCOMPARE(errors(chain), untrusted());
        const unsigned long hash =
            X509_subject_name_hash(static_cast<X509 *>(added.certificate().handle()));
        write(QStringLiteral("%1.0").arg(hash, 8, 16, QLatin1Char('0')), added.certificate());
        QCOMPARE(errors(chain), Errors());
    }

    void anAuthorityOfTheApplicationIsTrusted() {
        const TestAuthority other;
        const auto chain = issue(other, QStringLiteral("DNS:localhost"));
        {
            const TrustedAuthority trusted(other);
            QCOMPARE(errors(chain), Errors());
            QCOMPARE(errors(issue(m_ofSystem, QStringLiteral("DNS:localhost"))), Errors());
        }
        QCOMPARE(errors(chain), untrusted());
    }

    void intermediateAuthoritiesCanBeInAnyOrder() {
        const TestAuthority outer(m_ofSystem, QStringLiteral("Outer authority"));
        const TestAuthority inner(outer, QStringLiteral("Inner authority"));
        const TestAuthority foreign;
        const auto own = issue(inner, QStringLiteral("DNS:localhost"));
        const QSslCertificate first = inner.certificate();
        const QSslCertificate second = outer.certificate();
        QCOMPARE(errors(own + QList{first, second}), Errors());
        QCOMPARE(errors(own + QList{second, first}), Errors());
        QCOMPARE(errors(own + QList{second, foreign.certificate(), first}), Errors());
        QCOMPARE(errors(own + QList{foreign.certificate(), first, second}), Errors());
        QCOMPARE(errors(own + QList{first}), Errors{QSslError::UnableToGetLocalIssuerCertificate});
        QCOMPARE(errors(own + QList{second}), untrusted());
    }

    void onlyAnAuthorityIssuesCertificates() {
        const TestAuthority server(m_ofSystem, QStringLiteral("Server"),
                                   {QStringLiteral("basicConstraints=CA:FALSE")});
        const auto chain = issue(server, QStringLiteral("DNS:localhost"));
        QVERIFY(
            errors(chain + QList{server.certificate()}).contains(QSslError::InvalidCaCertificate));
    }

    void aCertificateOfClientsIsNotOneOfAServer_data() {
        QTest::addColumn<QString>("usage");
        QTest::addColumn<bool>("isRight");
        QTest::newRow("client") << QStringLiteral("clientAuth") << false;
        QTest::newRow("server") << QStringLiteral("serverAuth") << true;
        QTest::newRow("both") << QStringLiteral("clientAuth,serverAuth") << true;
    }
    void aCertificateOfClientsIsNotOneOfAServer() {
        QFETCH(const QString, usage);
        QFETCH(const bool, isRight);
        QCOMPARE(errors(issueWith(m_ofSystem, QStringLiteral("Test Server"),
                                  {QStringLiteral("subjectAltName=DNS:localhost"),
                                   QStringLiteral("extendedKeyUsage=") + usage})),
                 isRight ? Errors() : Errors{QSslError::InvalidPurpose});
    }

    void anAddressMustBeAnAddressOfTheCertificate() {
        const QString address = QStringLiteral("127.0.0.1");
        QCOMPARE(errors(issueWith(m_ofSystem, address, {}), address),
                 Errors{QSslError::HostNameMismatch});
    }

    void theServerIsOneOfTheCertificate_data() {
        QTest::addColumn<QString>("names");
        QTest::addColumn<QString>("host");
        QTest::addColumn<bool>("isRight");
        const QString wildcard = QStringLiteral("DNS:*.example.org");
        QTest::newRow("name") << QStringLiteral("DNS:one.example.org") << "one.example.org" << true;
        QTest::newRow("capitals") << QStringLiteral("DNS:ONE.example.org") << "one.Example.org"
                                  << true;
        QTest::newRow("other name")
            << QStringLiteral("DNS:one.example.org") << "two.example.org" << false;
        QTest::newRow("second name")
            << QStringLiteral("DNS:a.example.org,DNS:b.example.org") << "b.example.org" << true;
        QTest::newRow("wildcard") << wildcard << "one.example.org" << true;
        QTest::newRow("wildcard, two levels") << wildcard << "a.one.example.org" << false;
        QTest::newRow("wildcard, no level") << wildcard << "example.org" << false;
        QTest::newRow("part of a level")
            << QStringLiteral("DNS:o*.example.org") << "one.example.org" << false;
        QTest::newRow("letters that are not ASCII")
            << QStringLiteral("DNS:xn--bcher-kva.example") << QStringLiteral("b\u00fccher.example")
            << true;
        QTest::newRow("address") << QStringLiteral("IP:127.0.0.1") << "127.0.0.1" << true;
        QTest::newRow("other address") << QStringLiteral("IP:127.0.0.1") << "127.0.0.2" << false;
        QTest::newRow("address as a name")
            << QStringLiteral("DNS:127.0.0.1") << "127.0.0.1" << false;
        QTest::newRow("address, version 6") << QStringLiteral("IP:::1") << "::1" << true;
    }
    void theServerIsOneOfTheCertificate() {
        QFETCH(const QString, names);
        QFETCH(const QString, host);
        QFETCH(const bool, isRight);
        QCOMPARE(errors(issue(m_ofSystem, names), host),
                 isRight ? Errors() : Errors{QSslError::HostNameMismatch});
    }

    void aWeakCertificateIsRefused_data() {
        QTest::addColumn<TestAuthority::Weakness>("weakness");
        QTest::newRow("short key") << TestAuthority::Weakness::Key;
        QTest::newRow("SHA-1") << TestAuthority::Weakness::Digest;
    }
    void aWeakCertificateIsRefused() {
        QFETCH(const TestAuthority::Weakness, weakness);
        const Errors weak{QSslError::CertificateBlacklisted};
        const QString names = QStringLiteral("DNS:localhost");
        const auto own =
            QSslCertificate::fromPath(m_ofSystem.issue(names, 1, weakness).certificate);
        QCOMPARE(errors(own), weak);
        const TestAuthority between(m_ofSystem, QStringLiteral("Weak authority"),
                                    {QStringLiteral("basicConstraints=CA:TRUE")}, weakness);
        QCOMPARE(errors(issue(between, names) + QList{between.certificate()}), weak);
    }

    /// Nobody but the computer vouches for it.
    void theSignatureOfATrustedAuthorityMayBeWeak() {
        const TestAuthority old(QStringLiteral("Old authority"), TestAuthority::Weakness::Digest);
        const TrustedAuthority trusted(old);
        QCOMPARE(errors(issue(old, QStringLiteral("DNS:localhost"))), Errors());
    }

    void anExpiredCertificateIsRefused() {
        QCOMPARE(errors(issue(m_ofSystem, QStringLiteral("DNS:localhost"), 0)),
                 Errors{QSslError::CertificateExpired});
    }

    void aCertificateThatIsMissingIsRefused() {
        QCOMPARE(errors({}), Errors{QSslError::NoPeerCertificate});
        QCOMPARE(errors({QSslCertificate()}), Errors{QSslError::NoPeerCertificate});
        QVERIFY(
            !errors(issue(m_ofSystem, QStringLiteral("DNS:localhost")) + QList{QSslCertificate()})
                 .isEmpty());
    }
};

VELMORA_TEST(ServerCertificateTest)
#include "ServerCertificateTest.moc"
