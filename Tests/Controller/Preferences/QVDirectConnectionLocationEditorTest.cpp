#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"

#include <QtCore/QThreadPool>
#include <QtGui/QClipboard>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Engine/DirectConnection/DirectConnection.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/TextField.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/ScriptedHost.h"
#include "Support/ScriptedLocation.h"
#include "Support/TestMain.h"

namespace {

const QString ServiceType = DirectConnection::BonjourServiceType;

std::shared_ptr<NetService> makeService(const QString &name, quint16 port = 0) {
    return std::make_shared<NetService>(QStringLiteral("local"), ServiceType, name, port);
}

/// Records whether a service was resolved.
class Resolution : public NetServiceDelegate {
public:
    void netServiceDidNotResolve(const std::shared_ptr<NetService> & /*service*/) override {
        hasEnded = true;
    }
    bool hasEnded = false;
};

}  // namespace

class QVDirectConnectionLocationEditorTest : public QObject {
    Q_OBJECT
    using Editor = QVDirectConnectionLocationEditor;

    std::optional<StoreScript> m_script;
    std::unique_ptr<ScriptedHost> m_host;
    std::shared_ptr<ScriptedLocation> m_location;
    std::shared_ptr<Editor> m_editor;
    std::unique_ptr<QWidget> m_parent;
    QList<qint64> m_results;

    static Url URLOf(const QString &authority) {
        return Url::fromString(DirectConnection::URLScheme + QStringLiteral("://") + authority);
    }
    void find(const std::shared_ptr<NetService> &service, bool moreComing = false) {
        m_editor->netServiceBrowserDidFindServiceMoreComing(nullptr, service, moreComing);
    }
    void remove(const std::shared_ptr<NetService> &service, bool moreComing = false) {
        m_editor->netServiceBrowserDidRemoveServiceMoreComing(nullptr, service, moreComing);
    }
    void run() {
        m_editor->runLocationEditorModalForWindow(
            m_parent.get(), true, [this](qint64 result) { m_results.append(result); });
    }
    template <class Widget>
    Widget *part(const char *name) {
        return m_editor->window()->findChild<Widget *>(QLatin1StringView(name));
    }
    void type(QWidget *field, const QString &text) { QTest::keyClicks(field, text); }
    void accept() {
        run();
        m_editor->acceptModalSheet(nullptr);
        QThreadPool::globalInstance()->waitForDone();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_script.emplace();
        m_results.clear();
        m_host = std::make_unique<ScriptedHost>();
        m_location = std::make_shared<ScriptedLocation>(&*m_script);
        m_editor = Editor::editorWithSyncLocation(m_location);
        m_parent = std::make_unique<QWidget>();
    }
    void cleanup() {
        m_script->release();
        QThreadPool::globalInstance()->waitForDone();
        m_editor.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_location.reset();
        m_parent.reset();
        m_host.reset();
    }

    void theURLOfAHostAlwaysHasAPort() {
        QCOMPARE(Editor::URLWithHost(QStringLiteral("studio.local"), 5000),
                 URLOf(QStringLiteral("studio.local:5000")));
        QCOMPARE(Editor::URLWithHost(QStringLiteral("studio.local"), 0),
                 URLOf(QStringLiteral("studio.local:%1").arg(DirectConnection::DefaultPort)));
        QVERIFY(Editor::URLWithHost(QString(), 5000).isNil());
        QVERIFY(Editor::URLWithHost(QStringLiteral("not a host"), 5000).isNil());
    }

    void hostAndPortAreThoseOfTheURL() {
        QVERIFY(m_editor->host().isNull());
        QCOMPARE(m_editor->port(), DirectConnection::DefaultPort);
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        QCOMPARE(m_editor->host(), QStringLiteral("studio.local"));
        QCOMPARE(m_editor->port(), 5000);
        m_location->setURL(URLOf(QStringLiteral("studio.local")));
        QCOMPARE(m_editor->port(), DirectConnection::DefaultPort);
        m_location->setURL(URLOf(QStringLiteral("studio.local:0")));
        QCOMPARE(m_editor->port(), DirectConnection::DefaultPort);
    }

