#include "Controller/Preferences/QVDropboxLocationEditor.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Host/QVDropboxSessionManager.h"
#include "Platform/Foundation/Assertion.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/ScriptedHost.h"
#include "Support/TestLocation.h"
#include "Support/TestMain.h"

namespace {

class Account : public PZDropboxAccountInfo {
public:
    explicit Account(const QString &email) : m_email(email) {}
    QString email() const override { return m_email; }

private:
    const QString m_email;
};

/// A session whose result the test controls.
class ScriptedSession : public QVDropboxSession {
public:
    void authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) override {
        futures.append(future);
        m_handler = std::move(handler);
    }
    void answer(const std::shared_ptr<PZDropboxAccountInfo> &account) {
        const Error refused{.domain = QStringLiteral("test"), .code = 1};
        const Handler handler = std::exchange(m_handler, nullptr);
        handler(account, account ? std::optional<Error>() : refused);
    }
    void authorizeAs(const QString &email) { answer(std::make_shared<Account>(email)); }
    bool isAsked() const { return m_handler != nullptr; }

    QList<std::shared_ptr<PZFuture>> futures;

private:
    Handler m_handler;
};

class ScriptedSessionManager : public QVDropboxSessionManager {
public:
    std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) override {
        URLs.append(URL);
        return session;
    }

    QList<Url> URLs;
    std::shared_ptr<ScriptedSession> session = std::make_shared<ScriptedSession>();
};

}  // namespace

class QVDropboxLocationEditorTest : public QObject {
    Q_OBJECT
    using Editor = QVDropboxLocationEditor;

    struct Manager {
        ScriptedSessionManager manager;
        HostClassRegistration registration{&manager};
    };

    // Without the engine, which has a manager of its own.
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<Manager> m_manager;
    std::shared_ptr<QVSyncLocation> m_location;
    std::shared_ptr<Editor> m_editor;
    std::unique_ptr<QWidget> m_parent;
    QList<qint64> m_results;

    ScriptedSession &session() { return *m_manager->manager.session; }
    void run() {
        m_editor->runLocationEditorModalForWindow(
            m_parent.get(), true, [this](qint64 result) { m_results.append(result); });
    }
    void compareState(const QString &status, bool isAuthorized) {
        QCOMPARE(m_editor->authorizationStatus(), status);
        QCOMPARE(m_editor->isAuthorized(), isAuthorized);
        QCOMPARE(m_editor->canAccept(), isAuthorized);
    }

private Q_SLOTS:
    void init() {
        m_results.clear();
        m_host = std::make_unique<ScriptedHost>();
        m_manager = std::make_unique<Manager>();
        m_location = locationWithoutEngine();
        m_editor = Editor::editorWithSyncLocation(m_location);
        m_parent = std::make_unique<QWidget>();
    }
    void cleanup() {
        // It keeps the editor, which keeps it.
        if (session().isAsked()) {
            session().answer(nullptr);
        }
        m_editor.reset();
        m_location.reset();
        m_parent.reset();
        m_manager.reset();
        m_host.reset();
    }

    void aNewEditorIsNotAuthorized() {
        compareState(QStringLiteral("Not authorized"), false);
        QVERIFY(!m_editor->accountInfo());
        QVERIFY(m_editor->future());
        QVERIFY(!session().isAsked());
        QCOMPARE(m_manager->manager.URLs, QList<Url>{Url()});
    }

    void theSessionIsThatOfTheLocationsURL() {
        const Url URL = Url::fromString(QStringLiteral("dropbox://kim@example.org"));
        const auto editor = Editor::editorWithSyncLocation(locationWithoutEngine(URL));
        QCOMPARE(m_manager->manager.URLs.last(), URL);
    }

    void runningStartsTheAuthorizationAtOnceWithoutAWindow() {
        run();
        QVERIFY(session().isAsked());
        QCOMPARE(session().futures, QList{m_editor->future()});
        compareState(QStringLiteral("Authorizing…"), false);
        QVERIFY(m_editor->authorizationStatus().endsWith(QChar(0x2026)));
        QVERIFY(m_editor->shouldShowCancelButton());
        QVERIFY(!m_editor->isWindowLoaded());
        QVERIFY(QApplication::topLevelWidgets() == QWidgetList{m_parent.get()});
        QVERIFY(m_results.isEmpty());
    }

    void anAuthorizedAccountIsAcceptedAtOnce() {
        run();
        session().authorizeAs(QStringLiteral("kim@example.org"));
        compareState(QStringLiteral("Authorized"), true);
        QCOMPARE(m_editor->accountInfo()->email(), QStringLiteral("kim@example.org"));
        QCOMPARE(m_results, QList<qint64>{1});
        QCOMPARE(m_location->URL().absoluteString(), QStringLiteral("dropbox://kim@example.org"));
        QCOMPARE(m_location->URL().user(), QStringLiteral("kim"));
        QCOMPARE(m_location->URL().host(), QStringLiteral("example.org"));
        QVERIFY(!m_editor->isWindowLoaded());
    }

