#include <QtCore/QLibrary>
#include <QtCore/QPluginLoader>
#include <QtCore/QProcess>

#include "Host/ClassRegistry.h"
#include "Platform/Interface/PreferencePane.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class SyncPreferencesPlugInTest : public QObject {
    Q_OBJECT

    QPluginLoader m_loader{QStringLiteral(SYNC_PREFERENCES_PLUG_IN)};

    Expected<std::unique_ptr<PreferencePane>> makePane() {
        auto *plugIn = qobject_cast<PreferencePanePlugIn *>(m_loader.instance());
        const QJsonObject info =
            m_loader.metaData().value(QLatin1StringView("MetaData")).toObject();
        return plugIn ? plugIn->makePreferencePane(info)
                      : failure({.localizedDescription = m_loader.errorString()});
    }

    /// The symbols of the plug-in, also those that it does not export, one a line.
    static QString symbols() {
        QProcess nm;
        nm.start(QStringLiteral("nm"),
                 {QStringLiteral("-C"), QStringLiteral(SYNC_PREFERENCES_PLUG_IN)});
        return nm.waitForFinished() ? QString::fromUtf8(nm.readAllStandardOutput()) : QString();
    }

private Q_SLOTS:
    void itHoldsTheDigestsAndCiphers_data() {
        QTest::addColumn<QString>("symbol");
        for (const char *symbol : {"CommonDigest::MD2Sum(", "CommonDigest::SHA512Hash(",
                                   "CommonCryptor::AES256EncryptedDataUsingKey(",
                                   "CommonCryptor::decryptedCASTDataUsingKey(",
                                   "LowLevelCommonCryptor::dataEncryptedUsingAlgorithm(",
                                   "CommonHMAC::HMACWithAlgorithm(",
                                   "CommonCryptoErrorDomain::errorWithCCCryptorStatus("}) {
            QTest::newRow(symbol) << QString::fromLatin1(symbol);
        }
    }
    void itHoldsTheDigestsAndCiphers() {
        QFETCH(QString, symbol);
        QVERIFY(symbols().contains(symbol));
    }

    void itExportsTheErrorDomainOfTheCiphers() {
        QLibrary plugIn(QStringLiteral(SYNC_PREFERENCES_PLUG_IN));
        QVERIFY(plugIn.load());
        const auto *domain =
            reinterpret_cast<const QString *>(plugIn.resolve("kCommonCryptoErrorDomain"));
        QVERIFY(domain);
        QCOMPARE(*domain, QStringLiteral("CommonCryptoErrorDomain"));
    }

    void itNamesAllClassesThatAreMissing() {
        const auto pane = makePane();
        QVERIFY(!pane);
        for (const char *name :
             {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
            QVERIFY(pane.error().localizedDescription.contains(QLatin1StringView(name)));
        }
    }

    void loadingFailsIfAHostClassIsMissing_data() {
        QTest::addColumn<QString>("missing");
        for (const char *name :
             {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

    void loadingFailsIfAHostClassIsMissing() {
        QFETCH(QString, missing);
        HostClass anyClass;
        std::vector<std::unique_ptr<HostClassRegistration>> others;
        for (const char *name :
             {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
            if (missing != QLatin1StringView(name)) {
                others.push_back(
                    std::make_unique<HostClassRegistration>(QLatin1StringView(name), &anyClass));
            }
        }
        const auto pane = makePane();
        QVERIFY(!pane);
        QVERIFY(pane.error().localizedDescription.contains(
            QStringLiteral("the sync plug-in has no %1. ").arg(missing)));
    }

    void aHostOfAnotherInterfaceIsRefused_data() {
        QTest::addColumn<int>("major");
        QTest::newRow("too old") << CurrentHostVersion.major - 1;
        QTest::newRow("too new") << CurrentHostVersion.major + 1;
    }

    void aHostOfAnotherInterfaceIsRefused() {
        QFETCH(int, major);
        const HostVersion version{.major = major, .minor = 7};
        HostClass anyClass;
        std::vector<std::unique_ptr<HostClassRegistration>> registrations;
        for (const char *name :
             {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
            registrations.push_back(std::make_unique<HostClassRegistration>(QLatin1StringView(name),
                                                                            &anyClass, version));
        }
        const auto pane = makePane();
        QVERIFY(!pane);
        QVERIFY(pane.error().localizedDescription.contains(version.text()));
        QVERIFY(pane.error().localizedDescription.contains(CurrentHostVersion.text()));
    }

    void onAHostItMakesAFreshPaneEachTime() {
        const TestHost host;
        const auto first = makePane();
        const auto second = makePane();
        QVERIFY(first && second);
        QVERIFY(*first != *second);
        QCOMPARE((*first)->mainNibName(), QStringLiteral("Sync Preferences"));
        QCOMPARE((*first)->property("currentVersionString").toString(),
                 QStringLiteral(VELMORA_VERSION));
    }
};

VELMORA_TEST(SyncPreferencesPlugInTest)
#include "SyncPreferencesPlugInTest.moc"
