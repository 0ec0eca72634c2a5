#include "Engine/Plugin/SyncEngine.h"
#include "Support/DisplayTest.h"
#include "Support/EventTimeout.h"
#include "Support/PrivateVolume.h"
#include "Support/SessionManager.h"
#include "Support/ShownProgram.h"
#include "Support/TestApplication.h"
#include "Support/Verification.h"

/// The program is ended while the disk of its profile is full: what was typed is kept elsewhere and
/// saved at the next start.
class FullDiskEndTest : public QObject {
    Q_OBJECT
private:
    /// Leaves room for a backup, which would otherwise be reported as failed.
    static constexpr qint64 VolumeSize = 96 << 20;
    static inline const QString Typed = QStringLiteral("Typed on a full disk");

    TestApplication m_application;
    const VirtualDisplay m_display;

    /// Returns how many current edits of the profile have the typed text in `column`.
    static int count(const QString &profile, const QString &column) {
        SyncEngine engine;
        return engine.openProfile(profile, FirstContents::Welcome, ProfileUse::Snapshot)
            .and_then([&] {
                return engine.profile().value(
                    QStringLiteral("SELECT count(*) FROM operations WHERE instr(%1, ?)")
                        .arg(column),
                    {Typed});
            })
            .value_or(QVariant(-1))
            .toInt();
    }

    /// Types into the title or the text of the first note of "Projects".
    void type(ShownProgram &program, const QString &column) const {
        const QString tab = QStringLiteral("Tab");
        QStringList keys{QStringLiteral("Down"), tab, tab, tab, tab};
        if (column == QStringLiteral("text")) {
            keys.append(tab);
        }
        m_display.focus(program.mainWindow());
        m_display.press(keys);
        m_display.type(Typed);
    }

    static void end(ShownProgram &program, SessionManager &session, bool isSession) {
        if (isSession) {
            QVERIFY(session.askToSave());
            session.end();
        } else {
            program.terminate();
        }
        QVERIFY(program.awaitEnd());
    }

private Q_SLOTS:
    void typedTextIsSavedAtTheNextStart_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<bool>("isSession");
        QTest::addColumn<bool>("isHome");
        for (const char *column : {"title", "text"}) {
            for (const bool isSession : {false, true}) {
                for (const bool isHome : {false, true}) {
                    QTest::addRow("%s, %s, %s", column,
                                  isSession ? "end of the session" : "SIGTERM",
                                  isHome ? "full home" : "full profile")
                        << QString::fromLatin1(column) << isSession << isHome;
                }
            }
        }
    }
    void typedTextIsSavedAtTheNextStart() {
        QFETCH(QString, column);
        QFETCH(bool, isSession);
        QFETCH(bool, isHome);
        SessionManager session;
        ShownProgram program(QStringLiteral(VELMORA), m_display);
        program.setVariable(QStringLiteral("SESSION_MANAGER"), session.address());
        auto runtime = std::make_unique<QTemporaryDir>();
        program.setVariable(QStringLiteral("XDG_RUNTIME_DIR"), runtime->path());
        const QString full = isHome ? program.home() : program.profile();
        PrivateVolume volume(full, VolumeSize);
        program.start();
        program.awaitWindows();
        volume.fill();
        type(program, column);
        // The failure is presented.
        QVERIFY(QTest::qWaitFor([&] { return !m_display.hasFocus(program.mainWindow()); },
                                EventTimeout));
        // The reserve may make room for the note itself.
        QVERIFY(isHome || program.isShownAsModified());
        end(program, session, isSession);
        // As the end of the session does.
        runtime = std::make_unique<QTemporaryDir>();
        program.setVariable(QStringLiteral("XDG_RUNTIME_DIR"), runtime->path());
        QVERIFY(QFile::remove(full + QStringLiteral("/filler")));
        QVERIFY(isHome || count(program.profile(), column) == 0);
        program.setVariable(QStringLiteral("SESSION_MANAGER"), {});
        program.start();
        program.awaitWindows();
        QCOMPARE(count(program.profile(), column), 1);
        program.terminate();
        QVERIFY(program.awaitEnd());
        QCOMPARE(Verification::problems(program.profile()), QStringList());
    }
};

VELMORA_DISPLAY_TEST(FullDiskEndTest, enterPrivateMounts())
#include "FullDiskEndTest.moc"
