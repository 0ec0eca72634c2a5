#include "Platform/Security/UrlCredentialStorage.h"

#include <QtCore/QProcess>
#include <cstdio>

#include "Platform/Security/SecretStore.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"

namespace {

using Persistence = UrlCredential::Persistence;

UrlProtectionSpace basicSpace() {
    return {.host = QStringLiteral("example-host"),
            .port = 8080,
            .protocol = QStringLiteral("https"),
            .authenticationMethod = UrlAuthenticationMethodHttpBasic};
}

UrlCredential credential(const QString &user, const QString &password,
                         Persistence persistence = Persistence::Permanent) {
    return {.user = user, .password = password, .persistence = persistence};
}

const QString UserName = QStringLiteral("user");

/// What this program does when it is started as another process: it prints the password of a user,
/// or stores one and ends at once.
int runAsOtherProcess(const QStringList &arguments) {
    UrlCredentialStorage &storage = UrlCredentialStorage::shared();
    if (arguments.size() == 4) {
        storage.setCredentialForProtectionSpace(credential(arguments[2], arguments[3]),
                                                basicSpace());
        return 0;
    }
    const auto found = storage.credentialsForProtectionSpace(basicSpace()).value();
    std::fputs(found.value(arguments[2]).password.toByteArray().constData(), stdout);
    return 0;
}

}  // namespace

/// Each pair of store and storage is a run of its own.
class UrlCredentialStorageTest : public QObject {
    Q_OBJECT

    struct Run {
        SecretStore store;
        UrlCredentialStorage storage{store};
    };

    std::unique_ptr<SecretService> m_service;

    static void keep(const UrlCredential &kept, const UrlProtectionSpace &space) {
        Run run;
        run.storage.setCredentialForProtectionSpace(kept, space);
        QVERIFY(run.store.finishWriting());
    }

private Q_SLOTS:
    void init() { m_service = std::make_unique<SecretService>(); }
    void cleanup() { m_service.reset(); }

    void aStoredCredentialIsFoundAtOnceAndInALaterRun() {
        const UrlCredential stored = credential(UserName, QStringLiteral("secret"));
        {
            Run run;
            run.storage.setCredentialForProtectionSpace(stored, basicSpace());
            QCOMPARE(
                run.storage.credentialsForProtectionSpace(basicSpace()).value().value(UserName),
                stored);
        }
        QCOMPARE(Run().storage.credentialsForProtectionSpace(basicSpace()).value().value(UserName),
                 stored);
    }

