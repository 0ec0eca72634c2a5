#include "Engine/Stores/Folder/FolderGrants.h"

#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Folder access when the profile cannot be read.
class FolderGrantsTest : public QObject {
    Q_OBJECT
private:
    const QTemporaryDir m_folder;
    std::unique_ptr<TestHost> m_host;

    QString path() const { return QFileInfo(m_folder.path()).canonicalFilePath(); }

private Q_SLOTS:
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() { m_host.reset(); }

    void anUnreadableSettingRefusesAccess() {
        const ProfileDatabase &profile = m_host->engine().profile();
        FolderGrants grants(profile);
        QCOMPARE(description(grants.load()), QString());
        QVERIFY(grants.permit(path()));
        for (const char *table : {"settings", "grants"}) {
            {
                const FailingTable failing(profile, QString::fromLatin1(table),
                                           FailingTable::Fault::AllRows);
                QVERIFY(!grants.load());
            }
            QVERIFY(!grants.permit(path()));
            QVERIFY(grants.permit(QFileInfo(profile.directory()).canonicalFilePath()));
            QCOMPARE(description(grants.load()), QString());
            QVERIFY(grants.permit(path()));
        }
    }

    void unreadableGrantsGrantNothing() {
        const ProfileDatabase &profile = m_host->engine().profile();
        FolderGrants grants(profile);
        const QTemporaryDir other;
        QVERIFY(grants.setNeeded(true));
        QVERIFY(grants.add(path()));
        QVERIFY(grants.add(other.path()));
        QVERIFY(grants.permit(path()));
        {
            const FailingTable failing(profile, QStringLiteral("grants"),
                                       FailingTable::Fault::LaterRows);
            QVERIFY(!grants.load());
        }
        QVERIFY(!grants.permit(path()));
        QCOMPARE(description(grants.load()), QString());
        QVERIFY(grants.permit(path()));
        QCOMPARE(grants.paths(), QStringList({path(), other.path()}));
    }
};

VELMORA_TEST(FolderGrantsTest)
#include "FolderGrantsTest.moc"
