#include "Controller/Preferences/QVWebDAVLocationEditor.h"

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/UnencryptedPasswords.h"
#include "Other Sources/QVURLCredentialUtilities.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size);

using Fields = QVWebDAVLocationEditor::Fields;

class QVWebDAVLocationEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<SecretService> m_secretService;
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<QVSyncLocation> m_location;
    std::shared_ptr<QVWebDAVLocationEditor> m_editor;
    std::unique_ptr<QWidget> m_parent;
    QList<qint64> m_results;

    void open(const QString &URLText = {}) {
        openAtOnce(URLText);
        QTRY_VERIFY(m_editor->userField()->isEnabled());
    }
    /// Does not wait until the credential has been read.
    void openAtOnce(const QString &URLText) {
        m_location = m_host->newLocation(Url::fromString(URLText));
        m_editor = QVWebDAVLocationEditor::editorWithSyncLocation(m_location);
        m_editor->runLocationEditorModalForWindow(
            m_parent.get(), false, [this](qint64 result) { m_results.append(result); });
    }
    static std::optional<UrlCredential> storedCredential(const QString &URLText) {
        return QVDefaultURLCredentialForURL(Url::fromString(URLText));
    }
    static void storePassword(const QString &URLText, const QString &user) {
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {.user = user,
             .password = QStringLiteral("secret"),
             .persistence = UrlCredential::Persistence::Permanent},
            QVHTTPBasicURLProtectionSpaceForURL(Url::fromString(URLText)));
        QVERIFY(SecretStore::shared().finishWriting());
    }
    void restartKeyring() {
        m_secretService->stopKeyring();
        m_secretService->startKeyring();
    }
    static void type(QLineEdit *field, const QString &text) {
        field->clear();
        QTest::keyClicks(field, text);
    }
    void fill(const Fields &fields, const QString &password = QStringLiteral("secret")) {
        m_editor->HTTPSCheckbox()->setChecked(fields.isHTTPS);
        m_editor->serverField()->setText(fields.server);
        m_editor->userField()->setText(fields.user);
        m_editor->passwordField()->setText(password);
        m_editor->pathField()->setText(fields.path);
        m_editor->storeField()->setText(fields.store);
        m_editor->portField()->setText(fields.port);
    }
    static QString URLText(const Fields &fields) {
        return QVWebDAVLocationEditor::URLWithFields(fields).absoluteString();
    }

