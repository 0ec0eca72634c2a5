#include <QtCore/QDir>
#include <QtCore/QXmlStreamReader>
#include <QtWidgets/QRadioButton>

#include "Application/FirstStartDialog.h"
#include "Application/PlugIns.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Support/AccessibleScreen.h"
#include "Support/DisplayTest.h"
#include "Support/PrivateBus.h"
#include "Support/ShownProgram.h"

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

    /// Returns the German texts by the English ones that differ from them, without mnemonics.
    static QMap<QString, QString> germanTexts() {
        QMap<QString, QString> texts;
        for (const char *table : {"Velmora", "Sync"}) {
            QFile file(QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Translations/%1_de.ts")
                           .arg(QLatin1StringView(table)));
            file.open(QIODevice::ReadOnly);
            QXmlStreamReader reader(&file);
            QString source;
            while (!reader.atEnd()) {
                if (reader.readNext() != QXmlStreamReader::StartElement) {
                    continue;
                }
                if (reader.name() == u"source") {
                    source = reader.readElementText().remove(u'&');
                } else if (reader.name() == u"translation") {
                    const QString german =
                        reader.readElementText(QXmlStreamReader::IncludeChildElements);
                    texts.insert(source, QString(german).remove(u'&'));
                }
            }
        }
        texts.removeIf([](const auto &each) { return each.key() == each.value(); });
        return texts;
    }
    /// Returns which of the texts that are shown are English ones.
    static QStringList englishOnes(const AccessibleScreen &screen,
                                   const QMap<QString, QString> &german) {
        QStringList found;
        for (QString text : screen.texts()) {
            if (german.contains(text.remove(u'&')) && !german.values().contains(text)) {
                found.append(text);
            }
        }
        return found;
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

    void theFirstWindowsAreInTheLanguageOfTheUser() {
        const QMap<QString, QString> german = germanTexts();
        QVERIFY(german.size() > 500);
        const PrivateBus bus;
        const AccessibleScreen screen(bus.address());
        m_program->useSession(bus.address());
        m_program->setVariable(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
        m_program->setVariable(QStringLiteral("LANGUAGE"), QStringLiteral("de"));
        m_program->start({});
        QVERIFY(screen.awaitText(
            german.value(QStringLiteral("You can change this later in Sync Preferences."))));
        QCOMPARE(englishOnes(screen, german), QStringList());
        m_display.focus(
            window(qPrintable(u'^' + german.value(QStringLiteral("Welcome to Velmora")) + u'$')));
        m_display.press({QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Return")});
        for (const char *text : {"Direct Connections…", "New Note", "Store name:"}) {
            QVERIFY2(screen.awaitText(german.value(QString::fromLatin1(text))), text);
        }
        QCOMPARE(englishOnes(screen, german), QStringList());
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

VELMORA_DISPLAY_TEST(FirstStartTest, AccessibleScreen::require())
#include "FirstStartTest.moc"
