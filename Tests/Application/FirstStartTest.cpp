#include <QtCore/QDir>
#include <QtWidgets/QRadioButton>

#include "Application/FirstStartDialog.h"
#include "Application/PlugIns.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Support/ShownProgram.h"
#include "Support/TestMain.h"

/// The question of the first start, in the dialog itself and in the program as a user starts it.
class FirstStartTest : public QObject {
    Q_OBJECT

    using Next = LocationAdding::Next;

    const VirtualDisplay m_display;
    std::unique_ptr<ShownProgram> m_program;

    QString window(const char *title) const { return m_display.window(QString::fromLatin1(title)); }
    bool isAsked() const { return !window("^Welcome to Velmora$").isEmpty(); }
    bool isMainWindowShown() const { return !window("^Velmora$").isEmpty(); }
    /// Answers the question with `keys`, from its first button on.
    void answer(const QStringList &keys) const {
        QVERIFY(QTest::qWaitFor([this] { return isAsked(); }, EventTimeout));
        m_display.focus(window("^Welcome to Velmora$"));
        m_display.press(keys);
        QVERIFY(QTest::qWaitFor([this] { return isMainWindowShown(); }, EventTimeout));
        QVERIFY(!isAsked());
    }
    void end() const {
        m_program->terminate();
        QVERIFY(m_program->awaitEnd());
    }
    QStringList databases() const {
        SyncEngine engine;
        if (!engine.openProfile(m_program->profile(), FirstContents::Inbox, ProfileUse::Edit)) {
            return {QStringLiteral("The profile cannot be opened.")};
        }
        QStringList names;
        for (const auto &database : engine.library()->knownDatabases()) {
            names.append(database->name());
        }
        return names;
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<ShownProgram>(QStringLiteral(VELMORA), m_display); }
    void cleanup() { m_program.reset(); }

    void theChoicesAreReturned_data() {
        QTest::addColumn<QStringList>("buttons");
        QTest::addColumn<int>("contents");
        QTest::addColumn<QString>("location");
        QTest::addColumn<bool>("imports");
        const QString none;
        const auto row = [](const char *name, const QStringList &buttons, FirstContents contents,
                            const QString &location, bool imports) {
            QTest::newRow(name) << buttons << static_cast<int>(contents) << location << imports;
        };
        row("nothing chosen", {}, FirstContents::Inbox, none, false);
        row("examples", {QStringLiteral("examplesButton")}, FirstContents::Welcome, none, false);
        row("a folder", {QStringLiteral("folderButton")}, FirstContents::Inbox,
            QStringLiteral("folder"), false);
        row("databases from a folder",
            {QStringLiteral("folderButton"), QStringLiteral("otherDatabasesButton")},
            FirstContents::Inbox, QStringLiteral("folder"), true);
        row("a server with examples",
            {QStringLiteral("webDAVButton"), QStringLiteral("examplesButton")},
            FirstContents::Welcome, QStringLiteral("webDAV"), false);
        row("databases from another computer",
            {QStringLiteral("otherComputerButton"), QStringLiteral("otherDatabasesButton")},
            FirstContents::Inbox, QStringLiteral("otherComputer"), true);
        row("databases from nowhere",
            {QStringLiteral("folderButton"), QStringLiteral("otherDatabasesButton"),
             QStringLiteral("laterButton")},
            FirstContents::Inbox, none, false);
    }
    void theChoicesAreReturned() {
        QFETCH(QStringList, buttons);
        QFETCH(int, contents);
        QFETCH(QString, location);
        QFETCH(bool, imports);
        const FirstStartDialog dialog(PlugIns::locationOffers().value());
        for (const QString &button : buttons) {
            dialog.findChild<QRadioButton *>(button)->click();
        }
        const FirstStart start = dialog.choice();
        QCOMPARE(static_cast<int>(start.contents), contents);
        QCOMPARE(start.location, location);
        QCOMPARE(start.next == Next::DatabasesToImport, imports);
    }

    void everyOfferOfThePaneIsAChoice() {
        const auto offers = PlugIns::locationOffers();
        QVERIFY(offers);
        QVERIFY(!offers->isEmpty());
        const FirstStartDialog dialog(*offers);
        for (const LocationOffer &offer : *offers) {
            auto *button = dialog.findChild<QRadioButton *>(offer.kind + QStringLiteral("Button"));
            QVERIFY2(button, qPrintable(offer.kind));
            QCOMPARE(button->text(), offer.place);
            button->click();
            QCOMPARE(dialog.choice().location, offer.kind);
        }
    }

    void databasesAreImportedOnlyFromALocation() {
        const FirstStartDialog dialog(PlugIns::locationOffers().value());
        const auto *import =
            dialog.findChild<QRadioButton *>(QStringLiteral("otherDatabasesButton"));
        QVERIFY(!import->isEnabled());
        QVERIFY(!import->accessibleDescription().isEmpty());
        dialog.findChild<QRadioButton *>(QStringLiteral("webDAVButton"))->click();
        QVERIFY(import->isEnabled());
        QVERIFY(import->accessibleDescription().isEmpty());
    }

    void escapeBeginsWithoutNotesInTheMainWindowAlone() {
        m_program->start({});
        answer({QStringLiteral("Escape")});
        QVERIFY(window("^Sync Preferences$").isEmpty());
        end();
        QCOMPARE(databases(), QStringList{QStringLiteral("Inbox")});
    }

    void theQuestionIsAskedOnce() {
        m_program->start({});
        answer({QStringLiteral("Return")});
        end();
        m_program->start({});
        QVERIFY(QTest::qWaitFor([this] { return isMainWindowShown(); }, EventTimeout));
        QVERIFY(!isAsked());
        end();
    }

    void theExamplesAreChosenByKeys() {
        m_program->start({});
        answer({QStringLiteral("Tab"), QStringLiteral("Down"), QStringLiteral("Return")});
        end();
        QCOMPARE(databases().size(), 3);
    }

    void aServerIsAddedNext() {
        m_program->start({});
        answer({QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Return")});
        QVERIFY(QTest::qWaitFor([this] { return !window("^WebDAV Location$").isEmpty(); },
                                EventTimeout));
        m_program->kill();
    }

    void anOptionAnswersTheQuestion() {
        m_program->start({QStringLiteral("--begin"), QStringLiteral("empty")});
        QVERIFY(QTest::qWaitFor([this] { return isMainWindowShown(); }, EventTimeout));
        QVERIFY(!isAsked());
        end();
        QCOMPARE(databases(), QStringList{QStringLiteral("Inbox")});
    }
};

VELMORA_TEST_PROGRAM(FirstStartTest)(int argumentCount, char **arguments) {
    VirtualDisplay::require();
    prepareTestProcess();
    const QApplication application(argumentCount, arguments);
    FirstStartTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "FirstStartTest.moc"