private Q_SLOTS:
    void initTestCase() {
        m_secretService = std::make_unique<SecretService>();
        registerSyncPreferencesInterface();
    }
    void cleanupTestCase() { m_secretService.reset(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_parent = std::make_unique<QWidget>();
        m_results.clear();
    }
    void cleanup() {
        m_editor.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_parent.reset();
        m_location.reset();
        m_host.reset();
    }

    void theFieldsWaitForTheCredential() {
        const QString URL = QStringLiteral("http://ida@waiting/a/S.qvSyncStore");
        storePassword(URL, QStringLiteral("ida"));
        openAtOnce(URL);
        QVERIFY(!m_editor->userField()->isEnabled());
        QVERIFY(!m_editor->passwordField()->isEnabled());
        QCOMPARE(m_editor->passwordField()->placeholderText(),
                 QStringLiteral("Reading the password…"));
        QTRY_VERIFY(m_editor->passwordField()->isEnabled());
        QCOMPARE(m_editor->userField()->text(), QStringLiteral("ida"));
        QCOMPARE(m_editor->passwordField()->text(), QStringLiteral("secret"));
        QVERIFY(m_editor->passwordField()->placeholderText().isEmpty());
    }

    void aFailureToSaveIsReported() {
        openAtOnce(QStringLiteral("http://ida@unsaved/a/S.qvSyncStore"));
        const QString path = QSettings().fileName();
        QVERIFY(!QFileInfo::exists(path) || QFile::remove(path));
        QVERIFY(QDir().mkpath(path));
        m_editor->acceptModalSheet(nullptr);
        QVERIFY(QDir().rmdir(path));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(
            m_host->application().presentedErrors().first().localizedDescription.contains(path));
    }

    void theSheetSaysWhatOthersCanReadWithoutHTTPS() {
        openAtOnce(QStringLiteral("http://ida@notice/a/S.qvSyncStore"));
        const auto *notice =
            m_editor->window()->findChild<QLabel *>(QStringLiteral("unencryptedLabel"));
        QVERIFY(notice->isVisible());
        QVERIFY(notice->text().contains(QStringLiteral("can read the password")));
        m_editor->HTTPSCheckbox()->click();
        QVERIFY(!notice->isVisible());
        m_editor->HTTPSCheckbox()->click();
        QVERIFY(notice->isVisible());
        QVERIFY(!UnencryptedPasswords::areAccepted(m_location->URL()).value());
        m_editor->acceptModalSheet(nullptr);
        QVERIFY(UnencryptedPasswords::areAccepted(m_location->URL()).value());
    }

    void onlyACheckBoxTogglesHTTPS() {
        openAtOnce(QStringLiteral("http://ida@notice/a/S.qvSyncStore"));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, m_editor->toggleHTTPS(nullptr));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, m_editor->toggleHTTPS(m_editor->portField()));
    }

    void aSheetWithHTTPSAcceptsNoUnencryptedPassword() {
        openAtOnce(QStringLiteral("https://ida@encrypted:80/a/S.qvSyncStore"));
        m_editor->acceptModalSheet(nullptr);
        QVERIFY(!UnencryptedPasswords::areAccepted(
                     Url::fromString(QStringLiteral("http://ida@encrypted/a/S.qvSyncStore")))
                     .value());
    }

    void aKeyringThatDoesNotAnswerNeitherBlocksNorLosesTheCredential() {
        const QString URL = QStringLiteral("http://ida@frozen/a/S.qvSyncStore");
        storePassword(URL, QStringLiteral("ida"));
        m_secretService->freezeKeyring();
        QElapsedTimer elapsed;
        elapsed.start();
        openAtOnce(URL);
        QVERIFY(elapsed.elapsed() < 2000);
        QVERIFY(!m_editor->passwordField()->isEnabled());
        m_editor->acceptModalSheet(nullptr);
        QCOMPARE(m_location->URL().absoluteString(), URL);
        QCOMPARE(m_results, QList<qint64>{1});
        restartKeyring();
        QTRY_VERIFY(storedCredential(URL));
        QCOMPARE(storedCredential(URL)->password, QStringLiteral("secret"));
    }

    void aLockedKeyringIsNotTakenForNoCredential() {
        const QString URL = QStringLiteral("http://ida@locked/a/S.qvSyncStore");
        storePassword(URL, QStringLiteral("ida"));
        m_secretService->lock();
        open(URL);
        QCOMPARE(m_editor->userField()->text(), QStringLiteral("ida"));
        const auto *explanation =
            m_editor->window()->findChild<QLabel *>(QStringLiteral("explanationLabel"));
        QVERIFY(explanation->text().contains(QStringLiteral("The keyring is locked.")));
        m_editor->acceptModalSheet(nullptr);
        QCOMPARE(m_location->URL().absoluteString(), URL);
        restartKeyring();
        QTRY_VERIFY(storedCredential(URL));
        QCOMPARE(storedCredential(URL)->password, QStringLiteral("secret"));
    }

    void theDefaultPortFollowsHTTPS() {
        QCOMPARE(QVWebDAVLocationEditor::defaultPortForHTTPS(true), quint16(443));
        QCOMPARE(QVWebDAVLocationEditor::defaultPortForHTTPS(false), quint16(80));
    }

    void aHostLosesOneSchemeAndTheSignsAtItsEnds_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("host");
        const auto row = [](const char *typed, const char *host) {
            QTest::newRow(typed) << QString::fromLatin1(typed) << QString::fromLatin1(host);
        };
        row("example", "example");
        row("https://example-host/", "example-host");
        row("http://example", "example");
        row("http:https:example", "https:example");
        row("https:http:example", "http:example");
        row("HTTP://example", "HTTP://example");
        row("/:@example@:/", "example");
        row("host:8080/dav", "host:8080/dav");
        row("a@b", "a@b");
        row("http://", "");
        row("", "");
    }
    void aHostLosesOneSchemeAndTheSignsAtItsEnds() {
        QFETCH(QString, typed);
        QFETCH(QString, host);
        QCOMPARE(QVWebDAVLocationEditor::sanitizeHost(typed), host);
    }

    void theURLIsAssembledFromTheFields_data() {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const Fields &fields, const char *text) {
            QTest::newRow(name) << fields << QString::fromUtf8(text);
        };
        const QString host = QStringLiteral("host");
        const QString user = QStringLiteral("user");
        const QString path = QStringLiteral("path");
        const QString store = QStringLiteral("store");
        row("all there", {.server = host, .user = user, .path = path, .store = store},
            "http://user@host/path/store.qvSyncStore");
        row("HTTPS and no port", {true, host, user, path, store},
            "https://user@host/path/store.qvSyncStore");
        row("the default port of HTTPS is not written",
            {true, host, user, path, store, QStringLiteral("443")},
            "https://user@host/path/store.qvSyncStore");
        row("another port is", {true, host, user, path, store, QStringLiteral("81")},
            "https://user@host:81/path/store.qvSyncStore");
        row("so is that of HTTP with HTTPS", {true, host, user, path, store, QStringLiteral("80")},
            "https://user@host:80/path/store.qvSyncStore");
        row("an empty user keeps its sign", {.server = host, .store = store},
            "http://@host/store.qvSyncStore");
        row("an IPv6 address gets its brackets",
            {.server = QStringLiteral("::1"), .store = store, .port = QStringLiteral("8080")},
            "http://@[::1]:8080/store.qvSyncStore");
        row("an IPv6 address keeps its brackets",
            {.server = QStringLiteral("https://[fe80::1]/"), .store = store},
            "http://@[fe80::1]/store.qvSyncStore");
        row("the user is escaped",
            {.server = host, .user = QStringLiteral("a@b:c"), .store = store},
            "http://a%40b%3Ac@host/store.qvSyncStore");
        row("with all reserved characters and both apostrophes",
            {.server = host, .user = QStringLiteral(":/?#[]@!$&\u2019'()*+,;="), .store = store},
            "http://%3A%2F%3F%23%5B%5D%40%21%24%26%E2%80%99%27%28%29%2A%2B%2C%3B%3D@host/"
            "store.qvSyncStore");
        row("without unreserved ones",
            {.server = host, .user = QStringLiteral("a-b.c_d~1"), .store = store},
            "http://a-b.c_d~1@host/store.qvSyncStore");
        row("slashes of the path are not doubled",
            {.server = host,
             .path = QStringLiteral("/dav/sync/"),
             .store = QStringLiteral("My Store")},
            "http://@host/dav/sync/My%20Store.qvSyncStore");
        row("the path is standardized but not resolved",
            {.server = host, .path = QStringLiteral("a//./../b"), .store = store},
            "http://@host/a/../b/store.qvSyncStore");
        row("the path is escaped but for slashes",
            {.server = host, .path = QStringLiteral("ä #/b?"), .store = QStringLiteral("50%")},
            "http://@host/%C3%A4%20%23/b?/50%25.qvSyncStore");
        row("a port and a path typed as the server travel with it",
            {.server = QStringLiteral("host:8080/dav"), .path = path, .store = store},
            "http://@host:8080/dav/path/store.qvSyncStore");
        row("a scheme typed as the server decides nothing",
            {.server = QStringLiteral("https://example-host/"), .store = store},
            "http://@example-host/store.qvSyncStore");
        row("a host with a blank does not parse",
            {.server = QStringLiteral("my host"), .store = store}, "");
    }
    void theURLIsAssembledFromTheFields() {
        QFETCH(Fields, fields);
        QTEST(URLText(fields), "text");
    }

    void portsAreTakenModulo65536() {
        const auto withPort = [](const char *port) {
            return URLText({.server = QStringLiteral("h"),
                            .store = QStringLiteral("s"),
                            .port = QString::fromLatin1(port)});
        };
        QCOMPARE(withPort("65617"), QStringLiteral("http://@h:81/s.qvSyncStore"));
        // Not the default port: the number was not 0 before.
        QCOMPARE(withPort("65536"), QStringLiteral("http://@h/s.qvSyncStore"));
        QCOMPARE(withPort("-1"), QStringLiteral("http://@h:65535/s.qvSyncStore"));
        QCOMPARE(withPort("0"), QStringLiteral("http://@h/s.qvSyncStore"));
        QCOMPARE(withPort("port"), QStringLiteral("http://@h/s.qvSyncStore"));
        QCOMPARE(withPort("8080 or so"), QStringLiteral("http://@h:8080/s.qvSyncStore"));
    }

    void aNewLocationOpensWithEverythingEmpty() {
        open();
        for (QLineEdit *field :
             {m_editor->serverField(), m_editor->userField(), m_editor->passwordField(),
              m_editor->pathField(), m_editor->storeField(), m_editor->portField()}) {
            QCOMPARE(field->text(), QString());
        }
        QVERIFY(!m_editor->HTTPSCheckbox()->isChecked());
        QCOMPARE(m_editor->portField()->placeholderText(), QStringLiteral("80"));
        QVERIFY(!m_editor->acceptButton()->isEnabled());
        QVERIFY(!m_editor->credential());
    }

    void anExistingLocationIsFilledIn() {
        const Url URL = Url::fromString(QStringLiteral("http://u@h:8080/a/b/S.qvSyncStore"));
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {QStringLiteral("u"), QStringLiteral("p\u00e4ss"),
             UrlCredential::Persistence::Permanent},
            QVHTTPBasicURLProtectionSpaceForURL(URL));
        open(URL.absoluteString());
        QCOMPARE(m_editor->serverField()->text(), QStringLiteral("h"));
        QCOMPARE(m_editor->portField()->text(), QStringLiteral("8080"));
        QCOMPARE(m_editor->pathField()->text(), QStringLiteral("a/b"));
        QCOMPARE(m_editor->storeField()->text(), QStringLiteral("S"));
        QCOMPARE(m_editor->userField()->text(), QStringLiteral("u"));
        QCOMPARE(m_editor->passwordField()->text(), QStringLiteral("p\u00e4ss"));
        QVERIFY(!m_editor->HTTPSCheckbox()->isChecked());
        QVERIFY(m_editor->acceptButton()->isEnabled());
    }

    void anIPv6AddressIsShownWithoutBrackets() {
        open(QStringLiteral("http://[fe80::1]:8080/S.qvSyncStore"));
        QCOMPARE(m_editor->serverField()->text(), QStringLiteral("fe80::1"));
        QCOMPARE(m_editor->portField()->text(), QStringLiteral("8080"));
    }

    void escapesAreShownDecodedAndDefaultPortsNotAtAll() {
        open(QStringLiteral("https://h:443/my%20folder/My%20Store.qvSyncStore"));
        QVERIFY(m_editor->HTTPSCheckbox()->isChecked());
        QCOMPARE(m_editor->portField()->text(), QString());
        QCOMPARE(m_editor->portField()->placeholderText(), QStringLiteral("443"));
        QCOMPARE(m_editor->pathField()->text(), QStringLiteral("my folder"));
        QCOMPARE(m_editor->storeField()->text(), QStringLiteral("My Store"));
        QCOMPARE(m_editor->userField()->text(), QString());
    }

    void aStoreWithoutFolderShowsNoFolder() {
        open(QStringLiteral("http://u@h/S.qvSyncStore"));
        QCOMPARE(m_editor->pathField()->text(), QString());
        QCOMPARE(m_editor->storeField()->text(), QStringLiteral("S"));
    }

    void OKFollowsEveryKeystroke() {
        open();
        type(m_editor->serverField(), QStringLiteral("h"));
        QVERIFY(!m_editor->acceptButton()->isEnabled());
        type(m_editor->storeField(), QStringLiteral("s"));
        QVERIFY(m_editor->acceptButton()->isEnabled());
        QTest::keyClick(m_editor->serverField(), Qt::Key_Backspace);
        QVERIFY(!m_editor->acceptButton()->isEnabled());
        QVERIFY(!m_editor->isValid());
    }

    void thePlaceholderFollowsHTTPSAndThePortStays() {
        open();
        type(m_editor->portField(), QStringLiteral("8080"));
        m_editor->HTTPSCheckbox()->click();
        QCOMPARE(m_editor->portField()->placeholderText(), QStringLiteral("443"));
        QCOMPARE(m_editor->portField()->text(), QStringLiteral("8080"));
        m_editor->HTTPSCheckbox()->click();
        QCOMPARE(m_editor->portField()->placeholderText(), QStringLiteral("80"));
    }

    void togglingHTTPSValidates() {
        open();
        m_editor->serverField()->setText(QStringLiteral("h"));
        m_editor->storeField()->setText(QStringLiteral("s"));
        QVERIFY(!m_editor->acceptButton()->isEnabled());
        m_editor->HTTPSCheckbox()->click();
        QVERIFY(m_editor->acceptButton()->isEnabled());
    }

    void thePasswordIsNotShown() {
        open();
        QCOMPARE(m_editor->passwordField()->echoMode(), QLineEdit::Password);
    }

    void cancelIsAlwaysOffered() {
        open(QStringLiteral("http://u@h/S.qvSyncStore"));
        QVERIFY(m_editor->shouldShowCancelButton());
        auto *cancel = m_editor->window()->findChild<QPushButton *>(QStringLiteral("cancelButton"));
        QVERIFY(cancel->isVisible());
        cancel->click();
        QCOMPARE(m_results, QList<qint64>{0});
    }

    void cancellingLeavesLocationAndCredentialsAlone() {
        const QString before = QStringLiteral("http://nobody@cancelled/S.qvSyncStore");
        open(before);
        fill({.server = QStringLiteral("other"),
              .user = QStringLiteral("u"),
              .store = QStringLiteral("s")});
        m_editor->cancelModalSheet(nullptr);
        QCOMPARE(m_location->URL().absoluteString(), before);
        QVERIFY(!QVDefaultURLCredentialForURL(Url::fromString(QStringLiteral("http://u@other/s"))));
    }

    void acceptingWritesTheURLAndStoresTheCredentialForBothMethods() {
        open();
        fill({true, QStringLiteral("accepted"), QStringLiteral("a@b:c"), QStringLiteral("dav"),
              QStringLiteral("Work"), QString()},
             QStringLiteral("open sesame"));
        m_editor->acceptButton()->setEnabled(true);
        m_editor->acceptButton()->click();
        QCOMPARE(m_results, QList<qint64>{1});
        const Url URL = m_location->URL();
        QCOMPARE(URL.absoluteString(),
                 QStringLiteral("https://a%40b%3Ac@accepted/dav/Work.qvSyncStore"));
        const UrlCredential stored{QStringLiteral("a@b:c"), QStringLiteral("open sesame"),
                                   UrlCredential::Persistence::Permanent};
        QCOMPARE(m_editor->credential(), std::optional(stored));
        QCOMPARE(QVHTTPBasicURLCredentialForURL(URL), std::optional(stored));
        QCOMPARE(QVHTTPDigestURLCredentialForURL(URL), std::optional(stored));
        QVERIFY(SecretStore::shared().finishWriting());
        QCOMPARE(m_secretService->count({{QStringLiteral("host"), QStringLiteral("accepted")}}), 2);
        // Written without a port in the URL, the spaces have port 0.
        QCOMPARE(QVHTTPBasicURLProtectionSpaceForURL(URL)->port, 0);
    }

    void theCredentialIsStoredBeforeTheHandlerRuns() {
        m_location = m_host->newLocation(Url());
        m_editor = QVWebDAVLocationEditor::editorWithSyncLocation(m_location);
        std::optional<UrlCredential> found;
        m_editor->runLocationEditorModalForWindow(m_parent.get(), true, [&](qint64) {
            found = QVDefaultURLCredentialForURL(m_location->URL());
        });
        fill({.server = QStringLiteral("first"),
              .user = QStringLiteral("u"),
              .store = QStringLiteral("s")});
        m_editor->acceptModalSheet(nullptr);
        QVERIFY(found.has_value());
    }

    void aURLThatDoesNotParseMakesTheLocationsNilAndStoresNothing() {
        open(QStringLiteral("http://u@h/S.qvSyncStore"));
        fill({.server = QStringLiteral("my host"),
              .user = QStringLiteral("u"),
              .store = QStringLiteral("s")});
        m_editor->acceptModalSheet(nullptr);
        QVERIFY(m_location->URL().isNil());
        QCOMPARE(m_results, QList<qint64>{1});
        QCOMPARE(m_editor->credential()->user, QStringLiteral("u"));
    }

    void aCredentialOfAnEmptyUserIsFoundAgain() {
        open();
        fill({.server = QStringLiteral("nobody"), .store = QStringLiteral("s")},
             QStringLiteral("p"));
        m_editor->acceptModalSheet(nullptr);
        const QString URLText = m_location->URL().absoluteString();
        open(URLText);
        QCOMPARE(m_editor->passwordField()->text(), QStringLiteral("p"));
    }

    void thePasswordIsNowhereButInTheSecretStore() {
        const QString password =
            QStringLiteral("NowhereElse%1").arg(QCoreApplication::applicationPid());
        open();
        fill({.server = QStringLiteral("quiet"),
              .user = QStringLiteral("u"),
              .store = QStringLiteral("s")},
             password);
        m_editor->acceptModalSheet(nullptr);
        m_host->locations().insertObjectInSyncLocationsAtIndex(m_location, 0);
        m_host->save();
        QDirIterator files(m_host->directory(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY2(!file.readAll().contains(password.toUtf8()), qPrintable(file.fileName()));
        }
        QVERIFY(!m_location->URL().absoluteString().contains(password));
    }

    // After the tests that need a store without an error.
    void aPasswordTypedIntoALockedKeyringReplacesTheStoredOne() {
        const QString URL = QStringLiteral("http://ida@replaced/a/S.qvSyncStore");
        storePassword(URL, QStringLiteral("ida"));
        m_secretService->lock();
        open(URL);
        type(m_editor->passwordField(), QStringLiteral("new"));
        m_editor->acceptModalSheet(nullptr);
        restartKeyring();
        QTRY_VERIFY(storedCredential(URL));
        QCOMPARE(storedCredential(URL)->password, QStringLiteral("new"));
    }

    // Last but one: the store of the process does without the service from here on.
    void withoutASecretServiceTheSheetClosesAndTheSecretIsKeptForThisRun() {
        m_secretService->stopBus();
        open();
        fill({.server = QStringLiteral("lonely"),
              .user = QStringLiteral("u"),
              .store = QStringLiteral("s")},
             QStringLiteral("kept"));
        m_editor->acceptModalSheet(nullptr);
        QCOMPARE(m_results, QList<qint64>{1});
        QTRY_VERIFY(SecretStore::shared().error());
        QCOMPARE(QVDefaultURLCredentialForURL(m_location->URL())->password, QStringLiteral("kept"));
    }

    // The same checks that the fuzz target makes, over inputs of the test's own making.
    void anyFieldsGiveNilOrAURLThatShowsThemAgain() {
        QRandomGenerator random(20261121);
        const QByteArray alphabet =
            QByteArrayLiteral("aZ09.:/@?#[]% &='\"\\\xc3\xa4\xe2\x80\x99|^~-_\0\x7f,;");
        for (int i = 0; i < 20000; ++i) {
            QByteArray input;
            const int length = random.bounded(64);
            for (int j = 0; j < length; ++j) {
                input.append(alphabet.at(random.bounded(int(alphabet.size()))));
            }
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char *>(input.constData()),
                                   size_t(input.size()));
        }
    }
};

VELMORA_TEST(QVWebDAVLocationEditorTest)
#include "QVWebDAVLocationEditorTest.moc"
