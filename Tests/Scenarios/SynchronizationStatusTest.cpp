#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>

#include "Application/PreferencesWindow.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// The panel shows what the last synchronization did, and the ticks decide which locations it
/// includes.
class SynchronizationStatusTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;
    QPointer<PreferencesWindow> m_window;

    static QVSyncPreferences &pane() { return *QVSyncPreferences::preferences(); }

    void showPanel() {
        m_window = new PreferencesWindow(std::make_unique<QVSyncPreferences>());
        m_window->show();
        click(databaseRow(QStringLiteral("Projects")));
    }

    static void click(QWidget *row) {
        QTest::mouseClick(row, Qt::LeftButton, {}, row->rect().topLeft() + QPoint(3, 3));
    }
    static QWidget *databaseRow(const QString &name) {
        for (const auto &item : pane().databasesView()->items()) {
            if (part<QLabel>(item->view(), "rowName")->text() == name) {
                return item->view();
            }
        }
        return nullptr;
    }
    static QWidget *locationRow(int index) {
        return pane().locationsView()->items().at(index)->view();
    }
    template <class Widget>
    static Widget *part(QWidget *row, const char *name) {
        return row->findChild<Widget *>(QLatin1StringView(name));
    }
    static void tick(int location) {
        part<QCheckBox>(locationRow(location), "rowCheckBox")->click();
    }
    void syncNow() const {
        part<QAbstractButton>(databaseRow(QStringLiteral("Projects")), "rowSyncButton")->click();
    }
    bool isIdle() const { return m_host->engine().plugin().dispatcher()->activity().isEmpty(); }
    QStringList transactionsAt(const std::shared_ptr<QVSyncLocation> &location) const {
        return QDir(location->URL().path() + QStringLiteral("/transactions/") + m_database->UUID())
            .entryList(QDir::Files);
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }

    void init() {
        m_host = std::make_unique<TestHost>();
        m_database = m_host->addDatabase(QStringLiteral("Projects"));
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        QVERIFY(m_database->saveNote(note));
    }

    void cleanup() {
        if (m_window) {
            m_window->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_database.reset();
        m_host.reset();
    }

    void syncNowIncludesTickedLocationsOnly() {
        const auto ticked = m_host->addLocation();
        const auto unticked = m_host->addLocation();
        showPanel();
        tick(0);
        tick(1);
        tick(1);
        syncNow();
        QTRY_VERIFY(!transactionsAt(ticked).isEmpty());
        QTRY_VERIFY(isIdle());
        QCOMPARE(transactionsAt(unticked), QStringList());
        const auto state = unticked->stateForDatabaseWithUUID(m_database->UUID());
        QVERIFY(!state->lastSynced().isValid());
    }

    void aDoubleClickIncludesTickedLocationsOnly() {
        const auto ticked = m_host->addLocation();
        const auto unticked = m_host->addLocation();
        showPanel();
        tick(0);
        tick(1);
        tick(1);
        QWidget *row = databaseRow(QStringLiteral("Projects"));
        QTest::mouseDClick(row, Qt::LeftButton, {}, row->rect().topLeft() + QPoint(3, 3));
        QTRY_VERIFY(!transactionsAt(ticked).isEmpty());
        QTRY_VERIFY(isIdle());
        QCOMPARE(transactionsAt(unticked), QStringList());
    }
};

VELMORA_TEST(SynchronizationStatusTest)
#include "SynchronizationStatusTest.moc"
