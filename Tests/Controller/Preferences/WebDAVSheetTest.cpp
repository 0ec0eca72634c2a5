#include <QtGui/QClipboard>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/Preferences/WebDAVAddress.h"
#include "Host/QVSyncLocationsController.h"
#include "Platform/Interface/SheetWindow.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// What the sheet of a WebDAV location says about its fields while the user fills them in.
class WebDAVSheetTest : public QObject {
    Q_OBJECT
    using Fields = WebDAVAddress::Fields;

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QVSyncPreferences> m_pane;

    SheetWindow *sheet() const {
        for (auto *window : m_pane->mainView()->window()->findChildren<SheetWindow *>()) {
            if (window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    template <class Widget = QLineEdit>
    Widget *part(const char *name) const {
        return sheet()->findChild<Widget *>(QLatin1StringView(name));
    }
    void paste(const char *field, const QString &text) const {
        QGuiApplication::clipboard()->setText(text);
        part(field)->setFocus();
        part(field)->selectAll();
        QTest::keyClick(part(field), Qt::Key_V, Qt::ControlModifier);
    }
    QString status() const { return part<QLabel>("addressLabel")->text(); }
    QPushButton *distributeButton() const { return part<QPushButton>("distributeButton"); }
    void accept() const { part<QPushButton>("acceptButton")->click(); }
    QString addedURL() const {
        return m_host->locations().syncLocations().constLast()->URL().absoluteString();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_pane = std::make_unique<QVSyncPreferences>();
        m_pane->loadMainView();
        m_pane->mainView()->show();
        m_pane->willSelect();
        m_pane->mainView()->findChild<QAction *>(QStringLiteral("addWebDAVItem"))->trigger();
    }
    void cleanup() {
        m_pane.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_host.reset();
    }

    void aBlankThatWasPastedDoesNoHarm() {
        paste("serverField", QStringLiteral("localhost "));
        paste("storeField", QStringLiteral(" Shared\n"));
        QCOMPARE(part("serverField")->text(), QStringLiteral("localhost"));
        QCOMPARE(status(), QStringLiteral("Address: http://localhost/Shared.qvSyncStore"));
        accept();
        QVERIFY(!sheet());
        QCOMPARE(addedURL(), QStringLiteral("http://@localhost/Shared.qvSyncStore"));
    }

    void aBlankThatWasTypedDoesNoHarm() {
        QApplication::setActiveWindow(sheet());
        QTRY_VERIFY(sheet()->isActiveWindow());
        part("serverField")->setFocus();
        QTest::keyClicks(part("serverField"), QStringLiteral("localhost "));
        paste("storeField", QStringLiteral("Shared"));
        QTest::keyClick(part("storeField"), Qt::Key_Return);
        QVERIFY(!sheet());
        QCOMPARE(addedURL(), QStringLiteral("http://@localhost/Shared.qvSyncStore"));
    }

    void theAddressFollowsEachKeystroke() {
        QCOMPARE(status(), QStringLiteral("Enter a server and a store name."));
        QTest::keyClicks(part("serverField"), QStringLiteral("dav.example.org"));
        QCOMPARE(status(), QStringLiteral("Enter a server and a store name."));
        QTest::keyClicks(part("storeField"), QStringLiteral("My N"));
        QCOMPARE(status(), QStringLiteral("Address: http://dav.example.org/My%20N.qvSyncStore"));
        QTest::keyClicks(part("userField"), QStringLiteral("ida@home"));
        QTest::keyClicks(part("pathField"), QStringLiteral("sync"));
        QTest::keyClicks(part("portField"), QStringLiteral("8443"));
        part<QCheckBox>("HTTPSCheckbox")->click();
        QCOMPARE(status(),
                 QStringLiteral("Address: https://dav.example.org:8443/sync/My%20N.qvSyncStore"));
        accept();
        QCOMPARE(addedURL(),
                 QStringLiteral("https://ida%40home@dav.example.org:8443/sync/My%20N.qvSyncStore"));
    }

    void aCompleteAddressIsDistributedOverTheFields() {
        part<QCheckBox>("HTTPSCheckbox")->setChecked(false);
        QTest::keyClicks(part("storeField"), QStringLiteral("Shared"));
        QTest::keyClicks(part("userField"), QStringLiteral("ida"));
        QVERIFY(distributeButton()->isHidden());
        paste("serverField", QStringLiteral(" https://dav.example.org:8443/remote/my%20files/ "));
        QCOMPARE(status(),
                 QStringLiteral("The server field contains a complete address. Click “Fill "
                                "In the Fields”."));
        QVERIFY(distributeButton()->isVisible());
        distributeButton()->click();
        QVERIFY(distributeButton()->isHidden());
        QVERIFY(part<QCheckBox>("HTTPSCheckbox")->isChecked());
        QVERIFY(!part<QLabel>("unencryptedLabel")->isVisible());
        QCOMPARE(part("serverField")->text(), QStringLiteral("dav.example.org"));
        QCOMPARE(part("portField")->text(), QStringLiteral("8443"));
        QCOMPARE(part("pathField")->text(), QStringLiteral("remote/my files"));
        QCOMPARE(part("storeField")->text(), QStringLiteral("Shared"));
        QCOMPARE(part("userField")->text(), QStringLiteral("ida"));
        QCOMPARE(status(), QStringLiteral("Address: https://dav.example.org:8443/remote/my%20files/"
                                          "Shared.qvSyncStore"));
    }

    void theAddressOfAStoreFillsInEveryField() {
        paste("serverField", QStringLiteral("http://ida:s%C3%B6cret@h:80/a/b/Work.qvSyncStore"));
        QVERIFY(!status().contains(QStringLiteral("cret")));
        distributeButton()->click();
        QCOMPARE(part("serverField")->text(), QStringLiteral("h"));
        QCOMPARE(part("portField")->text(), QString());
        QCOMPARE(part("userField")->text(), QStringLiteral("ida"));
        QCOMPARE(part("passwordField")->text(), QStringLiteral("söcret"));
        QCOMPARE(part("pathField")->text(), QStringLiteral("a/b"));
        QCOMPARE(part("storeField")->text(), QStringLiteral("Work"));
        QVERIFY(part<QLabel>("unencryptedLabel")->isVisible());
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
    }

    void completeAddressesAreRecognized_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isComplete");
        QTest::addColumn<QString>("server");
        const auto row = [](const char *text, bool isComplete, const char *server = "") {
            QTest::newRow(text) << QString::fromUtf8(text) << isComplete
                                << QString::fromUtf8(server);
        };
        row("HTTPS://Host", true, "host");
        row("davs://h/a", true, "h");
        row("webdav://h", true, "h");
        row("https://[fe80::1]:8443/", true, "fe80::1");
        row("https://münchen.example/", true, "xn--mnchen-3ya.example");
        row("h", false);
        row("h:8080/dav", false);
        row("https:h", false);
        row("https://", false);
        row("https://h:99999/", false);
        row("ftp://h/", false);
        row("file:///a", false);
        row("", false);
    }
    void completeAddressesAreRecognized() {
        QFETCH(QString, text);
        const auto address = WebDAVAddress::complete(text);
        QTEST(address.has_value(), "isComplete");
        QTEST(address ? address->fields.server : QString(QLatin1StringView()), "server");
    }

    void aProblemIsNamedWithTheNextStep_data() {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QString>("problem");
        const auto row = [](const char *name, const Fields &fields, const char *problem) {
            QTest::newRow(name) << fields << QString::fromUtf8(problem);
        };
        const QString h = QStringLiteral("h");
        const QString s = QStringLiteral("s");
        row("nothing", {.server = h, .store = s}, "");
        row("no server", {.store = s}, "Enter a server and a store name.");
        row("no store", {.server = h}, "Enter a server and a store name.");
        row("a blank", {.server = QStringLiteral("my host"), .store = s},
            "A server name contains no blanks. Remove the blank from “my host”.");
        row("a blank, no store yet", {.server = QStringLiteral("my host")},
            "A server name contains no blanks. Remove the blank from “my host”.");
        row("another character", {.server = QStringLiteral("a<b"), .store = s},
            "A server name cannot contain “<”.");
        row("a letter of another alphabet", {.server = QStringLiteral("münchen.de"), .store = s},
            "A server name cannot contain “ü”. Enter “xn--mnchen-3ya.de” instead.");
        row("no server name at all", {.server = QStringLiteral("//"), .store = s},
            "“//” is not a valid server name. Enter a name such as “dav.example.org”.");
        row("a port that is too large", {.server = h, .store = s, .port = QStringLiteral("65536")},
            "The port is a number from 1 to 65535. Correct it or leave it empty.");
        row("words as a port", {.server = h, .store = s, .port = QStringLiteral("8080 or so")},
            "The port is a number from 1 to 65535. Correct it or leave it empty.");
        row("a question mark", {.server = h, .path = QStringLiteral("a?"), .store = s},
            "The folder and the store name cannot contain “?”.");
    }
    void aProblemIsNamedWithTheNextStep() {
        QFETCH(Fields, fields);
        QTEST(WebDAVAddress::problem(fields), "problem");
    }

    // The button stays enabled: it only needs a server and a store.
    void anAddressWithAProblemCanStillBeAccepted() {
        paste("serverField", QStringLiteral("my host"));
        paste("storeField", QStringLiteral("s"));
        QCOMPARE(status(), QStringLiteral("A server name contains no blanks. Remove the blank from "
                                          "“my host”."));
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
        // Screen readers read it with the field and the button.
        QCOMPARE(part<QLineEdit>("storeField")->accessibleDescription(), status());
        QCOMPARE(part<QPushButton>("acceptButton")->accessibleDescription(), status());
    }

    void noTextIsCutOff() {
        paste("serverField",
              QStringLiteral("a-long-name-of-a-server.in-a-long-domain.example.org"));
        paste("pathField", QStringLiteral("a folder/in a folder/in another folder/of a server"));
        paste("storeField", QStringLiteral("a store with a long name"));
        const auto *label = part<QLabel>("addressLabel");
        QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
    }
};

VELMORA_TEST(WebDAVSheetTest)
#include "WebDAVSheetTest.moc"
