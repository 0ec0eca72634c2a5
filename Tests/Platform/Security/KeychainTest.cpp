#include "Platform/Security/Keychain.h"

#include "Platform/Security/SecretStore.h"
#include "Support/KeychainRemoval.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"

namespace {

const QString Service = QStringLiteral("Velmora Test Clients");
const QString Name = QStringLiteral("Jürgen’s computer");

}  // namespace

/// Each pair of store and keychain is a run of its own.
class KeychainTest : public QObject {
    Q_OBJECT

    struct Run {
        SecretStore store;
        Keychain keychain{store};
    };

    std::unique_ptr<SecretService> m_service;

    static void keep(const QString &account, const QByteArray &password) {
        Run run;
        run.keychain.setPassword(Service, account, password);
        QVERIFY(run.store.finishWriting());
    }

    static QByteArray passwordOf(const Keychain &keychain, const QString &service,
                                 const QString &account) {
        return keychain.password(service, account)
            .value_or(std::nullopt)
            .value_or(SecretBytes())
            .toByteArray();
    }

    void addForeignItem(const QMap<QString, QString> &attributes) {
        QMap<QString, QString> all = attributes;
        all.insert(QStringLiteral("xdg:schema"), QStringLiteral("velmora-tests.GenericPassword"));
        all.insert(QStringLiteral("service"), Service);
        m_service->addItem(all, "foreign");
    }

private Q_SLOTS:
    void init() { m_service = std::make_unique<SecretService>(); }
    void cleanup() { m_service.reset(); }

    void aServiceWithoutItemsHasNoAccounts() {
        QCOMPARE(Run().keychain.accounts(Service).value(), QStringList());
    }

    void itemsAreFoundByServiceAndAccountInALaterRun() {
        keep(Name, "1");
        keep(QStringLiteral("other"), "2");
        Run run;
        QStringList accounts = run.keychain.accounts(Service).value();
        accounts.sort();
        QCOMPARE(accounts, (QStringList{Name, QStringLiteral("other")}));
        QCOMPARE(passwordOf(run.keychain, Service, Name), QByteArray("1"));
        QCOMPARE(passwordOf(run.keychain, Service, QStringLiteral("other")), QByteArray("2"));
        QVERIFY(!run.keychain.password(Service, QStringLiteral("third")).value());
        QVERIFY(!run.keychain.password(QStringLiteral("other service"), Name).value());
        QCOMPARE(run.keychain.accounts(QStringLiteral("other service")).value(), QStringList());
    }

    void settingReplacesThePassword() {
        keep(Name, "old");
        keep(Name, "new");
        Run run;
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
        QCOMPARE(passwordOf(run.keychain, Service, Name), QByteArray("new"));
    }

    void anItemIsThereAsSoonAsItIsSet() {
        Run run;
        run.keychain.setPassword(Service, Name, QByteArray("secret"));
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
        QCOMPARE(passwordOf(run.keychain, Service, Name), QByteArray("secret"));
    }

    void itemsMayShareAnAccountAndOnlyTheFirstIsRemoved() {
        addForeignItem({{QStringLiteral("account"), Name}});
        addForeignItem({{QStringLiteral("account"), Name}});
        Run run;
        QCOMPARE(run.keychain.accounts(Service).value(), (QStringList{Name, Name}));
        QVERIFY(KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), Name.toUtf8()));
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
        QVERIFY(KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), Name.toUtf8()));
        QVERIFY(!KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), Name.toUtf8()));
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList());
    }

    void itemsWithoutAnAccountAreLeftOut() {
        addForeignItem({});
        keep(Name, "secret");
        QCOMPARE(Run().keychain.accounts(Service).value(), QStringList{Name});
    }

    void removingWhatIsNotThereFails() {
        keep(Name, "secret");
        Run run;
        QVERIFY(!KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), "other"));
        QVERIFY(!KeychainRemoval::removeFirst(run.keychain, "other service", Name.toUtf8()));
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
    }

    /// Names are cut to as many bytes as they have UTF-16 code units.
    void aNameThatIsCutFindsNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("between letters") << QStringLiteral("über");
        QTest::newRow("within a letter") << QStringLiteral("aü");
    }

    void aNameThatIsCutFindsNothing() {
        QFETCH(QString, name);
        keep(name, "secret");
        Run run;
        QVERIFY(!KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(),
                                              name.toUtf8().left(name.size())));
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{name});
        QVERIFY(KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), name.toUtf8()));
    }

    void aPasswordMayBeAnyBytes() {
        const QByteArray bytes("\0\x80\xFF", 3);
        keep(Name, bytes);
        QCOMPARE(passwordOf(Run().keychain, Service, Name), bytes);
    }

    void aFailedLookUpDiffersFromAnEmptyResult() {
        m_service->stopKeyring();
        Run run;
        QVERIFY(!run.keychain.accounts(Service));
        run.keychain.setPassword(Service, Name, QByteArray("secret"));
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
        QCOMPARE(passwordOf(run.keychain, Service, Name), QByteArray("secret"));
        QVERIFY(KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), Name.toUtf8()));
        QVERIFY(!run.keychain.accounts(Service));
    }

    void aLockedKeyringNamesItsAccounts() {
        keep(Name, "secret");
        m_service->lock();
        Run run;
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
        std::optional<Expected<QStringList>> found;
        run.keychain.findAccounts(Service, [&](const auto &accounts) { found = accounts; });
        QVERIFY(!found);
        QTRY_VERIFY(found);
        QCOMPARE(*found, Expected<QStringList>(QStringList{Name}));
    }

    void findingAccountsTellsAFailureFromAnEmptyResult() {
        Run run;
        std::optional<Expected<QStringList>> found;
        const auto keepResult = [&](const auto &accounts) { found = accounts; };
        run.keychain.findAccounts(Service, keepResult);
        QTRY_VERIFY(found);
        QCOMPARE(*found, Expected<QStringList>(QStringList()));
        m_service->stopKeyring();
        found.reset();
        run.keychain.findAccounts(Service, keepResult);
        QTRY_VERIFY(found);
        QVERIFY(!found->has_value());
    }

    void thePasswordsOfALockedKeyringCannotBeLookedUp() {
        keep(Name, "secret");
        m_service->lock();
        Run run;
        QVERIFY(!run.keychain.password(Service, Name));
        QVERIFY(!KeychainRemoval::removeFirst(run.keychain, Service.toUtf8(), Name.toUtf8()));
        m_service->stopKeyring();
        m_service->startKeyring();
        QCOMPARE(run.keychain.accounts(Service).value(), QStringList{Name});
    }
};

VELMORA_TEST(KeychainTest)
#include "KeychainTest.moc"
