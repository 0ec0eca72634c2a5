#include <QtCore/QDeadlineTimer>
#include <QtCore/QRandomGenerator>

#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Profile/ReadOnlyConnection.h"
#include "Support/DisplayTest.h"
#include "Support/EventTimeout.h"
#include "Support/ShownProgram.h"
#include "Support/TestApplication.h"

/// The program is used with the keyboard and killed at a random moment, again and again. What was
/// shown as saved is in the profile, and so is what was typed since, up to the last half second.
/// VELMORA_KILLS is the number of rounds and VELMORA_SEED repeats those of an earlier run.
class KilledProgramTest : public QObject {
    Q_OBJECT
private:
    /// A note as the window has shown it.
    struct Shown {
        /// What was shown as saved.
        QString saved;
        /// What was typed after that.
        QString typed = {};
        bool isKept = false;
        /// Whether its deletion had begun.
        bool mayBeDeleted = false;
    };
    /// During what the program is killed.
    enum class Moment { Start, Typing, Keeping, Adding, Deleting, Closing, Opening, Count };

    static constexpr int LongestDelay = 700;
    /// The first one below the inbox.
    static inline const QString DatabaseName = QStringLiteral("Projects");

    TestApplication m_application;
    const VirtualDisplay m_display;
    ShownProgram m_program{QStringLiteral(VELMORA), m_display};
    QRandomGenerator m_random;
    QMap<QString, Shown> m_notes;
    /// The note that has the keyboard.
    QString m_current;
    bool m_isOpen = true;
    int m_restored = 0;

    int number(int end) { return m_random.bounded(end); }
    QString randomText(int length) {
        static const QString characters =
            QStringLiteral("abcdefghijklmnopqrstuvwxyzABCXYZ0123456789 .,!?()[]{}<>@#$%&*+=/\\'\"");
        QString text;
        for (int i = 0; i < length; ++i) {
            text += characters.at(number(static_cast<int>(characters.size())));
        }
        return text;
    }

    /// Makes a profile with a folder's store, with which "Projects" synchronizes whenever it is
    /// opened or closed.
    void makeProfile() {
        SyncEngine engine;
        QVERIFY(engine.openProfile(m_program.profile(), FirstContents::Welcome, ProfileUse::Edit));
        QVERIFY(engine.profile().run(
            QStringLiteral("UPDATE states SET enabled = 1, sync_on_open = 1, sync_on_close = 1")));
    }

    void awaitSaved() {
        QVERIFY(
            QTest::qWaitFor([this] { return m_program.takeWasShownAsModified(); }, EventTimeout));
        // Keys have effect in order, so all others have reached the window when this one has.
        m_display.press({QStringLiteral("alt+t"), QStringLiteral("l")});
        QVERIFY(QTest::qWaitFor(
            [this] { return !m_display.window(QStringLiteral("^Log$")).isEmpty(); }, EventTimeout));
        QVERIFY(QTest::qWaitFor(
            [this] {
                return m_display.window(QStringLiteral("^Velmora$")) == m_program.mainWindow();
            },
            EventTimeout));
        m_display.focus(m_program.mainWindow());
    }

    /// Returns a number from the profile that the program is using.
    int numberInProfile(const char *statement) const {
        return ReadOnlyConnection::open(m_program.profile() + QStringLiteral("/profile.sqlite"),
                                        ReadOnlyConnection::Sharing::Shared)
            .and_then(
                [&](const auto &profile) { return profile->value(QLatin1StringView(statement)); })
            .value_or(QVariant())
            .toInt();
    }
    int lastOperation() const { return numberInProfile("SELECT max(id) FROM operations"); }
    int closedDatabases() const {
        return numberInProfile("SELECT count(*) FROM databases WHERE NOT is_open");
    }

    void openDatabase() {
        if (m_isOpen) {
            return;
        }
        m_display.press({QStringLiteral("alt+d"), QStringLiteral("o")});
        QVERIFY(QTest::qWaitFor([this] { return closedDatabases() == 0; }, EventTimeout));
    }

    /// Adds a note, whose text begins with `name`.
    void addNote(const QString &name) {
        const int before = lastOperation();
        m_display.press({QStringLiteral("alt+n")});
        // A button that is pressed by its key acts only a moment later.
        QVERIFY(QTest::qWaitFor([&] { return lastOperation() > before; }, EventTimeout));
        m_display.press({QStringLiteral("Tab")});
        const QString text = name + randomText(number(30));
        m_display.type(text);
        awaitSaved();
        m_notes[name].saved = text;
        m_current = name;
    }

    void typeOn(QProcess &typist) {
        Shown &note = m_notes[m_current];
        note.typed = randomText(40);
        m_display.beginToType(typist, note.typed);
    }
    bool isKept() const {
        return !QDir(m_program.profile()).entryList({QStringLiteral("unsaved-*.json")}).isEmpty();
    }

    void awaitDelay() {
        const QDeadlineTimer delay(number(LongestDelay));
        QVERIFY(QTest::qWaitFor([&] { return delay.hasExpired(); }, EventTimeout));
    }

