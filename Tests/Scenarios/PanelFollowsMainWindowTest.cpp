#include <QtGui/QAction>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>

#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/NotesView.h"
#include "Application/PreferencesWindow.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// The panel shows immediately what the user does in the main window.
class PanelFollowsMainWindowTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;
    QPointer<PreferencesWindow> m_preferences;

    QStringList panelRows() const {
        QStringList names;
        for (const auto &item : QVSyncPreferences::preferences()->databasesView()->items()) {
            names.append(item->view()->findChild<QLabel *>(QStringLiteral("rowName"))->text());
        }
        return names;
    }

    void trigger(const char *text) {
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->text() == QString::fromUtf8(text)) {
                action->trigger();
                return;
            }
        }
        QFAIL(text);
    }

    /// Triggers an action that asks for a name, and gives it.
    void triggerWithName(const char *text, const QString &name) {
        QTimer::singleShot(0, this, [name] {
            auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->setTextValue(name);
            dialog->accept();
        });
        trigger(text);
    }

    QListWidget *databases() const {
        return m_window->findChild<QListWidget *>(QStringLiteral("databases"));
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }

    void init() {
        m_host = std::make_unique<TestHost>(FirstContents::Welcome);
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_window->show();
        m_preferences = new PreferencesWindow(std::make_unique<QVSyncPreferences>());
        m_preferences->show();
    }

    void cleanup() {
        if (m_preferences) {
            m_preferences->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_window.reset();
        m_host.reset();
    }

    void aNewDatabaseIsListed() {
        triggerWithName("&New Database…", QStringLiteral("Travel"));
        QVERIFY(panelRows().contains(QStringLiteral("Travel")));
    }

    void aRenamedDatabaseIsListedByItsNewName() {
        databases()->setCurrentRow(1);
        triggerWithName("&Rename…", QStringLiteral("Plans"));
        QVERIFY(panelRows().contains(QStringLiteral("Plans")));
    }

    void aClosedDatabaseIsNoLongerListedUntilItIsOpenedAgain() {
        databases()->setCurrentRow(1);
        const QStringList before = panelRows();
        trigger("&Close");
        QCOMPARE(panelRows().size(), before.size() - 1);
        trigger("&Open");
        QCOMPARE(panelRows(), before);
    }

    void anEmptyNameIsRefusedInWords() {
        const QStringList before = panelRows();
        triggerWithName("&New Database…", QStringLiteral("  "));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(panelRows(), before);
    }

    void aTypedNoteIsSavedWhenTheUserGoesOn() {
        databases()->setCurrentRow(1);
        auto *text = m_window->findChild<QPlainTextEdit *>();
        text->setPlainText(QStringLiteral("typed just now"));
        databases()->setCurrentRow(2);
        QCOMPARE(m_host->library().knownDatabases()[1]->notes().value().first().text,
                 QStringLiteral("typed just now"));
    }

    void aChoiceSurvivesARestart() {
        auto *pane = QVSyncPreferences::preferences();
        const auto index = panelRows().indexOf(QStringLiteral("Recipes"));
        QVERIFY(index >= 0);
        QWidget *row = pane->databasesView()->items()[index]->view();
        QTest::mouseClick(row, Qt::LeftButton, {}, row->rect().topLeft() + QPoint(3, 3));
        auto *checkBox = pane->locationsView()->items().first()->view()->findChild<QCheckBox *>(
            QStringLiteral("rowCheckBox"));
        QVERIFY(!checkBox->isChecked());
        checkBox->click();
        m_preferences->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_window.reset();
        m_host->restart();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());

        const auto recipes = m_host->library().knownDatabases()[2];
        QCOMPARE(recipes->name(), QStringLiteral("Recipes"));
        const auto state =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(recipes->UUID());
        QVERIFY(state);
        QVERIFY(state->isEnabled());
    }

    void syncNowHandsTheStatesOfTheRowToTheDispatcher() {
        auto *pane = QVSyncPreferences::preferences();
        const auto index = panelRows().indexOf(QStringLiteral("Projects"));
        QWidget *row = pane->databasesView()->items()[index]->view();
        auto *button = row->findChild<QAbstractButton *>(QStringLiteral("rowSyncButton"));
        QVERIFY(button->isEnabled());
        const auto before = m_host->application().logEntries().size();
        button->click();
        QTRY_COMPARE(m_host->application().logEntries().size(), before + 1);
        QVERIFY(
            m_host->application().logEntries().last().info.contains(QStringLiteral("Projects")));
    }
};

VELMORA_TEST(PanelFollowsMainWindowTest)
#include "PanelFollowsMainWindowTest.moc"
