#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Support/AccessibleScreen.h"
#include "Support/DisplayTest.h"
#include "Support/HeardNotifications.h"
#include "Support/ProgramRun.h"
#include "Support/SecretService.h"
#include "Support/ShownProgram.h"

/// A user with a keyboard and a screen reader, without a mouse or a screen: every step is made by
/// keys, and all that is known of the windows is what they tell assistive technology.
class KeyboardOnlyTest : public QObject {
    Q_OBJECT

    using State = AccessibleScreen::State;

    const VirtualDisplay m_display;
    SecretService m_desktop;
    const AccessibleScreen m_screen{m_desktop.busAddress()};
    std::unique_ptr<ShownProgram> m_program;

    QString store() const { return m_program->home() + QStringLiteral("/Away.qvSyncStore"); }

    /// Makes the profile, with a folder and a server as locations that are not ticked.
    void makeProfile() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_program->home());
        const ProgramRun made = ProgramRun::of(
            QStringLiteral(VELMORA),
            {QStringLiteral("--profile"), m_program->profile(), QStringLiteral("--begin"),
             QStringLiteral("examples"), QStringLiteral("--describe")},
            environment);
        QCOMPARE(made.exitCode, 0);
        for (const char *folder : {"/databases", "/transactions"}) {
            QVERIFY(QDir().mkpath(store() + QLatin1StringView(folder)));
        }
        const QString connection = QStringLiteral("keyboard-story-test");
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(m_program->profile() + QStringLiteral("/profile.sqlite"));
            QVERIFY(database.open());
            int position = 1;
            for (const QString &URL : {QStringLiteral("file://") + store(),
                                       QStringLiteral("http://localhost:1/Notes.qvSyncStore")}) {
                QVERIFY(QSqlQuery(database).exec(
                    QStringLiteral("INSERT INTO locations (uuid, position, url)"
                                   " VALUES ('%1', %2, '%3')")
                        .arg(QUuid::createUuid().toString(QUuid::WithoutBraces))
                        .arg(position++)
                        .arg(URL)));
            }
        }
        QSqlDatabase::removeDatabase(connection);
    }
    void press(const char *key) const { m_display.press({QString::fromLatin1(key)}); }
    /// Gives the keyboard to a new window, as a window manager does.
    void enter(const char *title) const {
        const QString pattern = u'^' + QString::fromUtf8(title) + u'$';
        QTRY_VERIFY(!m_display.window(pattern).isEmpty());
        m_display.focus(m_display.window(pattern));
    }
    /// Presses Tab until the control with this role and name has the keyboard.
    bool tabTo(const char *control) const {
        QString focused = m_screen.focused();
        for (int i = 0; i < 60 && focused != QString::fromUtf8(control); ++i) {
            press("Tab");
            const QString before = focused;
            std::ignore = QTest::qWaitFor([&] { return (focused = m_screen.focused()) != before; });
        }
        return QTest::qCompare(focused, QString::fromUtf8(control), "focus", control, __FILE__,
                               __LINE__);
    }
    bool isSelected(const char *row) const {
        return QTest::qWaitFor(
            [&] {
                return m_screen.names(QStringLiteral("list item"), State::Selected)
                    .contains(QString::fromUtf8(row));
            },
            EventTimeout);
    }
    bool isTicked(const char *location, bool ticked) const {
        return QTest::qWaitFor(
            [&] {
                return m_screen.names(QStringLiteral("check box"), State::Checked)
                           .contains(QString::fromUtf8(location)) == ticked;
            },
            EventTimeout);
    }
    static bool isHeard(const HeardNotifications &heard, const char *part) {
        return QTest::qWaitFor(
            [&] { return !heard.texts().filter(QString::fromUtf8(part)).isEmpty(); }, EventTimeout);
    }

private Q_SLOTS:
    void init() {
        m_program = std::make_unique<ShownProgram>(QStringLiteral(VELMORA), m_display);
        m_program->useSession(m_desktop.busAddress());
        makeProfile();
        m_program->start({});
    }
    void cleanup() { m_program.reset(); }

    void aDatabaseIsTickedAndSynchronizedAndALocationIsEdited() {
        enter(".*Velmora.*");
        QVERIFY(m_screen.awaitText(QStringLiteral("Projects")));
        const HeardNotifications heard(m_screen.bus());
        press("ctrl+comma");
        enter("Sync Preferences");

        QVERIFY(tabTo("list Databases"));
        press("p");
        QVERIFY(isSelected("Projects"));
        QVERIFY(m_screen.awaitText(QStringLiteral("Schedule of “Projects”")));
        QVERIFY(tabTo("list Synchronize “Projects” with"));
        press("Home");
        press("Down");
        QVERIFY(isSelected("Away"));
        QVERIFY(isTicked("Away", false));
        press("space");
        QVERIFY(isTicked("Away", true));
        QVERIFY(m_screen.awaitText(QStringLiteral("Synchronizes “Projects” with “Away”")));

        press("Down");
        QVERIFY(isSelected("localhost – Notes"));
        press("Return");
        enter("WebDAV Location");
        QTRY_VERIFY(m_screen.focused().contains(QStringLiteral("Server")));
        press("ctrl+a");
        m_display.type(QStringLiteral("my server"));
        QVERIFY(isHeard(heard, "A server name contains no blanks."));
        press("Escape");
        QCOMPARE(m_screen.awaitNoText(QStringLiteral("A server name contains no blanks.")),
                 QStringList());

        enter("Sync Preferences");
        QTRY_COMPARE(m_screen.focused(), QStringLiteral("list Synchronize “Projects” with"));
        QVERIFY(isSelected("localhost – Notes"));
        press("F5");
        QVERIFY(isHeard(heard, "All up to date"));
        QVERIFY(!QDir(store() + QStringLiteral("/transactions")).isEmpty());
        press("Escape");
        QCOMPARE(m_screen.awaitNoText(QStringLiteral("Schedule of “Projects”")), QStringList());
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }
};

VELMORA_DISPLAY_TEST(KeyboardOnlyTest, AccessibleScreen::require())
#include "KeyboardOnlyTest.moc"
