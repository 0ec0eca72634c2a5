#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QRadioButton>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Interface/TableView.h"
#include "Scenarios/Panel.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Sync Preferences by keyboard only. Every key goes to what has the focus.
class KeyboardTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<Panel> m_panel;

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget *focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : QApplication::activeWindow(), key, modifiers);
    }
    static QString focusName() {
        const QWidget *focus = QApplication::focusWidget();
        return focus ? focus->objectName() : QString();
    }
    /// Presses Tab until the widget has the focus.
    static bool tabTo(const char *name) {
        for (int i = 0; i < 50 && focusName() != QLatin1StringView(name); ++i) {
            press(Qt::Key_Tab);
        }
        return focusName() == QLatin1StringView(name);
    }
    static QString nameOfRow(const QVListView *list) {
        for (const auto &item : list->items()) {
            if (item->isSelected()) {
                return item->view()->accessibleName();
            }
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_host->addDatabase(QStringLiteral("Projects"));
        m_host->addLocation();
        m_host->addLocation();
        m_host->save();
        m_panel = std::make_unique<Panel>();
        m_panel->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel->window()));
    }
    void cleanup() {
        m_panel.reset();
        m_host.reset();
    }

    void aDatabaseIsTickedSynchronizedAndSeenToBeSynchronized() {
        QVERIFY(tabTo("databasesScrollView"));
        press(Qt::Key_P);
        QCOMPARE(nameOfRow(Panel::pane().databasesView()), QStringLiteral("Projects"));
        QVERIFY(tabTo("locationsScrollView"));
        press(Qt::Key_End);
        QWidget *row = Panel::locationRow(1);
        QVERIFY(!Panel::part<QCheckBox>(row, "rowCheckBox")->isChecked());
        press(Qt::Key_Space);
        QVERIFY(Panel::part<QCheckBox>(row, "rowCheckBox")->isChecked());
        press(Qt::Key_F5);
        QTRY_VERIFY(row->accessibleDescription().contains(QStringLiteral("synchronized today")));
        m_panel.reset();
        m_host->restart();
        int enabled = 0;
        for (const auto &location : m_host->locations().syncLocations()) {
            for (const auto &state : location->synchronizationStates()) {
                enabled += state->isEnabled() ? 1 : 0;
            }
        }
        QVERIFY(enabled > 0);
    }

    void theTitlesNameTheSelectedDatabase() {
        QVERIFY(tabTo("databasesScrollView"));
        press(Qt::Key_P);
        const auto *title = m_panel->find<QLabel>("locationsLabel");
        QCOMPARE(QString(title->text()).remove(u'&'),
                 QStringLiteral("Synchronize “Projects” with"));
        QVERIFY(!QKeySequence::mnemonic(title->text()).isEmpty());
        QCOMPARE(m_panel->find<QGroupBox>("scheduleBox")->title(),
                 QStringLiteral("Schedule of “Projects”"));
    }

    void aLocationIsEditedAndRemoved() {
        QVERIFY(tabTo("locationsScrollView"));
        press(Qt::Key_Down);
        const QString removed = nameOfRow(Panel::pane().locationsView());
        press(Qt::Key_Return);
        QTRY_VERIFY(m_panel->sheet());
        QTRY_COMPARE(QApplication::activeWindow(), m_panel->sheet());
        press(Qt::Key_Escape);
        QTRY_VERIFY(!m_panel->sheet());
        // As a window manager does.
        m_panel->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_panel->window()));
        QCOMPARE(focusName(), QStringLiteral("locationsScrollView"));
        press(Qt::Key_Delete);
        QCOMPARE(Panel::countOfLocations(), 1);
        QVERIFY(Panel::locationRow(0)->accessibleName() != removed);
        press(Qt::Key_Down);
        QCOMPARE(nameOfRow(Panel::pane().locationsView()), Panel::locationRow(0)->accessibleName());
    }

    void theFirstAndTheLastLocationToImportFromAreSelected() {
        QVERIFY(tabTo("importButton"));
        press(Qt::Key_Space);
        QTRY_VERIFY(m_panel->sheet());
        QTRY_COMPARE(QApplication::activeWindow(), m_panel->sheet());
        QVERIFY(tabTo("locationsTable"));
        const auto *table = m_panel->inSheet<TableView>("locationsTable");
        press(Qt::Key_End);
        QCOMPARE(table->selectedRow(), table->rowCount() - 1);
        press(Qt::Key_Home);
        QCOMPARE(table->selectedRow(), 0);
        press(Qt::Key_Escape);
        QTRY_VERIFY(!m_panel->sheet());
    }

    void theMenuOfARowOffersItsCommands() {
        QVERIFY(tabTo("locationsScrollView"));
        press(Qt::Key_Down);
        press(Qt::Key_F10, Qt::ShiftModifier);
        auto *menu = m_panel->find<QMenu>("locationMenu");
        QVERIFY(menu->isVisible());
        QVERIFY(m_panel->find<QAction>("removeItem")->isEnabled());
        QVERIFY(m_panel->find<QAction>("revealItem")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(!menu->isVisible());
        press(Qt::Key_F10, Qt::ShiftModifier);
        const QKeySequence letter =
            QKeySequence::mnemonic(m_panel->find<QAction>("removeItem")->text());
        QVERIFY(!letter.isEmpty());
        QTest::keyClick(menu, letter[0].key());
        QCOMPARE(Panel::countOfLocations(), 1);
    }

    void aScheduleIsChosenWithTheArrows() {
        QVERIFY(tabTo("databasesScrollView"));
        press(Qt::Key_P);
        QVERIFY(tabTo("locationsScrollView"));
        press(Qt::Key_Space);
        QVERIFY(tabTo("hourlyButton"));
        press(Qt::Key_Space);
        QVERIFY(m_panel->find<QRadioButton>("hourlyButton")->isChecked());
        press(Qt::Key_Down);
        QVERIFY(m_panel->find<QRadioButton>("dailyButton")->isChecked());
        QVERIFY(!m_panel->find<QRadioButton>("hourlyButton")->isChecked());
        QCOMPARE(focusName(), QStringLiteral("dailyButton"));
        QVERIFY(tabTo("disabledButton"));
        press(Qt::Key_Space);
        QVERIFY(!m_panel->find<QRadioButton>("dailyButton")->isChecked());
    }

    void aLocationIsAddedFromTheMenu() {
        QVERIFY(tabTo("addLocationButton"));
        QWidget *focus = QApplication::focusWidget();
        auto *menu = m_panel->find<QMenu>("addMenu");
        // The menu of a button has an event loop of its own.
        QTimer::singleShot(0, menu, [&] {
            for (QAction *action : menu->actions()) {
                if (action->text().remove(u'&').contains(QStringLiteral("WebDAV"))) {
                    menu->setActiveAction(action);
                    QTest::keyClick(menu, Qt::Key_Return);
                    return;
                }
            }
            menu->close();
        });
        QTest::keyClick(focus, Qt::Key_Space);
        QTRY_VERIFY(m_panel->sheet());
        QTRY_COMPARE(QApplication::activeWindow(), m_panel->sheet());
        QVERIFY(tabTo("serverField"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("dav.example.com"));
        QVERIFY(tabTo("storeField"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Notes"));
        press(Qt::Key_Return);
        QTRY_VERIFY(!m_panel->sheet());
        QCOMPARE(Panel::countOfLocations(), 3);
    }

    void escapeClosesTheWindow() {
        const QPointer<QWidget> window = m_panel->window();
        QVERIFY(tabTo("locationsScrollView"));
        press(Qt::Key_Escape);
        QTRY_VERIFY(!window);
    }
};

VELMORA_TEST(KeyboardTest)
#include "KeyboardTest.moc"