    void settingTheHostKeepsThePort() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_editor->setHost(QStringLiteral("attic"));
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral("attic:5000")));
        m_editor->setHost(QString());
        QVERIFY(m_location->URL().isNil());
    }

    void settingThePortKeepsTheHost() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_editor->setPort(65535);
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral("studio.local:65535")));
        m_editor->setPort(0);
        QCOMPARE(m_location->URL(),
                 URLOf(QStringLiteral("studio.local:%1").arg(DirectConnection::DefaultPort)));
    }

    void aChangeOfTheURLAnnouncesHostAndPort() {
        QCOMPARE(Editor::keyPathsForValuesAffectingHost(), KeyValue::KeyPaths{"location.URL"});
        QCOMPARE(Editor::keyPathsForValuesAffectingPort(), KeyValue::KeyPaths{"location.URL"});
        AnnouncementRecorder recorder(m_editor.get());
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        QCOMPARE(recorder.count("host"), 1);
        QCOMPARE(recorder.count("port"), 1);
        recorder.clear();
        m_editor->setLocation(std::make_shared<ScriptedLocation>(&*m_script));
        QCOMPARE(recorder.count("host"), 1);
        QCOMPARE(recorder.count("port"), 1);
    }

    void servicesStayInTheOrderOfDiscoveryAlsoIfFoundTwice() {
        const auto first = makeService(QStringLiteral("Studio"));
        const auto second = makeService(QStringLiteral("Attic"));
        QVERIFY(m_editor->services().isEmpty());
        find(first);
        find(second);
        find(first);
        QCOMPARE(m_editor->services(), QList({first, second, first}));
        QCOMPARE(first->delegate(), m_editor.get());
        QCOMPARE(second->delegate(), m_editor.get());
    }

    void aBatchIsAnnouncedOnce() {
        AnnouncementRecorder recorder(m_editor.get());
        find(makeService(QStringLiteral("One")), true);
        find(makeService(QStringLiteral("Two")), true);
        QCOMPARE(recorder.count("services"), 0);
        find(makeService(QStringLiteral("Three")), false);
        QCOMPARE(recorder.count("services"), 1);
        QCOMPARE(m_editor->services().size(), 3);
    }

    void thisComputerIsLeftOut() {
        m_host->server.service = makeService(QStringLiteral("This computer"), 5000);
        const auto own = makeService(QStringLiteral("This computer"));
        AnnouncementRecorder recorder(m_editor.get());
        find(makeService(QStringLiteral("Studio")), true);
        find(own, false);
        QCOMPARE(recorder.count("services"), 1);
        QCOMPARE(m_editor->services().size(), 1);
        QVERIFY(!own->delegate());
        find(own, true);
        QCOMPARE(recorder.count("services"), 1);
    }

    void aRemovedServiceIsRemovedWithAllEqualOnes() {
        const auto service = makeService(QStringLiteral("Studio"));
        const auto equal = makeService(QStringLiteral("Studio"));
        const auto other = makeService(QStringLiteral("Attic"));
        find(service);
        find(other);
        find(equal);
        AnnouncementRecorder recorder(m_editor.get());
        remove(service, true);
        QCOMPARE(recorder.count("services"), 0);
        QCOMPARE(m_editor->services(), QList{other});
        QVERIFY(!service->delegate());
        QVERIFY(!equal->delegate());
        remove(other, false);
        QCOMPARE(recorder.count("services"), 1);
        QVERIFY(m_editor->services().isEmpty());
    }

    void aReleasedEditorIsNoLongerADelegate() {
        const auto service = makeService(QStringLiteral("Studio"));
        find(service);
        m_editor.reset();
        QVERIFY(!service->delegate());
    }

    // The default port stands in for no port, but never here.
    void aResolvedAddressIsTakenAsItIs() {
        AnnouncementRecorder recorder(m_editor.get());
        m_location->setURL(URLOf(QStringLiteral("before:1")));
        const auto service = makeService(QStringLiteral("Studio"));
        m_editor->netServiceDidResolveAddress(service);
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral(":0")));
        QCOMPARE(recorder.count("host"), 2);
        const auto serving = makeService(QStringLiteral("Studio"), 5000);
        m_editor->netServiceDidResolveAddress(serving);
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral(":5000")));
    }

    void aServiceThatDoesNotResolveChangesNothing() {
        const Url before = URLOf(QStringLiteral("before:1"));
        m_location->setURL(before);
        const auto service = makeService(QStringLiteral("Studio"));
        m_editor->netServiceDidNotResolve(service);
        QCOMPARE(m_location->URL(), before);
        QVERIFY(m_host->application.presentedErrors().isEmpty());
    }

    // No service replies in a test, so this takes the three seconds of the timeout.
    void aClickOnARowResolvesItsService() {
        run();
        const auto service = makeService(QStringLiteral("Attic"));
        find(makeService(QStringLiteral("Studio")));
        find(service);
        auto *table = part<TableView>("servicesTable");
        const auto click = [table](const QPoint &point) {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, point);
        };
        click(table->visualItemRect(table->item(1, 0)).center());
        QCOMPARE(table->clickedRow(), 1);
        Resolution resolution;
        service->setDelegate(&resolution);
        QTRY_VERIFY_WITH_TIMEOUT(resolution.hasEnded, 20000);
        service->setDelegate(nullptr);
    }

    void aClickBesideTheRowsResolvesNothing() {
        run();
        auto *table = part<TableView>("servicesTable");
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          QPoint(20, table->viewport()->height() - 2));
        QCOMPARE(table->clickedRow(), -1);
        find(makeService(QStringLiteral("Studio")));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          QPoint(20, table->viewport()->height() - 2));
        QCOMPARE(table->clickedRow(), -1);
        QVERIFY(m_location->URL().isNil());
    }

    void acceptingClosesTheSheetThenPairs() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_script->databases = QVRemoteDatabases();
        QStringList stepsAtCompletion{QStringLiteral("none yet")};
        m_editor->runLocationEditorModalForWindow(m_parent.get(), true, [&](qint64 result) {
            m_results.append(result);
            stepsAtCompletion = m_script->steps();
            QVERIFY(!m_editor->window()->isVisible());
        });
        m_editor->acceptModalSheet(nullptr);
        QCOMPARE(m_results, QList<qint64>{1});
        QVERIFY(stepsAtCompletion.isEmpty());
        QThreadPool::globalInstance()->waitForDone();
        QCOMPARE(m_script->steps(), QStringList({QStringLiteral("open"), QStringLiteral("fetch"),
                                                 QStringLiteral("close")}));
        QVERIFY(m_host->application.presentedErrors().isEmpty());
    }

    void oneFutureStandsForOpeningThenForClosing() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        accept();
        QCOMPARE(m_host->futures.size(), 1);
        const auto future = m_host->futures.first();
        QCOMPARE(future->cascades,
                 (QList<std::shared_ptr<PZFuture>>{m_script->future(QStringLiteral("open"))}));
        QCOMPARE(future->passes,
                 (QList<std::shared_ptr<PZFuture>>{m_script->future(QStringLiteral("close"))}));
    }

    void aHandlerThatReleasesTheEditorDoesNotPreventPairing() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_editor->runLocationEditorModalForWindow(m_parent.get(), true,
                                                  [this](qint64) { m_editor.reset(); });
        Editor *editor = m_editor.get();
        editor->acceptModalSheet(nullptr);
        QVERIFY(!m_editor);
        QThreadPool::globalInstance()->waitForDone();
        QCOMPARE(m_script->steps().last(), QStringLiteral("close"));
    }

    void withoutURLThereIsNoComputerToPairWith() {
        accept();
        QCOMPARE(m_results, QList<qint64>{1});
        QVERIFY(m_script->steps().isEmpty());
    }

    void aStoreThatCannotBeOpenedIsNeitherReadNorClosed() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_script->openError = Error{.domain = QStringLiteral("test"), .code = 1};
        accept();
        QCOMPARE(m_script->steps(), QStringList{QStringLiteral("open")});
        QVERIFY(m_host->application.presentedErrors().isEmpty());
        QVERIFY(m_host->application.logEntries().isEmpty());
    }

    void aFailedFetchIsSilentAndTheStoreIsClosed() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_script->fetchError = Error{.domain = QStringLiteral("test"), .code = 1};
        m_script->closeError = m_script->fetchError;
        accept();
        QCOMPARE(m_script->steps().last(), QStringLiteral("close"));
        QVERIFY(m_host->application.presentedErrors().isEmpty());
        QVERIFY(m_host->application.logEntries().isEmpty());
    }

    void cancellingDoesNotPair() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        run();
        m_editor->cancelModalSheet(nullptr);
        QThreadPool::globalInstance()->waitForDone();
        QCOMPARE(m_results, QList<qint64>{0});
        QVERIFY(m_script->steps().isEmpty());
    }

    void theTableShowsTheNamesOfTheServices() {
        run();
        QVERIFY(part<QLabel>("emptyLabel")->isVisible());
        find(makeService(QStringLiteral("Studio")), true);
        QCOMPARE(part<TableView>("servicesTable")->rowCount(), 0);
        find(makeService(QStringLiteral("Attic")));
        QCOMPARE(part<TableView>("servicesTable")->rowCount(), 2);
        QCOMPARE(part<TableView>("servicesTable")->item(1, 0)->text(), QStringLiteral("Attic"));
        QVERIFY(!part<QLabel>("emptyLabel")->isVisible());
    }

    void theHostCanBeTypedAtOnceIfThereIsNothingToChoose() {
        run();
        QTRY_COMPARE(m_editor->window()->focusWidget(), part<TextField>("hostField"));
    }

    void theListHasTheFocusIfThereIsSomethingToChoose() {
        m_editor->window();
        find(makeService(QStringLiteral("Studio")));
        run();
        QTRY_COMPARE(m_editor->window()->focusWidget(), part<TableView>("servicesTable"));
    }

    void theFieldsShowAndSetTheURL() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        run();
        auto *host = part<TextField>("hostField");
        auto *port = part<QSpinBox>("portField");
        QCOMPARE(host->text(), QStringLiteral("studio.local"));
        QCOMPARE(port->value(), 5000);
        host->selectAll();
        type(host, QStringLiteral("attic"));
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral("attic:5000")));
        port->setValue(6000);
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral("attic:6000")));
        m_editor->netServiceDidResolveAddress(makeService(QStringLiteral("Studio"), 7000));
        QCOMPARE(port->value(), 7000);
    }

    void acceptingNeedsAHost() {
        run();
        const auto *accept = part<QPushButton>("acceptButton");
        QVERIFY(!accept->isEnabled());
        const auto *problem = part<QLabel>("problemLabel");
        QVERIFY(problem->isVisible());
        QCOMPARE(problem->text(), QStringLiteral("Choose a computer, or enter its host."));
        QCOMPARE(accept->accessibleDescription(), problem->text());
        QVERIFY(!part<QSpinBox>("portField")->isEnabled());
        type(part<TextField>("hostField"), QStringLiteral("studio"));
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
        QVERIFY(!problem->isVisible());
        QVERIFY(part<QSpinBox>("portField")->isEnabled());
        type(part<TextField>("hostField"), QStringLiteral(" "));
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
        type(part<TextField>("hostField"), QStringLiteral("2"));
        QVERIFY(!part<QPushButton>("acceptButton")->isEnabled());
    }

    void anAddressIsKeptWhileItsHostFieldIsWrong() {
        const Url before = URLOf(QStringLiteral("studio.local:5000"));
        m_location->setURL(before);
        m_editor->runLocationEditorModalForWindow(
            m_parent.get(), false, [this](qint64 result) { m_results.append(result); });
        auto *host = part<TextField>("hostField");
        auto *problem = part<QLabel>("problemLabel");
        QVERIFY(problem->isHidden());
        host->selectAll();
        type(host, QStringLiteral("my attic"));
        QCOMPARE(problem->text(),
                 QStringLiteral("“my attic” is not a valid host. Enter a name, such "
                                "as “computer.local”, or an IP address."));
        QVERIFY(problem->isVisible());
        QVERIFY(!part<QPushButton>("acceptButton")->isEnabled());
        QCOMPARE(host->accessibleDescription(), problem->text());
        QCOMPARE(part<QPushButton>("acceptButton")->accessibleDescription(), problem->text());
        QTest::keyClick(host, Qt::Key_Return);
        QCOMPARE(host->text(), QStringLiteral("my attic"));
        // The last text that was valid.
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral("my:5000")));
        m_editor->netServiceDidResolveAddress(makeService(QStringLiteral("Studio"), 7000));
        QVERIFY(problem->isHidden());
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
    }

    void aBlankPastedWithAHostDoesNoHarm() {
        run();
        auto *host = part<TextField>("hostField");
        QGuiApplication::clipboard()->setText(QStringLiteral(" studio.local\n"));
        host->paste();
        QCOMPARE(host->text(), QStringLiteral("studio.local"));
        QCOMPARE(m_editor->host(), QStringLiteral("studio.local"));
    }

    void anEmptiedHostFieldGivesANilHost() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        run();
        auto *host = part<TextField>("hostField");
        host->selectAll();
        QTest::keyClick(host, Qt::Key_Backspace);
        QVERIFY(host->text().isEmpty());
        QVERIFY(m_editor->host().isNull());
        QVERIFY(m_location->URL().isNil());
    }

    void theSheetOfAnExistingLocationCanBeLeftWithoutAHost() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        m_editor->runLocationEditorModalForWindow(
            m_parent.get(), false, [this](qint64 result) { m_results.append(result); });
        QVERIFY(part<QPushButton>("cancelButton")->isHidden());
        auto *host = part<TextField>("hostField");
        host->selectAll();
        QTest::keyClick(host, Qt::Key_Backspace);
        QVERIFY(part<QPushButton>("acceptButton")->isEnabled());
        part<QPushButton>("acceptButton")->click();
        QCOMPARE(m_results, QList<qint64>{1});
        QThreadPool::globalInstance()->waitForDone();
        QVERIFY(m_script->steps().isEmpty());
    }

    void acceptingTwicePairsOnce() {
        m_location->setURL(URLOf(QStringLiteral("studio.local:5000")));
        run();
        m_editor->acceptModalSheet(nullptr);
        m_editor->acceptModalSheet(nullptr);
        QThreadPool::globalInstance()->waitForDone();
        QCOMPARE(m_results, QList<qint64>{1});
        QCOMPARE(m_script->steps(), QStringList({QStringLiteral("open"), QStringLiteral("fetch"),
                                                 QStringLiteral("close")}));
    }

    void aNewPortKeepsAnIPv6Host() {
        m_location->setURL(URLOf(QStringLiteral("[fe80::1]:5000")));
        QCOMPARE(m_editor->host(), QStringLiteral("fe80::1"));
        m_editor->setPort(6000);
        QCOMPARE(m_location->URL(), URLOf(QStringLiteral("[fe80::1]:6000")));
    }

    void aHostThatIsNotCompleteYetStaysInItsField() {
        run();
        auto *host = part<TextField>("hostField");
        type(host, QStringLiteral("[fe80::1]"));
        QCOMPARE(host->text(), QStringLiteral("[fe80::1]"));
        QCOMPARE(m_location->URL(),
                 URLOf(QStringLiteral("[fe80::1]:%1").arg(DirectConnection::DefaultPort)));
    }

    void theAcceptButtonAccepts() {
        run();
        type(part<TextField>("hostField"), QStringLiteral("studio"));
        part<QPushButton>("acceptButton")->click();
        QCOMPARE(m_results, QList<qint64>{1});
        QThreadPool::globalInstance()->waitForDone();
        QCOMPARE(m_script->steps().first(), QStringLiteral("open"));
    }

    void anAbsentWindowIsAProgrammingError() {
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 m_editor->runLocationEditorModalForWindow(nullptr, true, {}));
    }
};

VELMORA_TEST(QVDirectConnectionLocationEditorTest)
#include "QVDirectConnectionLocationEditorTest.moc"
