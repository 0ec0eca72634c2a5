#include <QtGui/QAction>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

#include "Application/ConflictBar.h"
#include "Application/ConflictDialog.h"
#include "Application/EventLog.h"
#include "Application/MainWindow.h"
#include "Application/NotesList.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// A note that was edited on two computers at once is resolved in the main window of one of them.
class ConflictTest : public QObject {
    Q_OBJECT
private:
    static inline const QString Here = QStringLiteral("Buy two eggs here");
    static inline const QString There = QStringLiteral("Buy ten eggs there");
    static inline const QString KeepThis = QStringLiteral("Keep This");
    static inline const QString KeepOther = QStringLiteral("Keep Other");
    static inline const QString KeepBoth = QStringLiteral("Keep Both");

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QTemporaryDir> m_otherFolder;
    std::unique_ptr<SyncEngine> m_other;
    std::shared_ptr<QVSyncState> m_state;
    std::shared_ptr<QVSyncState> m_otherState;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;

    std::shared_ptr<NoteDatabase> here() const { return m_host->library().knownDatabases().last(); }
    std::shared_ptr<NoteDatabase> there() const {
        return m_other->library()->databaseForUUID(here()->UUID());
    }
    static QStringList texts(const NoteDatabase &database) {
        QStringList texts;
        const QList<Note> notes = database.notes().value();
        for (const Note &note : notes) {
            texts.append(note.title + u'/' + note.text);
        }
        texts.sort();
        return texts;
    }
    static void synchronize(SyncEngine &engine, const std::shared_ptr<QVSyncState> &state) {
        bool isDone = false;
        engine.plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {state}, [&] { isDone = true; });
        QTRY_VERIFY(isDone);
    }
    void synchronizeHere() const { synchronize(m_host->engine(), m_state); }
    void synchronizeThere() const { synchronize(*m_other, m_otherState); }
    static void edit(NoteDatabase &database, const QString &text, int second) {
        Note note = database.notes().value().first();
        note.text = text;
        note.modified = QDateTime::fromSecsSinceEpoch(1'700'000'000 + second);
        QVERIFY(database.saveNote(note));
    }
    /// As the user of the other computer does in a window of it.
    static void keep(NoteDatabase &database, const QString &text) {
        QList<Note> edits = database.notes().value();
        edits.removeIf([](const Note &each) { return each.conflict.isEmpty(); });
        QCOMPARE(edits.size(), 2);
        const qsizetype kept = edits.first().text == text ? 0 : 1;
        QCOMPARE(edits[kept].text, text);
        QVERIFY(database.resolveConflict(edits[kept], edits[1 - kept]));
    }
    void synchronizeAll() const {
        for (int i = 0; i < 2; ++i) {
            synchronizeHere();
            synchronizeThere();
        }
    }
    std::shared_ptr<QVSyncState> stateAt(SyncEngine &engine, const QString &URL) const {
        auto *locations = engine.plugin().locationsController();
        const auto location = engine.plugin().newLocation(Url::fromString(URL));
        locations->insertObjectInSyncLocationsAtIndex(location, locations->countOfSyncLocations());
        const auto state = location->addStateForDatabaseWithUUID(here()->UUID(), here()->name());
        state->setEnabled(true);
        return state;
    }

    QListWidget *databases() const {
        return m_window->findChild<QListWidget *>(QStringLiteral("databases"));
    }
    NotesList *notes() const { return m_window->findChild<NotesList *>(); }
    QString databaseRow() const { return databases()->item(databases()->count() - 1)->text(); }
    ConflictBar *bar() const { return m_window->findChild<ConflictBar *>(); }
    ConflictDialog *dialog() const { return m_window->findChild<ConflictDialog *>(); }
    QAction *action(const QString &title) const {
        const auto actions = m_window->findChildren<QAction *>();
        const auto found = std::find_if(actions.begin(), actions.end(), [&](QAction *each) {
            return each->text().remove(u'&') == title;
        });
        return found == actions.end() ? nullptr : *found;
    }
    static void press(const QWidget *window, const QString &title) {
        const auto buttons = window->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->text().remove(u'&') == title && button->isVisible()) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL(qPrintable(title));
    }
    static QStringList marked(const QPlainTextEdit *view) {
        QStringList texts;
        const auto selections = view->extraSelections();
        for (const auto &selection : selections) {
            texts.append(selection.cursor.selectedText());
        }
        return texts;
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_host->addDatabase(QStringLiteral("Plans"));
        m_otherFolder = std::make_unique<QTemporaryDir>();
        m_other = std::make_unique<SyncEngine>();
        QVERIFY(m_other->openProfile(m_otherFolder->filePath(QStringLiteral("Profile")),
                                     FirstContents::Inbox));
        const QString URL = m_host->makeSyncStore(QStringLiteral("Shared"));
        m_state = stateAt(m_host->engine(), URL);
        m_otherState = stateAt(*m_other, URL);
        Note shopping{{}, QStringLiteral("Shopping"), QStringLiteral("Buy"), {}};
        Note garden{{}, QStringLiteral("Garden"), QStringLiteral("Roses"), {}};
        QVERIFY(here()->saveNote(shopping));
        QVERIFY(here()->saveNote(garden));
        synchronizeHere();
        synchronizeThere();
        // The edit of this computer is newer, so that it shows as the note.
        edit(*here(), Here, 2);
        edit(*there(), There, 1);
        synchronizeThere();
        synchronizeHere();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_window->show();
        databases()->setCurrentRow(databases()->count() - 1);
    }
    void cleanup() {
        m_window.reset();
        synchronizeAll();
        for (SyncEngine *engine : {&m_host->engine(), m_other.get()}) {
            QCOMPARE(Verification::problems(engine->verify(VerificationMode::Report)),
                     QStringList());
        }
        m_state.reset();
        m_otherState.reset();
        m_other.reset();
        m_otherFolder.reset();
        m_host.reset();
    }

    void aBarIsAboveEachEdit() {
        QCOMPARE(notes()->count(), 3);
        QCOMPARE(databaseRow(), QStringLiteral("Plans · 1 conflict"));
        QVERIFY(bar()->isVisible());
        notes()->setCurrentRow(1);
        QVERIFY(bar()->isVisible());
        notes()->setCurrentRow(2);
        QVERIFY(!bar()->isVisible());
    }

    void theUserKeepsOneOrBoth_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("compares");
        QTest::addColumn<QStringList>("left");
        const QStringList ofHere{QStringLiteral("Shopping/") + Here};
        const QStringList ofThere{QStringLiteral("Shopping/") + There};
        const QStringList both{QStringLiteral("Shopping (conflict)/") + There,
                               QStringLiteral("Shopping/") + Here};
        QTest::addRow("this") << KeepThis << 0 << false << ofHere;
        QTest::addRow("other") << KeepOther << 0 << false << ofThere;
        QTest::addRow("both") << KeepBoth << 0 << false << both;
        QTest::addRow("this, which is the copy") << KeepThis << 1 << false << ofThere;
        QTest::addRow("other than the copy") << KeepOther << 1 << false << ofHere;
        QTest::addRow("both, from the copy") << KeepBoth << 1 << false << both;
        QTest::addRow("other, after comparing") << KeepOther << 0 << true << ofThere;
    }
    void theUserKeepsOneOrBoth() {
        QFETCH(QString, choice);
        QFETCH(int, row);
        QFETCH(bool, compares);
        QFETCH(QStringList, left);
        const QString UUID = here()->notes().value().first().UUID;
        notes()->setCurrentRow(row);
        if (compares) {
            press(bar(), QStringLiteral("Compare…"));
            press(dialog(), choice);
        } else {
            press(bar(), choice);
        }
        QStringList expected = QStringList{QStringLiteral("Garden/Roses")} + left;
        expected.sort();
        QCOMPARE(texts(*here()), expected);
        QVERIFY(!bar()->isVisible());
        QCOMPARE(databaseRow(), QStringLiteral("Plans"));
        const QString shown = m_window->findChild<QPlainTextEdit *>()->toPlainText();
        QVERIFY(choice == KeepBoth || left.first().endsWith(shown));
        QCOMPARE(here()->notes().value().first().UUID, UUID);
        if (choice != KeepBoth) {
            const NoteVersion version = here()->earlierVersions({.UUID = UUID}).value().first();
            QCOMPARE(version.title, QStringLiteral("Shopping"));
            QCOMPARE(here()->noteOfVersion(version).value().text,
                     left.first().endsWith(Here) ? There : Here);
        }
        synchronizeHere();
        synchronizeThere();
        QCOMPARE(texts(*there()), expected);
        QCOMPARE(there()->countOfConflicts().value(), 0);
    }

    void aDecisionIsUndone_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<int>("row");
        for (const int row : {0, 1}) {
            QTest::addRow("this, edit %d", row) << KeepThis << row;
            QTest::addRow("other than edit %d", row) << KeepOther << row;
        }
    }
    void aDecisionIsUndone() {
        QFETCH(QString, choice);
        QFETCH(int, row);
        notes()->setCurrentRow(row);
        press(bar(), choice);
        synchronizeAll();
        QCOMPARE(here()->notes().value().size(), 2);
        QAction *undo = action(QStringLiteral("Undo Keep"));
        QVERIFY(undo && undo->isEnabled());
        undo->trigger();
        QVERIFY(!undo->isEnabled());
        synchronizeAll();
        for (const NoteDatabase *database : {here().get(), there().get()}) {
            const QString all = texts(*database).join(u'\n');
            QCOMPARE(texts(*database).size(), 3);
            QVERIFY2(all.contains(Here) && all.contains(There), qPrintable(all));
        }
    }

    void theDifferencesAreMarked() {
        press(bar(), QStringLiteral("Compare…"));
        const auto views = dialog()->findChildren<QPlainTextEdit *>();
        QCOMPARE(views.size(), 2);
        QCOMPARE(marked(views[0]), QStringList({QStringLiteral("two"), QStringLiteral("here")}));
        QCOMPARE(marked(views[1]), QStringList({QStringLiteral(" (conflict)"),
                                                QStringLiteral("ten"), QStringLiteral("there")}));
        press(dialog(), QStringLiteral("Close"));
        QCOMPARE(here()->countOfConflicts().value(), 1);
    }

    void anEditThatWasNotSeenSurvives() {
        press(bar(), QStringLiteral("Compare…"));
        edit(*there(), QStringLiteral("Buy nothing"), 3);
        synchronizeThere();
        synchronizeHere();
        press(dialog(), KeepThis);
        QVERIFY(texts(*here()).join(u'\n').contains(QStringLiteral("Buy nothing")));
        QVERIFY(texts(*here()).join(u'\n').contains(Here));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
    }

    void theOtherEditSurvivesIfTheKeptOneWasReplaced() {
        synchronizeThere();
        press(bar(), QStringLiteral("Compare…"));
        edit(*there(), QStringLiteral("Buy nothing"), 3);
        synchronizeThere();
        synchronizeHere();
        press(dialog(), KeepThis);
        const QStringList left{QStringLiteral("Garden/Roses"),
                               QStringLiteral("Shopping (conflict)/") + There,
                               QStringLiteral("Shopping/Buy nothing")};
        QCOMPARE(texts(*here()), left);
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        synchronizeAll();
        QCOMPARE(texts(*there()), left);
    }

    void differentDecisionsLoseNoText_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("keptThere");
        QTest::addRow("each its own") << KeepThis << There;
        QTest::addRow("each that of the other") << KeepOther << Here;
    }
    void differentDecisionsLoseNoText() {
        QFETCH(QString, choice);
        QFETCH(QString, keptThere);
        synchronizeThere();
        press(bar(), choice);
        keep(*there(), keptThere);
        synchronizeAll();
        const QStringList both{QStringLiteral("Garden/Roses"),
                               QStringLiteral("Shopping (conflict)/") + There,
                               QStringLiteral("Shopping/") + Here};
        QCOMPARE(texts(*here()), both);
        QCOMPARE(texts(*there()), both);
        QVERIFY(bar()->isVisible());
        // What both decide then is final.
        press(bar(), KeepOther);
        synchronizeAll();
        QCOMPARE(texts(*here()).size(), 2);
        QCOMPARE(texts(*there()), texts(*here()));
    }

    void equalDecisionsAreOne() {
        synchronizeThere();
        press(bar(), KeepOther);
        keep(*there(), There);
        synchronizeAll();
        QCOMPARE(texts(*here()), QStringList({QStringLiteral("Garden/Roses"),
                                              QStringLiteral("Shopping/") + There}));
        QCOMPARE(texts(*there()), texts(*here()));
        QCOMPARE(here()->notes().value(), there()->notes().value());
    }

    void anEditAfterAnEqualDecisionReplacesIt() {
        synchronizeThere();
        press(bar(), KeepThis);
        edit(*here(), QStringLiteral("Buy five eggs"), 4);
        keep(*there(), Here);
        synchronizeAll();
        const QStringList left{QStringLiteral("Garden/Roses"),
                               QStringLiteral("Shopping/Buy five eggs")};
        QCOMPARE(texts(*here()), left);
        QCOMPARE(texts(*there()), left);
    }

    void keepingBothThereLosesNoText() {
        synchronizeThere();
        press(bar(), KeepThis);
        Note copy = there()->notes().value().at(1);
        QCOMPARE(copy.text, There);
        QVERIFY(there()->saveNote(copy));
        synchronizeAll();
        const QStringList both{QStringLiteral("Garden/Roses"),
                               QStringLiteral("Shopping (conflict)/") + There,
                               QStringLiteral("Shopping/") + Here};
        QCOMPARE(texts(*here()), both);
        QCOMPARE(texts(*there()), both);
        QCOMPARE(here()->countOfConflicts().value(), 0);
    }

    void onlyEditsOfOneNoteAreAConflict() {
        QList<Note> notes = here()->notes().value();
        const QStringList before = texts(*here());
        QVERIFY(!here()->resolveConflict(notes[0], notes[2]));
        QVERIFY(!here()->resolveConflict(notes[0], notes[0]));
        QVERIFY(!here()->resolveConflict(notes[0], {}));
        QCOMPARE(texts(*here()), before);
    }

    void typedTextIsSavedFirst() {
        auto *text = m_window->findChild<QPlainTextEdit *>();
        text->moveCursor(QTextCursor::End);
        QTest::keyClicks(text, QStringLiteral(" now"));
        press(bar(), KeepThis);
        QVERIFY(
            texts(*here()).contains(QStringLiteral("Shopping/") + Here + QStringLiteral(" now")));
        QCOMPARE(here()->notes().value().size(), 2);
    }
};

VELMORA_TEST(ConflictTest)
#include "ConflictTest.moc"
