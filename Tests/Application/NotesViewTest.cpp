#include <QtCore/QRandomGenerator>
#include <QtCore/QUuid>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

#include "Application/HistoryDialog.h"
#include "Application/NotesList.h"
#include "Application/NotesView.h"
#include "Platform/Interface/PlainText.h"
#include "Support/FailingTable.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class NotesViewTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<EngineDatabase> m_database;
    std::unique_ptr<NotesView> m_view;
    Note m_first;

    QPlainTextEdit *text() const { return m_view->findChild<QPlainTextEdit *>(); }
    QLineEdit *title() const { return m_view->findChild<QLineEdit *>(); }
    NotesList *list() const { return m_view->findChild<NotesList *>(); }
    /// As it comes from another computer.
    void receive(const Transaction &transaction) {
        const Merge merge{.operations = transaction.operations,
                          .superseded = transaction.allSuperseded()};
        QVERIFY(m_host->library().merge(m_database, merge, [] { return Expected<void>(); }));
    }
    OperationId operationOf(const Note &note) const {
        return QByteArray::fromHex(note.revision.toLatin1());
    }

    QStringList shownTitles() const {
        QStringList titles;
        for (int row = 0; row < list()->count(); ++row) {
            titles.append(list()->model()->index(row, 0).data().toString());
        }
        return titles;
    }
    QStringList titles() const {
        QStringList titles;
        const QList<Note> notes = m_database->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        return titles;
    }
    static Operation newNote(const QString &title, const QString &text = {}) {
        return Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces), title, text, 0,
                               {});
    }
    void receiveNotes(int count) {
        Transaction transaction;
        for (int i = 0; i < count; ++i) {
            transaction.operations.append(newNote(QStringLiteral("Note %1").arg(i)));
        }
        receive(transaction);
    }

    QStringList journal() const {
        return QDir(m_host->directory()).entryList({QStringLiteral("unsaved-*")});
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        const auto made = m_host->addDatabase(QStringLiteral("Plans"));
        m_database = m_host->library().synchronizedDatabase(made->UUID());
        m_first = {{}, QStringLiteral("First"), QStringLiteral("1"), {}};
        QVERIFY(m_database->saveNote(m_first));
        // It has left this computer.
        receive({});
        m_view =
            std::make_unique<NotesView>(UnsavedTexts(m_host->directory(), m_host->inbox()->UUID()));
        m_view->setDatabase(m_database);
    }
    void cleanup() {
        m_view.reset();
        m_database.reset();
        m_host.reset();
    }

    void typedTextReplacesTheVersionThatWasShown() {
        text()->setPlainText(QStringLiteral("typed"));
        m_view->commit();
        QCOMPARE(m_database->notes().value().size(), 1);
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("typed"));
        QVERIFY(m_database->notes().value().first().modified.isValid());
        text()->setPlainText(QStringLiteral("typed again"));
        m_view->commit();
        QCOMPARE(m_database->notes().value().size(), 1);
    }

    void everyCharacterSurvivesAnEditBesideIt() {
        constexpr char32_t piece = 0x400;
        QList<char32_t> pieces;
        // The whole first plane, emoji, and the last characters.
        for (const auto &[from, to] :
             {std::pair{0x0, 0x10000}, {0x1F000, 0x20000}, {0x10F000, 0x110000}}) {
            for (int first = from; first < to; first += piece) {
                pieces.append(first);
            }
        }
        for (const char32_t first : std::as_const(pieces)) {
            Note note = m_database->notes().value().first();
            note.title = QStringLiteral("a");
            for (char32_t code = first; code < first + piece; ++code) {
                if (!QChar::isSurrogate(code)) {
                    note.title += QChar::fromUcs4(code);
                }
            }
            note.text = note.title;
            QVERIFY(m_database->saveNote(note));
            QVERIFY(!title()->isReadOnly());
            title()->end(false);
            QTest::keyClick(title(), Qt::Key_Exclam);
            text()->moveCursor(QTextCursor::End);
            QTest::keyClick(text(), Qt::Key_Exclam);
            QVERIFY(m_view->commit());
            const Note saved = m_database->notes().value().first();
            const QByteArray where = QByteArray::number(first, 16);
            QVERIFY2(saved.title == note.title + u'!', where.constData());
            QVERIFY2(saved.text == note.text + u'!', where.constData());
        }
    }

    void titlesWithCharactersOfEveryPlaneSurvive() {
        constexpr char32_t plane = 0x10000;
        constexpr char32_t step = 61;
        for (char32_t first = 0; first <= QChar::LastValidCodePoint; first += plane) {
            Note note = m_database->notes().value().first();
            note.title.clear();
            for (char32_t code = first; code < first + plane; code += step) {
                if (!QChar::isSurrogate(code)) {
                    note.title += QChar::fromUcs4(code);
                }
            }
            note.title += QChar::fromUcs4(first + plane - 1);
            QVERIFY(m_database->saveNote(note));
            QVERIFY(!title()->isReadOnly());
            title()->home(false);
            QTest::keyClick(title(), Qt::Key_Exclam);
            QVERIFY(m_view->commit());
            const QByteArray where = QByteArray::number(first, 16);
            QVERIFY2(m_database->notes().value().first().title == u'!' + note.title,
                     where.constData());
        }
    }

    void aTitleThatIsPastedAndTooLongIsReported() {
        Note note = m_database->notes().value().first();
        note.title = QString(3995, u'x');
        QVERIFY(m_database->saveNote(note));
        QGuiApplication::clipboard()->setText(QStringLiteral("12345"));
        title()->end(false);
        title()->paste();
        QCOMPARE(title()->text().size(), 4000);
        QCOMPARE(m_host->application().presentedErrors().size(), 0);
        title()->backspace();
        title()->paste();
        QCOMPARE(title()->text().right(6), QStringLiteral("x12341"));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        const QString told = m_host->application().presentedErrors().first().localizedDescription;
        QVERIFY2(told.contains(QStringLiteral("not all of what you entered")), qPrintable(told));
        // One that is too long to be edited is not entered.
        QVERIFY(m_view->commit());
        note = m_database->notes().value().first();
        note.title = QString(4001, u'x');
        QVERIFY(m_database->saveNote(note));
        QVERIFY(title()->isReadOnly());
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(m_view->commit());
        QCOMPARE(m_database->notes().value().first().title, note.title);
    }

    /// Each drawing of the title takes time for every character, also at each blink of the cursor.
    void aPastedTitleIsBoundedWhateverItConsistsOf_data() {
        QTest::addColumn<QString>("piece");
        QTest::addRow("letters") << QStringLiteral("x");
        QTest::addRow("control characters") << QString(QChar(1));
        QTest::addRow("combining marks") << QString(QChar(0x301));
        QTest::addRow("joined emoji") << QStringLiteral("👩‍👩‍👧");
        QTest::addRow("cut between characters") << QStringLiteral("a😀");
    }
    void aPastedTitleIsBoundedWhateverItConsistsOf() {
        QFETCH(QString, piece);
        QGuiApplication::clipboard()->setText(piece.repeated(200000 / piece.size()));
        title()->selectAll();
        title()->paste();
        QCOMPARE(title()->text().size(), 4000);
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(m_view->commit());
        QCOMPARE(m_database->notes().value().first().title, title()->text());
        QVERIFY(!title()->isReadOnly());
    }

    void aPastedTitleIsNotCutWithinACharacter() {
        QGuiApplication::clipboard()->setText(u'a' + QStringLiteral("😀").repeated(4000));
        title()->selectAll();
        title()->paste();
        const QString expected = u'a' + QStringLiteral("😀").repeated(1999);
        QCOMPARE(title()->text(), expected);
        QVERIFY(m_view->commit());
        QCOMPARE(m_database->notes().value().first().title, expected);
        QVERIFY(!title()->isReadOnly());
        // In the middle, too.
        title()->setCursorPosition(1);
        QGuiApplication::clipboard()->setText(QStringLiteral("😀😀"));
        title()->paste();
        QCOMPARE(title()->text(), expected);
        QVERIFY(m_view->commit());
        QCOMPARE(m_database->notes().value().first().title, expected);
        title()->undo();
        QCOMPARE(title()->text(), expected);
        title()->undo();
        QCOMPARE(title()->text(), m_first.title);
        title()->redo();
        QCOMPARE(title()->text(), expected);
    }

    void aTypedLineThatGetsTooLongIsSavedAndCanBeCopied() {
        Note second{{}, QStringLiteral("Second"), QStringLiteral("2"), {}};
        QVERIFY(m_database->saveNote(second));
        auto *copy = m_view->findChild<QPushButton *>(QStringLiteral("copyText"));
        QVERIFY(copy && copy->isHidden());
        const QString line(PlainText::LongestLine - 2, u'x');
        text()->setPlainText(line);
        QVERIFY(m_view->commit());
        const QStringList typed{QStringLiteral(" some"), QStringLiteral(" words")};
        for (const QString &words : typed) {
            text()->moveCursor(QTextCursor::End);
            QTest::keyClicks(text(), words);
            QVERIFY(m_view->commit());
            QVERIFY(!text()->isReadOnly());
        }
        const QString whole = line + typed.join(QString());
        QCOMPARE(m_database->notes().value().first().text, whole);
        list()->setCurrentRow(1);
        list()->setCurrentRow(0);
        QVERIFY(text()->isReadOnly());
        QVERIFY(!copy->isHidden());
        copy->click();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("First\n\n") + whole);
        QCOMPARE(m_database->notes().value().first().text, whole);
        list()->setCurrentRow(1);
        QVERIFY(copy->isHidden());
    }

    void aPastedTextThatCouldNotBeEditedIsRefused_data() {
        QTest::addColumn<QString>("pasted");
        QTest::addRow("a long line") << QString(20001, u'x');
        QTest::addRow("a line that becomes too long") << QString(19998, u'x');
        QTest::addRow("many lines") << QString(200001, u'\n');
        QTest::addRow("a long text") << QString(19999, u'x').append(u'\n').repeated(420);
    }
    void aPastedTextThatCouldNotBeEditedIsRefused() {
        QFETCH(QString, pasted);
        text()->setPlainText(QStringLiteral("typed"));
        text()->moveCursor(QTextCursor::End);
        QGuiApplication::clipboard()->setText(pasted);
        text()->paste();
        QCOMPARE(text()->toPlainText(), QStringLiteral("typed"));
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        // It replaces the selection, so that less is too long.
        QGuiApplication::clipboard()->setText(QString(20000, u'x'));
        text()->selectAll();
        text()->paste();
        QCOMPARE(text()->toPlainText().size(), 20000);
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QVERIFY(m_view->commit());
        QVERIFY(!text()->isReadOnly());
    }

    void typedTextIsSavedAfterAPause() {
        text()->setPlainText(QStringLiteral("typed"));
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("1"));
        QTRY_COMPARE(m_database->notes().value().first().text, QStringLiteral("typed"));
        QCOMPARE(text()->toPlainText(), QStringLiteral("typed"));
    }

    void textTypedWithoutAPauseIsKept() {
        const auto typeOn = [this] { QTest::keyClicks(text(), QStringLiteral("typed ")); };
        QTRY_VERIFY((typeOn(), !journal().isEmpty()));
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("1"));
        m_view->commit();
        QVERIFY(journal().isEmpty());
    }

    void aReplacedProfileFolderDoesNotGetTheText() {
        const QString path = m_host->directory() + QStringLiteral("/profile.sqlite");
        QVERIFY(QFile::rename(path, path + QStringLiteral(" aside")));
        text()->setPlainText(QStringLiteral("typed"));
        QVERIFY(!m_view->commit());
        QVERIFY(journal().isEmpty());
        QVERIFY(QFile::rename(path + QStringLiteral(" aside"), path));
        QCOMPARE(UnsavedTexts(m_host->directory(), m_host->inbox()->UUID())
                     .restore(m_host->library())
                     .titles,
                 QStringList{QStringLiteral("First")});
    }

    void aCopyInPlaceOfTheProfileDoesNotGetTheText() {
        const QString path = m_host->directory() + QStringLiteral("/profile.sqlite");
        const QString aside = path + QStringLiteral(" aside");
        QVERIFY(QFile::rename(path, aside));
        QVERIFY(QFile::copy(aside, path));
        text()->setPlainText(QStringLiteral("typed"));
        QVERIFY(!m_view->commit());
        QVERIFY(journal().isEmpty());
        QVERIFY(QFile::remove(path));
        QVERIFY(QFile::rename(aside, path));
        QCOMPARE(UnsavedTexts(m_host->directory(), m_host->inbox()->UUID())
                     .restore(m_host->library())
                     .titles,
                 QStringList{QStringLiteral("First")});
    }

    void textThatIsNotOnDiskIsShownAsEdited() {
        const QSignalSpy edited(m_view.get(), &NotesView::editedChanged);
        const auto isShownAsEdited = [&] { return edited.last().first().toBool(); };
        QTest::keyClicks(text(), QStringLiteral("typed"));
        QVERIFY(isShownAsEdited());
        m_host->makeSavesFail();
        m_view->commit();
        QVERIFY(isShownAsEdited());
        m_host->letSavesPass();
        m_view->commit();
        QVERIFY(!isShownAsEdited());
    }

    void textThatCouldNotBeSavedIsSavedLater() {
        m_host->makeSavesFail();
        text()->setPlainText(QStringLiteral("typed"));
        m_view->commit();
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(text()->toPlainText(), QStringLiteral("typed"));
        m_host->letSavesPass();
        m_view->commit();
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("typed"));
    }

    void aNoteThatCannotBeSavedIsNotLeft() {
        Note second{{}, QStringLiteral("Second"), QStringLiteral("2"), {}};
        QVERIFY(m_database->saveNote(second));
        m_host->makeSavesFail();
        text()->setPlainText(QStringLiteral("typed"));
        QTimer::singleShot(0, m_view.get(), [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            box->reject();
        });
        list()->setCurrentRow(1);
        QCOMPARE(list()->currentRow(), 0);
        QCOMPARE(text()->toPlainText(), QStringLiteral("typed"));
        m_host->letSavesPass();
        list()->setCurrentRow(1);
        QCOMPARE(text()->toPlainText(), QStringLiteral("2"));
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("typed"));
    }

    void anEditReceivedWhileTypingIsKeptBesideTheTypedText() {
        text()->setPlainText(QStringLiteral("typed"));
        receive({{Operation::make(m_first.UUID, QStringLiteral("First"),
                                  QStringLiteral("from there"), {}, {operationOf(m_first)})},
                 {}});
        QCOMPARE(text()->toPlainText(), QStringLiteral("typed"));
        m_view->commit();
        QStringList texts;
        const QList<Note> notes = m_database->notes().value();
        for (const Note &note : notes) {
            texts.append(note.text);
        }
        QCOMPARE(texts, QStringList({QStringLiteral("typed"), QStringLiteral("from there")}));
        QCOMPARE(list()->currentRow(), 0);
    }

    /// The edit from elsewhere is the later one, so it is shown as the note, and the typed text as
    /// a copy of it.
    void typingGoesOnInTheOwnTextBesideALaterEdit() {
        text()->setPlainText(QStringLiteral("typed"));
        receive(
            {{Operation::make(m_first.UUID, QStringLiteral("First"), QStringLiteral("from there"),
                              QDateTime::currentDateTime().addDays(1).toMSecsSinceEpoch(),
                              {operationOf(m_first)})},
             {}});
        QVERIFY(m_view->commit());
        QCOMPARE(text()->toPlainText(), QStringLiteral("typed"));
        QCOMPARE(m_view->note().text, QStringLiteral("typed"));
        text()->setPlainText(QStringLiteral("typed more"));
        QVERIFY(m_view->commit());
        QStringList texts;
        const QList<Note> notes = m_database->notes().value();
        for (const Note &note : notes) {
            texts.append(note.text);
        }
        texts.sort();
        QCOMPARE(texts, QStringList({QStringLiteral("from there"), QStringLiteral("typed more")}));
    }

    void aDatabaseThatCannotBeReadShowsNoNoteOfTheFormerOne() {
        const auto other = m_host->library().synchronizedDatabase(
            m_host->addDatabase(QStringLiteral("Other"))->UUID());
        Note second{{}, QStringLiteral("Second"), QStringLiteral("2"), {}};
        QVERIFY(other->saveNote(second));
        {
            const FailingTable fault(m_host->engine().profile(), QStringLiteral("operations"),
                                     FailingTable::Fault::AllRows);
            QVERIFY(m_view->setDatabase(other));
            QCOMPARE(m_host->application().presentedErrors().size(), 1);
            QCOMPARE(list()->count(), 0);
            QCOMPARE(text()->toPlainText(), QString());
            QVERIFY(!text()->isEnabled());
            QVERIFY(!title()->isEnabled());
            QVERIFY(m_view->note().UUID.isEmpty());
        }
        QVERIFY(m_view->setDatabase(m_database));
        QVERIFY(m_view->setDatabase(other));
        QCOMPARE(text()->toPlainText(), QStringLiteral("2"));
        QVERIFY(text()->isEnabled());
    }

    void typedTextOutlivesTheDeletionOfItsNoteElsewhere() {
        text()->setPlainText(QStringLiteral("typed"));
        receive({{}, {operationOf(m_first)}});
        QVERIFY(m_database->notes().value().isEmpty());
        m_view->commit();
        QCOMPARE(m_database->notes().value().size(), 1);
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("typed"));
        QCOMPARE(list()->currentRow(), 0);
    }

    void theShownNoteStaysWhileOthersAreAddedAndRemoved() {
        Note second{{}, QStringLiteral("Second"), QStringLiteral("2"), {}};
        QVERIFY(m_database->saveNote(second));
        list()->setCurrentRow(1);
        receive({{}, {operationOf(m_first)}});
        QCOMPARE(list()->currentRow(), 0);
        QCOMPARE(text()->toPlainText(), QStringLiteral("2"));
    }

    void anEditChangesItsRowOnly() {
        receiveNotes(20);
        QTRY_COMPARE(shownTitles(), titles());
        const QSignalSpy reset(list()->model(), &QAbstractItemModel::modelReset);
        const QSignalSpy inserted(list()->model(), &QAbstractItemModel::rowsInserted);
        const QSignalSpy removed(list()->model(), &QAbstractItemModel::rowsRemoved);
        const QSignalSpy changed(list()->model(), &QAbstractItemModel::dataChanged);
        Note note = m_database->notes().value().at(7);
        note.text = QStringLiteral("text");
        QVERIFY(m_database->saveNote(note));
        QCOMPARE(changed.size(), 0);
        note.title = QStringLiteral("title");
        QVERIFY(m_database->saveNote(note));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toModelIndex().row(), 7);
        QCOMPARE(inserted.size(), 0);
        QVERIFY(m_database->removeNote(note));
        QCOMPARE(removed.size(), 1);
        QCOMPARE(reset.size(), 0);
        QCOMPARE(shownTitles(), titles());
    }

    void manyNotesAreReadInSteps() {
        constexpr int count = 1700;
        receiveNotes(count);
        QVERIFY(m_view->setDatabase(nullptr));
        QVERIFY(m_view->setDatabase(m_database));
        QVERIFY(list()->count() > 0);
        QVERIFY(list()->count() < count);
        // What comes meanwhile is shown once.
        receiveNotes(2);
        QTRY_COMPARE(list()->count(), count + 3);
        QCOMPARE(shownTitles(), titles());
        receiveNotes(count);
        QTRY_COMPARE(list()->count(), 2 * count + 3);
        QCOMPARE(shownTitles(), titles());
    }

    void aListThatCannotBeReadToItsEndSaysSo() {
        receiveNotes(1700);
        QVERIFY(m_view->setDatabase(nullptr));
        auto *notice = m_view->findChild<QLabel *>(QStringLiteral("unreadNotes"));
        auto *tryAgain = m_view->findChild<QPushButton *>(QStringLiteral("tryAgain"));
        QVERIFY(m_view->setDatabase(m_database));
        QVERIFY(notice->isHidden() && tryAgain->isHidden());
        int read = 0;
        {
            const FailingTable fault(m_host->engine().profile(), QStringLiteral("operations"),
                                     FailingTable::Fault::AllRows);
            QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
            read = list()->count();
            QVERIFY(read > 0 && read < 1701);
            QVERIFY(!notice->isHidden() && !tryAgain->isHidden());
            QVERIFY(notice->text().startsWith(QStringLiteral("Not all notes are shown")));
            tryAgain->click();
            QCOMPARE(m_host->application().presentedErrors().size(), 2);
            QVERIFY(!notice->isHidden());
            QCOMPARE(list()->count(), read);
        }
        tryAgain->click();
        QVERIFY(notice->isHidden() && tryAgain->isHidden());
        QTRY_COMPARE(shownTitles(), titles());
    }

    void anEditThatNobodyHasSeenIsNotDeleted() {
        Note changed = m_first;
        changed.title = QStringLiteral("Changed");
        {
            const QSignalBlocker pause(m_database.get());
            QVERIFY(m_database->saveNote(changed));
        }
        for (QPushButton *button : m_view->findChildren<QPushButton *>()) {
            if (button->text().remove(u'&') == QStringLiteral("Delete Note")) {
                button->click();
            }
        }
        QVERIFY(m_host->application().presentedErrors().isEmpty());
        QCOMPARE(titles(), QStringList{changed.title});
        QVERIFY(!m_view->undoAction()->isEnabled());
    }

    void aRestoredNoteReplacesNoEditThatNobodyHasSeen() {
        QVERIFY(m_database->removeNote(m_first).value());
        HistoryDialog dialog(&m_host->library(), m_database, {}, nullptr);
        {
            const QSignalBlocker pause(m_database.get());
            Note unseen = m_first;
            unseen.revision.clear();
            unseen.text = QStringLiteral("unseen");
            QVERIFY(m_database->saveNote(unseen));
        }
        for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (button->text().remove(u'&') == QStringLiteral("Restore")) {
                button->click();
            }
        }
        const QList<Note> notes = m_database->notes().value();
        QStringList texts;
        for (const Note &note : notes) {
            texts.append(note.text);
        }
        texts.sort();
        QCOMPARE(texts, QStringList({m_first.text, QStringLiteral("unseen")}));
    }

    void whatTheUserDoesIsShownWhileManyNotesAreRead() {
        receiveNotes(1700);
        QVERIFY(m_view->setDatabase(nullptr));
        QVERIFY(m_view->setDatabase(m_database));
        QCOMPARE_LT(list()->count(), 1701);
        const Note first = m_view->note();
        QVERIFY(m_database->removeNote(first));
        QVERIFY(m_view->note().revision != first.revision);
        QTRY_COMPARE(shownTitles(), titles());
    }

    void aChangedRowThatCannotBeReadSaysSo() {
        auto *notice = m_view->findChild<QLabel *>(QStringLiteral("unreadNotes"));
        auto *tryAgain = m_view->findChild<QPushButton *>(QStringLiteral("tryAgain"));
        Note changed = m_first;
        changed.title = QStringLiteral("Changed");
        {
            const QSignalBlocker pause(m_database.get());
            QVERIFY(m_database->saveNote(changed));
        }
        const qint64 position = m_database->rows(0, 1).value().first().position;
        {
            const FailingTable fault(m_host->engine().profile(), QStringLiteral("operations"),
                                     FailingTable::Fault::AllRows);
            Q_EMIT m_database->notesChanged({position});
            QCOMPARE(m_host->application().presentedErrors().size(), 1);
            QVERIFY(!notice->isHidden() && !tryAgain->isHidden());
        }
        tryAgain->click();
        QVERIFY(notice->isHidden() && tryAgain->isHidden());
        QCOMPARE(shownTitles(), QStringList{changed.title});
    }

    void aNoteThatWasNotReadYetCanBeSelected() {
        receiveNotes(1700);
        const Note last = m_database->notes().value().last();
        QVERIFY(m_view->setDatabase(nullptr));
        QVERIFY(m_view->setDatabase(m_database));
        m_view->select(last);
        QCOMPARE(m_view->note().revision, last.revision);
        QCOMPARE(list()->currentRow(), 1700);
    }

    void theTextIsReadWithTheNote() {
        receive({{newNote(QStringLiteral("Second"), QStringLiteral("2"))}, {}});
        list()->setCurrentRow(1);
        QCOMPARE(m_view->note(), m_database->notes().value().at(1));
        QCOMPARE(text()->toPlainText(), QStringLiteral("2"));
    }

    /// Its revision is the same as before.
    void aDamagedNoteThatIsRepairedIsShown() {
        const Operation operation =
            newNote(QStringLiteral("Second"), QStringLiteral("what was written"));
        receive({{operation}, {}});
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("UPDATE operations SET text = 'damaged' WHERE digest = ?"),
            {operation.id}));
        list()->setCurrentRow(1);
        QCOMPARE(text()->toPlainText(), QStringLiteral("damaged"));
        receive({{operation}, {}});
        QCOMPARE(text()->toPlainText(), QStringLiteral("what was written"));
    }

    /// While the rows are read in steps, some of them are of notes that are gone.
    void notesAreRemovedWhileTheListIsRead() {
        constexpr int count = 1200;
        receiveNotes(count);
        QTRY_COMPARE(list()->count(), count + 1);
        list()->setCurrentRow(300);
        const QList<OperationId> all = m_database->log().operationIds().value();
        receive({{}, all.mid(100, 1000)});
        QTRY_COMPARE(list()->count(), count + 1 - 1000);
        QTRY_COMPARE(shownTitles(), titles());
        QVERIFY(m_database->notes().value().contains(m_view->note()));
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    /// Edits, deletions, conflicts and their copies, in any order.
    void ofManyEditsOfANoteSomeAreShown() {
        constexpr int edits = 1000;
        Transaction transaction;
        for (int i = 0; i < edits; ++i) {
            transaction.operations.append(
                Operation::make(m_first.UUID, QStringLiteral("Edit"), {}, i, {}));
        }
        receive(transaction);
        QTRY_VERIFY(list()->count() > 10);
        QVERIFY(list()->count() < edits / 2);
        const auto labels = m_view->findChildren<QLabel *>();
        QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->text().contains(QStringLiteral("in more places than the list shows"));
        }));
    }

    void theListShowsWhatTheDatabaseContains() {
        QRandomGenerator random(17);
        QList<Operation> all{newNote(QStringLiteral("0"))};
        for (int i = 1; i < 200; ++i) {
            const auto any = [&] { return all.at(random.bounded(all.size())); };
            const QString title = QString::number(i);
            const QList<Note> notes = m_database->notes().value();
            switch (notes.isEmpty() ? 0 : random.bounded(5)) {
                case 0:
                    all.append(newNote(title));
                    receive({{all.last()}, {}});
                    break;
                case 1:
                    // Another edit of the same note, which supersedes one or none.
                    all.append(Operation::make(any().note, title, {}, random.bounded(100),
                                               random.bounded(2) == 0
                                                   ? QList<OperationId>()
                                                   : QList<OperationId>{any().id}));
                    receive({{all.last()}, {}});
                    break;
                case 2:
                    receive({{}, {any().id, any().id}});
                    break;
                case 3: {
                    Note note = notes.at(random.bounded(notes.size()));
                    note.title = title;
                    QVERIFY(m_database->saveNote(note));
                    break;
                }
                default:
                    QVERIFY(m_database->removeNote(notes.at(random.bounded(notes.size()))));
            }
            QTRY_COMPARE(shownTitles(), titles());
            QList<Note> read;
            const QList<NoteRow> rows = m_database->rows(0, 1000).value();
            for (const NoteRow &row : rows) {
                read.append(m_database->completeNote(row.note).value());
            }
            QCOMPARE(read, m_database->notes().value());
            QCOMPARE(m_view->note().UUID.isEmpty(), read.isEmpty());
            QVERIFY(read.isEmpty() || read.contains(m_view->note()));
        }
    }

    void selectingAnotherNoteSavesWhatWasTyped() {
        Note second{{}, QStringLiteral("Second"), QStringLiteral("2"), {}};
        QVERIFY(m_database->saveNote(second));
        text()->setPlainText(QStringLiteral("typed"));
        list()->setCurrentRow(1);
        QCOMPARE(list()->currentRow(), 1);
        QCOMPARE(text()->toPlainText(), QStringLiteral("2"));
        QCOMPARE(m_database->notes().value().first().text, QStringLiteral("typed"));
    }
};

VELMORA_TEST(NotesViewTest)
#include "NotesViewTest.moc"
