#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Platform/Foundation/DateText.h"
#include "Support/AskedUser.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

/// A server whose certificate no authority vouches for, and the user who is asked about it.
class CertificateTrustTest : public QObject {
    Q_OBJECT
private:
    const TestAuthority m_authority;
    TestAuthority::Identity m_identity;
    std::unique_ptr<WebDAVServer> m_server;
    std::unique_ptr<TestHost> m_host;
    EngineFuture m_future;

    std::shared_ptr<EngineSyncLocation> location(qsizetype index = 0) {
        return std::dynamic_pointer_cast<EngineSyncLocation>(
            m_host->locations().syncLocations().at(index));
    }
    EngineErrorCode open(qsizetype index = 0) {
        return code(location(index)->createBlobStore()->open(m_future));
    }
    const QList<Question> &questions() { return m_host->application().questions(); }
    int rows() {
        return m_host->engine()
            .profile()
            .value(QStringLiteral("SELECT count(*) FROM trusted_certificates"))
            .value()
            .toInt();
    }
    /// Lets the user be asked, and accepts.
    void trust() {
        m_host->application().answerQuestions(true);
        QCOMPARE(open(), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(rows(), 1);
    }

private Q_SLOTS:
    void init() {
        m_identity = m_authority.issue(QStringLiteral("DNS:localhost"));
        m_server = std::make_unique<WebDAVServer>(WebDAVServer::Options{
            .authentication = WebDAVServer::Authentication::None, .identity = m_identity});
        m_host = std::make_unique<TestHost>();
        m_host->addLocation(m_server->URLText(QStringLiteral("a.qvSyncStore")));
        m_host->addLocation(m_server->URLText(QStringLiteral("b.qvSyncStore")));
        m_host->save();
    }

    void cleanup() {
        m_host.reset();
        m_server.reset();
    }

    void theQuestionShowsServerCertificateAndReasons() {
        QCOMPARE(open(), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(questions().size(), 1);
        const Question question = questions().first();
        const QSslCertificate certificate =
            QSslCertificate::fromPath(m_identity.certificate).value(0);
        QCOMPARE(question.text, QStringLiteral("The server “localhost:%1” cannot prove its "
                                               "identity. Trust its certificate for this location?")
                                    .arg(m_server->port()));
        for (const QString &part :
             {QStringLiteral("issued by an authority that this computer does not trust"),
              QStringLiteral("Issued to: Test Server\n"),
              QStringLiteral("Issued by: Test Authority\n"),
              DateText::longDate(certificate.effectiveDate().date()),
              DateText::longDate(certificate.expiryDate().date()),
              QString::fromLatin1(
                  certificate.digest(QCryptographicHash::Sha256).toHex(':').toUpper())}) {
            QVERIFY2(question.details.contains(part), qPrintable(question.details));
        }
        QCOMPARE(question.acceptTitle, QStringLiteral("Trust This Certificate"));
        QCOMPARE(question.refuseTitle, QStringLiteral("Do Not Trust"));
    }

    void aRefusedQuestionIsNotAskedAgainInThisRun() {
        QCOMPARE(open(), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(questions().size(), 1);
        QCoreApplication::processEvents();
        QCOMPARE(open(), EngineErrorCode::CertificateUntrusted);
        // Calls to the main thread come one after the other.
        QCOMPARE(open(1), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(questions().size(), 2);
        QCOMPARE(rows(), 0);
        m_host->restart();
        QCOMPARE(open(), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(questions().size(), 3);
    }

    void whoAcceptsFindsTheNextTryWorking() {
        trust();
        QCOMPARE(open(), EngineErrorCode());
        QCOMPARE(questions().size(), 1);
    }

    void theUsersAnswerIsStored() {
        trust();
        m_host->restart();
        QCOMPARE(open(), EngineErrorCode());
        QCOMPARE(questions().size(), 1);
    }

    void anotherLocationIsAskedForItself() {
        trust();
        m_host->application().answerQuestions(false);
        QCOMPARE(open(1), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(questions().size(), 2);
        QCOMPARE(rows(), 1);
    }

    void anotherCertificateIsNotTrusted() {
        trust();
        m_host->application().answerQuestions(false);
        const quint16 port = m_server->port();
        m_server.reset();
        m_server = std::make_unique<WebDAVServer>(
            WebDAVServer::Options{.authentication = WebDAVServer::Authentication::None,
                                  .identity = m_authority.issue(QStringLiteral("DNS:localhost")),
                                  .port = port});
        QCOMPARE(open(), EngineErrorCode::CertificateUntrusted);
        QTRY_COMPARE(questions().size(), 2);
        QVERIFY(questions().first().details != questions().last().details);
    }

    void aNewCertificateAtEachConnectionRaisesOneQuestion() {
        AskedUser user;
        const auto trust = m_host->engine().plugin().context().certificateTrust;
        const auto askAboutNewCertificate = [&](const QString &place) {
            trust->ask(place, QStringLiteral("h"), TestAuthority().certificate(), {});
            QCoreApplication::processEvents();
            return user.asked().size();
        };
        const QString place = location()->identifier();
        QCOMPARE(askAboutNewCertificate(place), 1);
        QCOMPARE(askAboutNewCertificate(place), 1);
        QCOMPARE(askAboutNewCertificate(QStringLiteral("other")), 2);
        user.answerAll([](const Question &) { return false; });
        QCOMPARE(askAboutNewCertificate(place), 2);

        // Without pauses the next one is asked about, until the location is forgotten.
        user.think();
        trust->setPauses({});
        QCOMPARE(askAboutNewCertificate(QStringLiteral("third")), 3);
        QCOMPARE(askAboutNewCertificate(QStringLiteral("third")), 3);
        QCOMPARE(description(trust->forget(QStringLiteral("third"))), QString());
        QCOMPARE(user.waiting(), 0);
        QCOMPARE(askAboutNewCertificate(QStringLiteral("third")), 4);
        trust->close();
        QCOMPARE(user.waiting(), 0);
    }

    void theTrustOfARemovedLocationIsForgotten() {
        trust();
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
        m_host->restart();
        QCOMPARE(rows(), 0);
    }

    void aFailedReadTrustsNothing() {
        trust();
        const ProfileDatabase &profile = m_host->engine().profile();
        const QString identifier = location()->identifier();
        const QSslCertificate certificate =
            QSslCertificate::fromPath(m_identity.certificate).value(0);
        const auto other = std::make_shared<CertificateTrust>(profile);
        {
            const FailingTable failing(profile, QStringLiteral("trusted_certificates"),
                                       FailingTable::Fault::AllRows);
            QVERIFY(!other->load());
        }
        QVERIFY(!other->contains(identifier, certificate));
        QCOMPARE(description(other->load()), QString());
        QVERIFY(other->contains(identifier, certificate));
    }

    void aLongNameInACertificateIsTruncatedInTheQuestion() {
        m_host->application().answerQuestions(false);
        const QString name = QStringLiteral("Bank\nof Ida") + QString(5, QChar(0x202e));
        m_host->engine().plugin().context().certificateTrust->ask(
            QStringLiteral("x"), QStringLiteral("h"), TestAuthority(name).certificate(), {});
        QTRY_COMPARE(questions().size(), 1);
        QVERIFY(questions().first().details.contains(QStringLiteral("Issued to: Bank of Ida\n")));
    }

    void nothingIsTrustedOnceTheEngineHasEnded() {
        trust();
        const auto trusted = m_host->engine().plugin().context().certificateTrust;
        const QSslCertificate certificate =
            QSslCertificate::fromPath(m_identity.certificate).value(0);
        const QString identifier = location()->identifier();
        QVERIFY(trusted->contains(identifier, certificate));
        m_host.reset();
        QVERIFY(!trusted->contains(identifier, certificate));
        trusted->ask(identifier, QStringLiteral("h"), m_authority.certificate(), {});
        QVERIFY(!trusted->contains(identifier, m_authority.certificate()));
    }
};

VELMORA_TEST(CertificateTrustTest)
#include "CertificateTrustTest.moc"