    void aStoredCredentialIsFoundByAnotherProcessAndAfterRestarts() {
        keep(credential(UserName, QStringLiteral("secret")), basicSpace());
        for (const bool isRestarted : {false, true}) {
            if (isRestarted) {
                m_service->stopKeyring();
                m_service->stopBus();
                m_service->startBus();
                m_service->startKeyring();
            }
            QProcess other;
            other.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("UrlCredentialStorageTest"),
                         QStringLiteral("--other-process"), UserName});
            QVERIFY(other.waitForFinished());
            QCOMPARE(other.readAllStandardOutput(), QByteArray("secret"));
        }
    }

    void secretsStoredBeforeTheProcessEndsAreKept() {
        QProcess other;
        other.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("UrlCredentialStorageTest"), QStringLiteral("--other-process"),
                     UserName, QStringLiteral("secret")});
        QVERIFY(other.waitForFinished());
        QCOMPARE(Run()
                     .storage.credentialsForProtectionSpace(basicSpace())
                     .value()
                     .value(UserName)
                     .password,
                 QStringLiteral("secret"));
    }

    void textsOfAnyLanguageAreKept() {
        const UrlCredential stored =
            credential(QStringLiteral("Jürgen ☃ 名"), QStringLiteral("pässwörd 🔑 \" ' \\ \n"));
        UrlProtectionSpace space = basicSpace();
        space.host = QStringLiteral("bücher.example");
        space.realm = QStringLiteral("Büro „Nord“");
        keep(stored, space);
        QCOMPARE(Run().storage.credentialsForProtectionSpace(space).value().value(stored.user),
                 stored);
    }

    void anEmptyUserAndAnEmptyPasswordAreKept() {
        keep(credential(QString(), QString()), basicSpace());
        const auto found = Run().storage.credentialsForProtectionSpace(basicSpace()).value();
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.value(QString()), credential(QString(), QString()));
    }

    void aSpaceHasACredentialForEachUser() {
        const QString other = QStringLiteral("other");
        keep(credential(UserName, QStringLiteral("1")), basicSpace());
        keep(credential(other, QStringLiteral("2")), basicSpace());
        const auto found = Run().storage.credentialsForProtectionSpace(basicSpace()).value();
        QCOMPARE(found.size(), 2);
        QCOMPARE(found.value(UserName).password, QStringLiteral("1"));
        QCOMPARE(found.value(other).password, QStringLiteral("2"));
    }

    void settingReplacesTheCredentialOfTheSameUser() {
        keep(credential(UserName, QStringLiteral("old")), basicSpace());
        keep(credential(UserName, QStringLiteral("new")), basicSpace());
        QCOMPARE(Run()
                     .storage.credentialsForProtectionSpace(basicSpace())
                     .value()
                     .value(UserName)
                     .password,
                 QStringLiteral("new"));
        QCOMPARE(m_service->count({{QStringLiteral("user"), UserName}}), 1);
    }

    void spacesThatDifferInAnythingShareNoCredential_data() {
        QTest::addColumn<UrlProtectionSpace>("other");
        UrlProtectionSpace other = basicSpace();
        other.host = QStringLiteral("Example-Host");
        QTest::newRow("host") << other;
        other = basicSpace();
        other.port = 0;
        QTest::newRow("port") << other;
        other = basicSpace();
        other.protocol = QStringLiteral("http");
        QTest::newRow("protocol") << other;
        other = basicSpace();
        other.realm = QString();
        QTest::newRow("empty realm") << other;
        other.realm = QStringLiteral("realm");
        QTest::newRow("realm") << other;
        other = basicSpace();
        other.authenticationMethod = UrlAuthenticationMethodHttpDigest;
        QTest::newRow("authentication method") << other;
    }

    void spacesThatDifferInAnythingShareNoCredential() {
        QFETCH(UrlProtectionSpace, other);
        keep(credential(UserName, QStringLiteral("1")), basicSpace());
        QVERIFY(Run().storage.credentialsForProtectionSpace(other).value().isEmpty());
        keep(credential(UserName, QStringLiteral("2")), other);
        Run run;
        QCOMPARE(run.storage.credentialsForProtectionSpace(basicSpace())
                     .value()
                     .value(UserName)
                     .password,
                 QStringLiteral("1"));
        QCOMPARE(run.storage.credentialsForProtectionSpace(other).value().value(UserName).password,
                 QStringLiteral("2"));
    }

    void aSpaceHasADefaultCredentialOnceOneIsSet() {
        const UrlCredential first = credential(UserName, QStringLiteral("1"));
        const UrlCredential second = credential(QStringLiteral("other"), QStringLiteral("2"));
        keep(first, basicSpace());
        QVERIFY(!Run().storage.defaultCredentialForProtectionSpace(basicSpace()).value());
        for (const UrlCredential &chosen : {second, first}) {
            {
                Run run;
                run.storage.setDefaultCredentialForProtectionSpace(chosen, basicSpace());
                QCOMPARE(run.storage.defaultCredentialForProtectionSpace(basicSpace()).value(),
                         chosen);
            }
            QCOMPARE(Run().storage.defaultCredentialForProtectionSpace(basicSpace()).value(),
                     chosen);
        }
        Run run;
        QCOMPARE(run.storage.credentialsForProtectionSpace(basicSpace()).value().size(), 2);
        UrlProtectionSpace digest = basicSpace();
        digest.authenticationMethod = UrlAuthenticationMethodHttpDigest;
        QVERIFY(!run.storage.defaultCredentialForProtectionSpace(digest).value());
    }

    void theDefaultCredentialFollowsItsPassword() {
        Run run;
        run.storage.setDefaultCredentialForProtectionSpace(
            credential(UserName, QStringLiteral("old")), basicSpace());
        run.storage.setCredentialForProtectionSpace(credential(UserName, QStringLiteral("new")),
                                                    basicSpace());
        QCOMPARE(run.storage.defaultCredentialForProtectionSpace(basicSpace()).value()->password,
                 QStringLiteral("new"));
    }

    void aCredentialForTheSessionEndsWithTheRun() {
        const UrlCredential passing =
            credential(UserName, QStringLiteral("secret"), Persistence::ForSession);
        {
            Run run;
            run.storage.setDefaultCredentialForProtectionSpace(passing, basicSpace());
            QCOMPARE(
                run.storage.credentialsForProtectionSpace(basicSpace()).value().value(UserName),
                passing);
            QCOMPARE(run.storage.defaultCredentialForProtectionSpace(basicSpace()).value(),
                     passing);
        }
        Run later;
        QVERIFY(later.storage.credentialsForProtectionSpace(basicSpace()).value().isEmpty());
        QVERIFY(!later.storage.defaultCredentialForProtectionSpace(basicSpace()).value());
    }

    void aCredentialWithoutPersistenceIsNotStored() {
        Run run;
        const UrlCredential none =
            credential(UserName, QStringLiteral("secret"), Persistence::None);
        run.storage.setCredentialForProtectionSpace(none, basicSpace());
        run.storage.setDefaultCredentialForProtectionSpace(none, basicSpace());
        QVERIFY(run.storage.credentialsForProtectionSpace(basicSpace()).value().isEmpty());
        QVERIFY(!run.storage.defaultCredentialForProtectionSpace(basicSpace()).value());
    }

    void anAbsentSpaceHasNoCredentialsAndStoresNone() {
        Run run;
        const UrlCredential some = credential(UserName, QStringLiteral("secret"));
        run.storage.setCredentialForProtectionSpace(some, std::nullopt);
        run.storage.setDefaultCredentialForProtectionSpace(some, std::nullopt);
        QVERIFY(run.storage.credentialsForProtectionSpace(std::nullopt).value().isEmpty());
        QVERIFY(!run.storage.defaultCredentialForProtectionSpace(std::nullopt).value());
        QVERIFY(run.store.finishWriting());
        QCOMPARE(m_service->count({{QStringLiteral("user"), UserName}}), 0);
    }

    void withoutAServiceACredentialIsFoundUntilTheRunEnds() {
        m_service->stopKeyring();
        const UrlCredential stored = credential(UserName, QStringLiteral("secret"));
        {
            Run run;
            run.storage.setDefaultCredentialForProtectionSpace(stored, basicSpace());
            QVERIFY(!run.store.finishWriting());
            QCOMPARE(
                run.storage.credentialsForProtectionSpace(basicSpace()).value().value(UserName),
                stored);
            QCOMPARE(run.storage.defaultCredentialForProtectionSpace(basicSpace()).value(), stored);
        }
        m_service->startKeyring();
        QVERIFY(Run().storage.credentialsForProtectionSpace(basicSpace()).value().isEmpty());
    }

    void aCredentialStoredByTheSharedStorageIsKept() {
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            credential(UserName, QStringLiteral("shared")), basicSpace());
        QVERIFY(SecretStore::shared().finishWriting());
        QCOMPARE(Run()
                     .storage.credentialsForProtectionSpace(basicSpace())
                     .value()
                     .value(UserName)
                     .password,
                 QStringLiteral("shared"));
    }
};

VELMORA_TEST_PROGRAM(UrlCredentialStorageTest)(int argumentCount, char **arguments) {
    if (argumentCount > 1 && qstrcmp(arguments[1], "--other-process") == 0) {
        // Items are found by the application that has stored them.
        QCoreApplication::setApplicationName(QStringLiteral("velmora-tests"));
        const QCoreApplication application(argumentCount, arguments);
        return runAsOtherProcess(QCoreApplication::arguments());
    }
    prepareTestProcess();
    const QApplication application(argumentCount, arguments);
    UrlCredentialStorageTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}

#include "UrlCredentialStorageTest.moc"
