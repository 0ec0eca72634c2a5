#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/QuitGuard.h"
#include "Application/QuitProgressDialog.h"
#include "Application/StatusLine.h"
#include "Application/SynchronizationMonitor.h"
#include "Engine/Schedules/EngineDailySchedule.h"
#include "Platform/Interface/MessageBox.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/TextLabel.h"
#include "Support/ScriptedServer.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// The main window shows how the synchronization stands, and synchronizes before it is closed.
class MainWindowStatusTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ScriptedServer> m_silent;

    static constexpr char Unsent[] =
        "“Projects” has changes that are not synchronized with “Store 0” yet";

    StatusLine *line() const { return m_window->findChild<StatusLine *>(); }
    QString status() const { return line()->findChild<TextLabel *>()->text(); }
    QPushButton *button(const QString &text) const {
        for (auto *each : line()->findChildren<QPushButton *>()) {
            if (each->text().remove(u'&') == text) {
                return each;
            }
        }
        return nullptr;
    }
    /// Ticks `location` for "Projects", as the panel does.
    std::shared_ptr<QVSyncState> tick(const std::shared_ptr<QVSyncLocation> &location) {
        const auto state = m_host->addState(location, m_database);
        state->setEnabled(true);
        m_host->save();
        return state;
    }
    std::shared_ptr<QVSyncState> tickSilentServer() {
        m_silent = std::make_unique<ScriptedServer>(
            [](ScriptedServer::Connection &connection) { connection.waitUntilClosed(); });
        return tick(m_host->addLocation(m_silent->URLText(QStringLiteral("Shared.qvSyncStore"))));
    }
    void synchronize(const QVSyncStates &states) {
        m_host->engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            states);
    }
    static QStringList titles(const QList<RecoveryOption> &options) {
        QStringList titles;
        for (const RecoveryOption &option : options) {
            titles.append(option.title);
        }
        return titles;
    }
    /// Makes the folders of an empty sync store.
    static void makeStore(const QVSyncLocation &location) {
        QVERIFY(QDir().mkpath(location.URL().path() + QStringLiteral("/databases")));
        QVERIFY(QDir().mkpath(location.URL().path() + QStringLiteral("/transactions")));
    }
    /// Adds a record to the database at `location` that cannot be read.
    void damage(const QVSyncLocation &location) {
        QFile record(location.URL().path() + QStringLiteral("/transactions/") + m_database->UUID() +
                     QStringLiteral("/00000000-0000-4000-8000-000000000001.json"));
        QVERIFY(record.open(QIODevice::WriteOnly));
        record.write("damaged");
    }
    void addNote() {
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        QVERIFY(m_database->saveNote(note));
    }
    /// Clicks a button of the dialog that comes next, and keeps its text.
    void answer(const QString &wanted) {
        m_question.clear();
        QTimer::singleShot(0, m_window.get(), [this, wanted] {
            QWidget *dialog = QApplication::activeModalWidget();
            QVERIFY(dialog);
            if (const auto *box = qobject_cast<QMessageBox *>(dialog)) {
                m_question = box->text() + u'\n' + box->informativeText();
            }
            for (auto *each : dialog->findChildren<QPushButton *>()) {
                if (each->text().remove(u'&') == wanted) {
                    each->click();
                    return;
                }
            }
            QFAIL(qPrintable(wanted));
        });
    }
    QString m_question;

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_database = m_host->addDatabase(QStringLiteral("Projects"));
        addNote();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        new QuitGuard(m_window.get());
        m_window->show();
    }
    void cleanup() {
        m_window.reset();
        m_database.reset();
        m_host.reset();
        m_silent.reset();
    }

    void itSaysWhatIsNotSynchronizedUntilItIs() {
        QCOMPARE(status(),
                 QStringLiteral("Nothing is synchronized: no database has a ticked location"));
        const auto state = tick(m_host->addLocation());
        QTRY_COMPARE(status(),
                     QStringLiteral("“Projects” has not been synchronized with “Store 0” yet"));
        synchronize({state});
        QTRY_COMPARE(status(), QStringLiteral("All up to date"));
        addNote();
        QTRY_COMPARE(status(), QString::fromUtf8(Unsent));
        // What a clean-up has done to the records is no change.
        bool isClean = false;
        m_host->engine().plugin().dispatcher()->cleanRemoteStoreWithSynchronizationState(
            state, [&] { isClean = true; });
        QTRY_VERIFY(isClean);
        QTRY_COMPARE(status(), QStringLiteral("All up to date"));
        Note note = m_database->notes().value().first();
        QVERIFY(m_database->removeNote(note));
        QTRY_COMPARE(status(), QString::fromUtf8(Unsent));
        state->setEnabled(false);
        m_host->save();
        QTRY_COMPARE(status(),
                     QStringLiteral("Nothing is synchronized: no database has a ticked location"));
    }

    void itSaysWhenTheNextSynchronizationIs() {
        const auto state = tick(m_host->addLocation());
        const QTime noon(12, 0);
        state->setSchedule(std::make_shared<EngineDailySchedule>(HourAndMinute{12, 0}));
        m_host->save();
        synchronize({state});
        const bool isToday = QDateTime::currentDateTime().time() < noon;
        QTRY_COMPARE(status(),
                     QStringLiteral("All up to date · next: %1 at %2")
                         .arg(isToday ? QStringLiteral("today") : QStringLiteral("tomorrow"),
                              QLocale().toString(noon, QLocale::ShortFormat)));
    }

    void afterAFailureItSaysWhatFailed() {
        const auto good = tick(m_host->addLocation());
        const auto location = m_host->addLocation();
        const auto state = tick(location);
        QVERIFY(QDir(location->URL().path()).removeRecursively());
        synchronize({good, state});
        QTRY_COMPARE(status(), QStringLiteral(
                                   "“Projects” is not synchronized with “Store 1”: not available"));
        QPushButton *details = button(QStringLiteral("What Failed…"));
        QVERIFY(details->isVisible());
        details->click();
        const Error presented = m_host->application().presentedErrors().last();
        QVERIFY(presented.localizedDescription.startsWith(
            QStringLiteral("“Projects” could not be synchronized with “Store 1”: ")));
        QVERIFY2(presented.details.startsWith(
                     QStringLiteral("Address: %1\nTime: ").arg(location->URL().absoluteString())),
                 qPrintable(presented.details));
        QCOMPARE(titles(presented.recoveryOptions),
                 QStringList({QStringLiteral("Edit Location…"), QStringLiteral("Try Again"),
                              QStringLiteral("Show Folder")}));
        presented.recoveryOptions[2].choose();
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 2);
        const Error unshown = m_host->application().presentedErrors().last();
        QVERIFY2(unshown.localizedDescription.startsWith(
                     QStringLiteral("“%1” does not exist. ").arg(location->URL().path())),
                 qPrintable(unshown.localizedDescription));
        QCOMPARE(titles(unshown.recoveryOptions), QStringList{QStringLiteral("Edit Location…")});
        makeStore(*location);
        presented.recoveryOptions[1].choose();
        QTRY_COMPARE(status(), QStringLiteral("All up to date"));
        QVERIFY(!details->isVisible());
    }

    void failuresAtSeveralLocationsAreTriedAgainTogether() {
        QVERIFY(QDir(tick(m_host->addLocation())->destination()->URL().path()).removeRecursively());
        QVERIFY(QDir(tick(m_host->addLocation())->destination()->URL().path()).removeRecursively());
        QVERIFY(QDir(m_host->directory()).exists());
        synchronize(m_host->locations().syncLocations()[0]->synchronizationStates() +
                    m_host->locations().syncLocations()[1]->synchronizationStates());
        QTRY_COMPARE(status(), QStringLiteral("2 of 2 synchronizations failed"));
        button(QStringLiteral("What Failed…"))->click();
        QCOMPARE(titles(m_host->application().presentedErrors().last().recoveryOptions),
                 QStringList{QStringLiteral("Try Again")});
    }

    void whatWasLeftOutIsNotCountedAsFailed() {
        const auto first = tick(m_host->addLocation());
        const auto second = tick(m_host->addLocation());
        synchronize({first, second});
        QTRY_COMPARE(status(), QStringLiteral("All up to date"));
        damage(*first->destination());
        damage(*second->destination());
        synchronize({first, second});
        QTRY_COMPARE(status(), QStringLiteral("Some items failed in 2 of 2 synchronizations"));
        const auto location = second->destination();
        QVERIFY(QDir(location->URL().path()).removeRecursively());
        synchronize({second});
        QTRY_COMPARE(status(), QStringLiteral(
                                   "“Projects” is not synchronized with “Store 1”: not available"));
        makeStore(*location);
        synchronize({second});
        QTRY_COMPARE(status(), QStringLiteral("Some items of “Projects” could not be synchronized "
                                              "with “Store 0”"));
        synchronize({first});
        QTRY_COMPARE(status(), QStringLiteral("All up to date"));
    }

    void jobsThatWaitForAStoppedSynchronizationAreShown() {
        const auto state = tickSilentServer();
        const auto other = m_host->addDatabase(QStringLiteral("Recipes"));
        const auto second = m_host->addState(state->destination(), other);
        second->setEnabled(true);
        synchronize({state, second});
        QTRY_COMPARE(m_silent->connections(), 1);
        state->setEnabled(false);
        QCOMPARE(status(),
                 QStringLiteral("Waiting to synchronize “Recipes” with “127.0.0.1 – Shared”…"));
        QVERIFY(button(QStringLiteral("Stop"))->isVisible());
        QTRY_COMPARE(status(),
                     QStringLiteral("Synchronizing “Recipes” with “127.0.0.1 – Shared”…"));
        button(QStringLiteral("Stop"))->click();
        QVERIFY(!m_window->monitor()->isRunning());
    }

    void storesOfOneNameAreShownWithTheirAddresses() {
        const QString first = QStringLiteral("http://ida@127.0.0.1:1/a/Shared.qvSyncStore");
        const QString second = QStringLiteral("http://127.0.0.1:2/b/Shared.qvSyncStore");
        const auto location = m_host->addLocation(first);
        tick(location);
        QTRY_COMPARE(
            status(),
            QStringLiteral("“Projects” has not been synchronized with “127.0.0.1 – Shared” yet"));
        m_host->addLocation(second);
        m_host->save();
        QTRY_COMPARE(
            status(),
            QStringLiteral("“Projects” has not been synchronized with “%1” yet").arg(first));
    }

    void itShowsWhatRunsAndStopsItAtOnce() {
        const auto state = tickSilentServer();
        QPushButton *stop = button(QStringLiteral("Stop"));
        QVERIFY(!stop->isVisible());
        synchronize({state});
        QCOMPARE(status(), QStringLiteral("Synchronizing “Projects” with “127.0.0.1 – Shared”…"));
        QVERIFY(line()->findChild<QProgressBar *>()->isVisible());
        QTRY_COMPARE(m_silent->connections(), 1);
        stop->click();
        QTRY_VERIFY(!stop->isVisible());
        QCOMPARE(
            status(),
            QStringLiteral("“Projects” has not been synchronized with “127.0.0.1 – Shared” yet"));
    }

    void quittingAsksNothingIfAllIsUpToDate() { QVERIFY(m_window->close()); }

    void unsentChangesAreNamedBeforeQuitting() {
        const auto state = tick(m_host->addLocation());
        answer(QStringLiteral("Cancel"));
        QVERIFY(!m_window->close());
        QVERIFY2(m_question.startsWith(QStringLiteral(
                     "“Projects” has changes that are not synchronized with “Store 0”.")),
                 qPrintable(m_question));
        QVERIFY(m_window->isVisible());
        answer(QStringLiteral("Quit"));
        QVERIFY(m_window->close());
        QVERIFY(!state->lastSynced().isValid());
    }

    void theyAreSynchronizedIfTheUserWantsThat() {
        const auto state = tick(m_host->addLocation());
        answer(QStringLiteral("Synchronize and Quit"));
        QVERIFY(m_window->close());
        QVERIFY(state->lastSynced().isValid());
        QVERIFY(m_window->monitor()->summary().isUpToDate());
    }

    void quittingClosesTheDatabases() {
        const auto state = tick(m_host->addLocation());
        state->setSyncOnClose(true);
        QVERIFY(m_window->close());
        QVERIFY(state->lastSynced().isValid());
    }

    void aClosedDatabaseIsNotClosedAgain() {
        const auto state = tick(m_host->addLocation());
        m_host->closeDatabase(m_database);
        state->setSyncOnClose(true);
        answer(QStringLiteral("Quit"));
        QVERIFY(m_window->close());
        QVERIFY(!state->lastSynced().isValid());
    }

    void databasesThatCannotBeSynchronizedAreNamed() {
        const auto location = m_host->addLocation();
        tick(location)->setSyncOnClose(true);
        QVERIFY(QDir(location->URL().path()).removeRecursively());
        const auto wait =
            connect(m_host->engine().plugin().dispatcher(), &QVSyncDispatcher::activityChanged,
                    this, [this] {
                        if (m_host->engine().plugin().dispatcher()->activity().isEmpty()) {
                            answer(QStringLiteral("Cancel"));
                        }
                    });
        QVERIFY(!m_window->close());
        QVERIFY2(m_question.contains(QStringLiteral("Store 0")), qPrintable(m_question));
        QVERIFY(m_question.contains(QStringLiteral("Quit anyway?")));
        disconnect(wait);
    }

    void itCanBeSynchronizedAgainBeforeQuitting() {
        const auto location = m_host->addLocation();
        const auto state = tick(location);
        state->setSyncOnClose(true);
        const QString package = location->URL().path();
        QVERIFY(QDir().rename(package, package + u'x'));
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                timer.stop();
                QVERIFY(QDir().rename(package + u'x', package));
                answer(QStringLiteral("Try Again"));
            }
        });
        timer.start(10);
        QVERIFY(m_window->close());
        QVERIFY(state->lastSynced().isValid());
    }

    void aMessageThatComesUpMeanwhileKeepsTheWindowOpen() {
        const auto state = tick(m_host->addLocation());
        state->setSyncOnClose(true);
        MessageBox message(QMessageBox::Warning, QStringLiteral("Nobody has read it."), {},
                           m_window.get());
        message.addButton(QMessageBox::Ok);
        connect(m_host->engine().plugin().dispatcher(), &QVSyncDispatcher::activityChanged,
                &message, &QDialog::open, Qt::SingleShotConnection);
        QVERIFY(!m_window->close());
        QVERIFY(state->lastSynced().isValid());
        QVERIFY(message.isVisible());
        QVERIFY(!m_window->close());
        message.close();
        QVERIFY(m_window->close());
    }

    void theWaitCanBeEndedAtOnce() {
        tickSilentServer()->setSyncOnClose(true);
        const auto endWait = [this](const QString &choice) {
            auto *timer = new QTimer(this);
            connect(timer, &QTimer::timeout, this, [this, timer, choice] {
                if (m_silent->connections() > 0 &&
                    qobject_cast<QuitProgressDialog *>(QApplication::activeModalWidget())) {
                    timer->deleteLater();
                    answer(choice);
                }
            });
            timer->start(10);
        };
        endWait(QStringLiteral("Cancel"));
        QVERIFY(!m_window->close());
        QVERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
        endWait(QStringLiteral("Quit Now"));
        QVERIFY(m_window->close());
        QVERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
    }

    void theProgressIsShownAsSoonAsItChanges() {
        const auto state = tickSilentServer();
        QuitProgressDialog dialog(m_window->monitor(), nullptr);
        const auto *label = dialog.findChild<QLabel *>();
        const QString before = label->text();
        synchronize({state});
        QVERIFY(label->text() != before);
        QCOMPARE(label->text(), PlainText::message(m_window->monitor()->activity()));
        dialog.reject();
        QVERIFY(!m_window->monitor()->isRunning());
        QCOMPARE(label->text(), before);
    }

    void theWaitHasLimits_data() {
        using namespace std::chrono_literals;
        QTest::addColumn<std::chrono::milliseconds>("pause");
        QTest::addColumn<std::chrono::milliseconds>("wait");
        QTest::newRow("without progress") << 100ms << std::chrono::milliseconds(1h);
        QTest::newRow("in all") << std::chrono::milliseconds(1h) << 100ms;
    }
    void theWaitHasLimits() {
        QFETCH(const std::chrono::milliseconds, pause);
        QFETCH(const std::chrono::milliseconds, wait);
        tickSilentServer();
        answer(QStringLiteral("Synchronize and Quit"));
        bool isLimited = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            QWidget *modal = QApplication::activeModalWidget();
            auto *dialog = qobject_cast<QuitProgressDialog *>(modal);
            if (dialog && !isLimited && m_silent->connections() > 0) {
                isLimited = true;
                dialog->setLimits(pause, wait);
            } else if (isLimited && qobject_cast<QMessageBox *>(modal)) {
                timer.stop();
                answer(QStringLiteral("Quit"));
            }
        });
        timer.start(10);
        QVERIFY(m_window->close());
        QVERIFY(isLimited);
        QVERIFY2(m_question.startsWith(QStringLiteral("Some changes could not be synchronized.")),
                 qPrintable(m_question));
        QVERIFY2(m_question.contains(QStringLiteral("“Projects” with “127.0.0.1 – Shared”")),
                 qPrintable(m_question));
        QVERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
    }

    void whoHasCancelledQuittingCanHideTheWindow() {
        tick(m_host->addLocation());
        // Once more while the user is asked.
        QTimer::singleShot(0, m_window.get(), [this] { m_window->quit(); });
        answer(QStringLiteral("Cancel"));
        m_window->quit();
        QVERIFY(m_window->isVisible());
        m_window->findChild<QuitGuard *>()->setHiding(true);
        bool isAsked = false;
        QTimer::singleShot(0, m_window.get(), [&] {
            if (QWidget *dialog = QApplication::activeModalWidget()) {
                isAsked = true;
                dialog->close();
            }
        });
        m_window->close();
        QCoreApplication::processEvents();
        QVERIFY(!isAsked);
        QVERIFY(!m_window->isVisible());
    }

    void theEndOfTheSessionAsksNothing() {
        tickSilentServer()->setSyncOnClose(true);
        m_window->findChild<QuitGuard *>()->allowEnd();
        QVERIFY(m_window->close());
        QCOMPARE(m_silent->connections(), 0);
    }
};

VELMORA_TEST(MainWindowStatusTest)
#include "MainWindowStatusTest.moc"
