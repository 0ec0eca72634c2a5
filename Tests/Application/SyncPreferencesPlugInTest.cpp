#include <QtCore/QPluginLoader>

#include "Host/ClassRegistry.h"
#include "Platform/Interface/PreferencePane.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class SyncPreferencesPlugInTest : public QObject {
    Q_OBJECT

    QPluginLoader m_loader{QStringLiteral(SYNC_PREFERENCES_PLUG_IN)};

    std::unique_ptr<PreferencePane> makePane(std::optional<Error> *error) {
        auto *plugIn = qobject_cast<PreferencePanePlugIn *>(m_loader.instance());
        const QJsonObject info =
            m_loader.metaData().value(QLatin1StringView("MetaData")).toObject();
        return plugIn ? plugIn->makePreferencePane(info, error) : nullptr;
    }

private Q_SLOTS:
    void itNamesAllClassesThatAreMissing() {
        std::optional<Error> error;
        QVERIFY(!makePane(&error));
        QVERIFY(error);
        for (const char *name :
             {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
            QVERIFY(error->localizedDescription.contains(QLatin1StringView(name)));
        }
    }

    void itRefusesWhereOneClassIsMissing_data() {
        QTest::addColumn<QString>("missing");
        for (const char *name :
             {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

    void itRefusesWhereOneClassIsMissing() {
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
        std::optional<Error> error;
        QVERIFY(!makePane(&error));
        QVERIFY(error->localizedDescription.endsWith(missing + u'.'));
    }

    void onAHostItMakesAFreshPaneEachTime() {
        const TestHost host;
        std::optional<Error> error;
        const auto first = makePane(&error);
        const auto second = makePane(&error);
        QVERIFY(!error);
        QVERIFY(first);
        QVERIFY(first != second);
        QCOMPARE(first->mainNibName(), QStringLiteral("Sync Preferences"));
        QCOMPARE(first->property("currentVersionString").toString(),
                 QStringLiteral(VELMORA_VERSION));
    }
};

VELMORA_TEST(SyncPreferencesPlugInTest)
#include "SyncPreferencesPlugInTest.moc"