    void killDuring(Moment moment) {
        QProcess typist;
        switch (moment) {
            case Moment::Typing:
                typeOn(typist);
                break;
            case Moment::Keeping:
                typeOn(typist);
                QVERIFY(QTest::qWaitFor([this] { return isKept(); }, EventTimeout));
                m_notes[m_current].isKept = true;
                break;
            case Moment::Adding:
                m_display.press({QStringLiteral("alt+n")});
                break;
            case Moment::Deleting:
                m_notes[m_current].mayBeDeleted = true;
                m_display.press({QStringLiteral("alt+l")});
                break;
            case Moment::Closing:
            case Moment::Opening:
                m_display.press({QStringLiteral("alt+d"), QStringLiteral("c")});
                if (moment == Moment::Opening) {
                    m_display.press({QStringLiteral("alt+d"), QStringLiteral("o")});
                }
                break;
            case Moment::Start:
            case Moment::Count:
                break;
        }
        if (moment != Moment::Keeping) {
            awaitDelay();
        }
        m_program.kill();
        // Otherwise it could leave a key pressed.
        typist.waitForFinished();
    }

    /// Checks the profile beside the program, which has opened it again.
    void checkNotes() {
        SyncEngine engine;
        QVERIFY(
            engine.openProfile(m_program.profile(), FirstContents::Welcome, ProfileUse::Snapshot));
        const VerificationReport report = engine.verify(VerificationMode::Report);
        QVERIFY2(report.parts.first().outcome == VerificationReport::Outcome::Sound,
                 qPrintable(report.parts.first().problems.join(u'\n')));
        QStringList texts;
        const auto databases = engine.library()->knownDatabases();
        for (const auto &database : databases) {
            const Expected<QList<Note>> notes = database->notes();
            QVERIFY(notes);
            for (const Note &note : *notes) {
                texts.append(note.text);
            }
            m_isOpen = database->name() == DatabaseName ? database->isOpen() : m_isOpen;
        }
        const QStringList names = m_notes.keys();
        for (const QString &name : names) {
            check(name, texts.filter(name));
        }
    }

    /// `texts` are those of the notes with that name.
    void check(const QString &name, const QStringList &texts) {
        Shown &shown = m_notes[name];
        if (texts.isEmpty() && shown.mayBeDeleted) {
            m_notes.remove(name);
            return;
        }
        const QString all = shown.saved + shown.typed;
        QString found;
        for (const QString &text : texts) {
            const bool isPossible = text.startsWith(shown.saved) && all.startsWith(text);
            found = isPossible && text.size() > found.size() ? text : found;
        }
        QVERIFY2(
            !found.isEmpty(),
            qPrintable(QStringLiteral("“%1” was saved, “%2” typed, and there is “%3”.")
                           .arg(shown.saved, shown.typed, texts.join(QStringLiteral("”, “")))));
        QVERIFY2(!shown.isKept || found.size() > shown.saved.size(), qPrintable(name));
        m_restored += shown.isKept ? 1 : 0;
        shown = {.saved = found};
    }

    /// Synchronizes with the store and checks that nothing in it is damaged.
    void verifyStores() {
        SyncEngine engine;
        QVERIFY(engine.openProfile(m_program.profile(), FirstContents::Welcome, ProfileUse::Edit));
        const VerificationReport report = engine.verify(VerificationMode::Repair);
        QVERIFY(report.parts.size() > 1);
        for (const auto &part : report.parts) {
            QVERIFY2(part.outcome == VerificationReport::Outcome::Sound,
                     qPrintable(part.name + u' ' + part.problems.join(u'\n')));
        }
    }

    void play(int round) {
        // One that is certain to leave a text to be restored.
        const auto moment = round == 0
                                ? Moment::Keeping
                                : static_cast<Moment>(number(static_cast<int>(Moment::Count)));
        m_program.start();
        if (moment == Moment::Start) {
            killDuring(moment);
            return;
        }
        m_program.awaitWindows();
        checkNotes();
        if (QTest::currentTestFailed()) {
            return;
        }
        m_display.press({QStringLiteral("Down")});
        openDatabase();
        if (!QTest::currentTestFailed()) {
            addNote(QStringLiteral("Round %1:").arg(round));
        }
        if (!QTest::currentTestFailed()) {
            killDuring(moment);
        }
    }

private Q_SLOTS:
    void textShownAsSavedIsInTheProfile() {
        const int rounds = qEnvironmentVariableIntValue("VELMORA_KILLS");
        const int given = qEnvironmentVariableIntValue("VELMORA_SEED");
        const quint32 seed = given > 0 ? static_cast<quint32>(given)
                                       : QRandomGenerator::global()->bounded(1, 1 << 30);
        qInfo("VELMORA_SEED=%u", seed);
        m_random.seed(seed);
        makeProfile();
        constexpr int usualRounds = 3;
        for (int round = 0; round < (rounds > 0 ? rounds : usualRounds); ++round) {
            play(round);
            if (QTest::currentTestFailed()) {
                qWarning("Failed in round %d", round);
                return;
            }
        }
        m_program.start();
        m_program.awaitWindows();
        checkNotes();
        m_program.terminate();
        QVERIFY(m_program.awaitEnd());
        verifyStores();
        QVERIFY(m_restored > 0);
        qInfo("%lld notes, %d of them restored", static_cast<long long>(m_notes.size()),
              m_restored);
    }
};

VELMORA_DISPLAY_TEST(KilledProgramTest)
#include "KilledProgramTest.moc"
