#include "Application/WindowMemory.h"

#include <QtGui/QScreen>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QSplitter>

#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/NotesList.h"
#include "Application/NotesView.h"
#include "Application/PreferencesWindow.h"
#include "Host/PaneSelection.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Interface/Nib.h"
#include "Platform/Interface/PreferencePane.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// A pane with a selection and nothing to see.
class SelectionPane : public PreferencePane, public PaneSelection {
public:
    struct Selected {
        QString database;
        std::shared_ptr<QVSyncLocation> location;
    };

    explicit SelectionPane(Selected *selected) : PreferencePane({}), m_selected(selected) {}
    QString mainNibName() const override { return QStringLiteral("SelectionPane"); }
    void willSelect() override {}
    void willDeselect() override {}
    QString selectedDatabase() const override { return m_selected->database; }
    void selectDatabase(const QString &UUID) override { m_selected->database = UUID; }
    std::shared_ptr<QVSyncLocation> selectedLocation() const override {
        return m_selected->location;
    }
    void selectLocation(const std::shared_ptr<QVSyncLocation> &location) override {
        m_selected->location = location;
    }

private:
    Selected *const m_selected;
};

}  // namespace

/// Windows are at the next start as they were.
class WindowMemoryTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_database;
    EventLog m_log;

    std::unique_ptr<MainWindow> open() {
        auto window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        window->rememberWindows();
        window->show();
        return window;
    }
    static QListWidget *databases(const MainWindow &window) {
        return window.findChild<QListWidget *>(QStringLiteral("databases"));
    }
    static NotesView *view(const MainWindow &window) { return window.findChild<NotesView *>(); }
    /// Returns the notes of the database in their order.
    QList<Note> saveNotes(int count) const {
        for (int i = 0; i < count; ++i) {
            Note note{{}, QString::number(i), QString(), {}};
            std::ignore = m_database->saveNote(note);
        }
        return m_database->notes().value();
    }
    static QList<QList<int>> splitters(const QWidget &window) {
        QList<QList<int>> sizes;
        for (const QSplitter *splitter : window.findChildren<QSplitter *>()) {
            sizes.append(splitter->sizes());
        }
        return sizes;
    }
    /// Opens and closes Sync Preferences as the user, or the end of the program, does.
    static void closePreferences(const SelectionPane::Selected &chosen, bool isEnd) {
        SelectionPane::Selected selected;
        auto *window = new PreferencesWindow(std::make_unique<SelectionPane>(&selected));
        window->remember();
        window->show();
        QVERIFY(PreferencesWindow::wasOpen());
        selected = chosen;
        isEnd ? window->closeInAnyCase() : static_cast<void>(window->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private Q_SLOTS:
    void initTestCase() {
        Nib::registerForm(QStringLiteral("SelectionPane"), [] { return new QWidget; });
    }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_database = m_host->addDatabase(QStringLiteral("Projects"));
    }
    void cleanup() {
        for (const char *name :
             {"Main", "MainDatabase", "MainNote", "SyncPreferences", "SyncPreferencesDatabase",
              "SyncPreferencesLocation", "SyncPreferencesOpen"}) {
            QVERIFY(UserDefaults::remove(QStringLiteral("QVWindows") + QLatin1StringView(name)));
        }
        m_database.reset();
        m_host.reset();
    }

    void theMainWindowIsAsItWas() {
        auto window = open();
        window->setGeometry(40, 50, 640, 480);
        auto *splitter = window->findChild<QSplitter *>();
        const int total = splitter->sizes().constFirst() + splitter->sizes().constLast();
        splitter->setSizes({total / 2, total - total / 2});
        databases(*window)->setCurrentRow(1);
        const QRect geometry = window->geometry();
        const QList<QList<int>> sizes = splitters(*window);
        window->close();
        window = open();
        QCOMPARE(window->geometry(), geometry);
        QCOMPARE(splitters(*window), sizes);
        QCOMPARE(databases(*window)->currentRow(), 1);
    }

    void theEndOfTheProgramIsEnough() {
        auto window = open();
        databases(*window)->setCurrentRow(1);
        window->saveAll();
        window.reset();
        QCOMPARE(databases(*open())->currentRow(), 1);
    }

    void aWindowComesBackToTheScreen() {
        auto window = open();
        const QRect screen = window->screen()->availableGeometry();
        window->setGeometry(QRect(screen.bottomRight() * 3, screen.size() * 2));
        window->close();
        window = open();
        QVERIFY2(screen.contains(window->geometry()),
                 qPrintable(QDebug::toString(window->geometry())));
    }

    void whatIsDamagedIsIgnored_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("no base 64") << QStringLiteral("?");
        QTest::newRow("no stream") << QString::fromLatin1(QByteArray("nothing").toBase64());
        QTest::newRow("a length without bytes")
            << QString::fromLatin1(QByteArray("\x7f\xff\xff\xfe").toBase64());
    }
    void whatIsDamagedIsIgnored() {
        QFETCH(QString, text);
        const MainWindow usual(&m_host->library(), &m_log, m_host->directory());
        WindowMemory::saveText(QStringLiteral("Main"), text);
        QCOMPARE(open()->size(), usual.size());
    }

    void nothingIsRememberedUnlessAsked() {
        MainWindow window(&m_host->library(), &m_log, m_host->directory());
        window.show();
        window.close();
        QCOMPARE(WindowMemory::text(QStringLiteral("Main")), QString());
    }

    void theNoteIsSelectedAgain() {
        const QList<Note> notes = saveNotes(3);
        auto window = open();
        databases(*window)->setCurrentRow(1);
        view(*window)->select(notes.at(1));
        window->close();
        window = open();
        QCOMPARE(view(*window)->note().UUID, notes.at(1).UUID);
    }

    void aNoteIsSelectedWhenItIsRead() {
        const QList<Note> notes = saveNotes(520);
        WindowMemory::saveText(QStringLiteral("MainDatabase"), m_database->UUID());
        WindowMemory::saveText(QStringLiteral("MainNote"), notes.last().UUID);
        const auto window = open();
        QTRY_COMPARE(view(*window)->note().UUID, notes.last().UUID);
    }

    void whatTheUserHasSelectedMeanwhileStays() {
        const QList<Note> notes = saveNotes(520);
        WindowMemory::saveText(QStringLiteral("MainDatabase"), m_database->UUID());
        WindowMemory::saveText(QStringLiteral("MainNote"), notes.last().UUID);
        const auto window = open();
        auto *list = view(*window)->findChild<NotesList *>();
        list->setCurrentRow(7);
        QTRY_COMPARE(list->count(), 520);
        QCOMPARE(view(*window)->note().UUID, notes.at(7).UUID);
    }

    void aNoteThatIsGoneIsIgnored() {
        const QList<Note> notes = saveNotes(3);
        WindowMemory::saveText(QStringLiteral("MainDatabase"), m_database->UUID());
        WindowMemory::saveText(QStringLiteral("MainNote"), QStringLiteral("gone"));
        QCOMPARE(view(*open())->note().UUID, notes.constFirst().UUID);
    }

    void syncPreferencesKeepsItsSelectionAndWhetherItIsOpen() {
        m_host->addLocation();
        const auto location =
            m_host->addLocation(QStringLiteral("https://kim@dav.example.com/Shared.qvSyncStore"));
        QVERIFY(PreferencesWindow::wasOpen());
        const SelectionPane::Selected chosen{QStringLiteral("chosen"), location};
        closePreferences(chosen, true);
        QVERIFY(PreferencesWindow::wasOpen());
        closePreferences(chosen, false);
        QVERIFY(!PreferencesWindow::wasOpen());
        SelectionPane::Selected again;
        PreferencesWindow window(std::make_unique<SelectionPane>(&again));
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        window.remember();
        QCOMPARE(again.database, QStringLiteral("chosen"));
        QCOMPARE(again.location, location);
    }
};

VELMORA_TEST(WindowMemoryTest)
#include "WindowMemoryTest.moc"