    void everythingIsAnnouncedBeforeTheHandlerIsCalled() {
        AnnouncementRecorder recorder(m_editor.get());
        QByteArrayList announcedAtCompletion;
        m_editor->runLocationEditorModalForWindow(
            m_parent.get(), false, [&](qint64) { announcedAtCompletion = recorder.announced(); });
        QVERIFY(!m_editor->shouldShowCancelButton());
        recorder.clear();
        session().authorizeAs(QStringLiteral("kim@example.org"));
        QCOMPARE(announcedAtCompletion,
                 QByteArrayList({"accountInfo", "authorizationStatus", "authorized", "canAccept"}));
    }

    void aRefusalChangesNothingAndCompletesNothing() {
        const Url before = Url::fromString(QStringLiteral("dropbox://before@example.org"));
        m_location->setURL(before);
        run();
        session().answer(nullptr);
        compareState(QStringLiteral("Not authorized"), false);
        QVERIFY(!m_editor->accountInfo());
        QCOMPARE(m_location->URL(), before);
        QVERIFY(m_results.isEmpty());
        QVERIFY(m_host->application.presentedErrors().isEmpty());
    }

    void authorizingAgainUsesTheSameFuture() {
        run();
        session().answer(nullptr);
        m_editor->authorize(nullptr);
        compareState(QStringLiteral("Authorizing…"), false);
        QCOMPARE(session().futures, QList({m_editor->future(), m_editor->future()}));
        session().authorizeAs(QStringLiteral("kim@example.org"));
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void authorizingAgainLeavesAuthorizedAsItIs() {
        run();
        session().authorizeAs(QStringLiteral("kim@example.org"));
        m_editor->authorize(nullptr);
        compareState(QStringLiteral("Authorizing…"), true);
        session().answer(nullptr);
        compareState(QStringLiteral("Not authorized"), true);
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void acceptingBeforeAnAuthorizationChangesNothing() {
        const Url before = Url::fromString(QStringLiteral("dropbox://before@example.org"));
        m_location->setURL(before);
        run();
        m_editor->acceptModalSheet(nullptr);
        QCOMPARE(m_location->URL(), before);
        QVERIFY(m_results.isEmpty());
        session().authorizeAs(QStringLiteral("before@example.org"));
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void theFormShowsTheStatusAndAcceptsOnlyWhatIsAuthorized() {
        registerSyncPreferencesInterface();
        QWidget *window = m_editor->window();
        const auto *status = window->findChild<QLabel *>(QStringLiteral("statusLabel"));
        const auto *ok = window->findChild<QPushButton *>(QStringLiteral("acceptButton"));
        QCOMPARE(status->text(), QStringLiteral("Not authorized"));
        QVERIFY(!ok->isEnabled());
        m_editor->setAuthorized(true);
        QVERIFY(ok->isEnabled());
        m_editor->setAuthorizationStatus(QStringLiteral("Authorized"));
        QCOMPARE(status->text(), QStringLiteral("Authorized"));
    }

    void anAddressThatDoesNotParseGivesANilURL() {
        m_location->setURL(Url::fromString(QStringLiteral("dropbox://before@example.org")));
        run();
        session().authorizeAs(QStringLiteral("kim and co@example.org"));
        QVERIFY(m_location->URL().isNil());
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void theAddressIsNotEscaped() {
        run();
        session().authorizeAs(QStringLiteral("kim%20co@example.org"));
        QCOMPARE(m_location->URL().absoluteString(),
                 QStringLiteral("dropbox://kim%20co@example.org"));
    }

    void canAcceptFollowsAuthorized() {
        QCOMPARE(Editor::keyPathsForValuesAffectingCanAccept(), KeyValue::KeyPaths{"authorized"});
        AnnouncementRecorder recorder(m_editor.get());
        m_editor->setAuthorized(true);
        QCOMPARE(recorder.announced(), QByteArrayList({"authorized", "canAccept"}));
        QVERIFY(m_editor->canAccept());
    }

    void theSessionKeepsTheEditorUntilItsHandlerIsCalled() {
        run();
        const std::weak_ptr<Editor> editor = m_editor;
        m_editor.reset();
        QVERIFY(!editor.expired());
        session().authorizeAs(QStringLiteral("kim@example.org"));
        QCOMPARE(m_results, QList<qint64>{1});
        QVERIFY(editor.expired());
    }

    void theSenderMayBeDestroyedBeforeTheResult() {
        run();
        {
            QObject sender;
            m_editor->authorize(&sender);
        }
        session().authorizeAs(QStringLiteral("kim@example.org"));
        QCOMPARE(m_results, QList<qint64>{1});
    }

    void anAbsentWindowIsAProgrammingError() {
        try {
            m_editor->runLocationEditorModalForWindow(nullptr, true, {});
            QFAIL("nothing was raised");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: parentWindow != nil"));
            QCOMPARE(failure.sourceFile(),
                     QStringLiteral("Controller/Preferences/QVDropboxLocationEditor"));
            QCOMPARE(failure.line(), 50);
        }
        QVERIFY(!session().isAsked());
    }
};

VELMORA_TEST(QVDropboxLocationEditorTest)
#include "QVDropboxLocationEditorTest.moc"
