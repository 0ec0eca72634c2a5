#include "Application/NoteTextEdit.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>
#include <random>

#include "Platform/Interface/PlainText.h"
#include "Support/TestMain.h"

/// The editor returns what it was given, with nothing but the user's edits.
class NoteTextEditTest : public QObject {
    Q_OBJECT

    /// Shows `text`, types `key` at its end, and returns what the editor holds then.
    static QString textWithKeyAtEnd(const QString &text) {
        NoteTextEdit editor;
        if (!editor.setNoteText(text)) {
            return QStringLiteral("not shown");
        }
        editor.moveCursor(QTextCursor::End);
        QTest::keyClick(&editor, Qt::Key_Exclam);
        return editor.noteText();
    }

private Q_SLOTS:
    void linesBeginWhereTheLanguageBeginsThem() {
        const auto beginning = [](Qt::LayoutDirection direction) {
            QGuiApplication::setLayoutDirection(direction);
            NoteTextEdit editor;
            editor.resize(400, 200);
            editor.show();
            editor.setNoteText(QStringLiteral("\u0627\u0628"));
            return editor.cursorRect().center().x();
        };
        const int fromRight = beginning(Qt::RightToLeft);
        const int fromLeft = beginning(Qt::LeftToRight);
        QVERIFY2(fromRight > 350 && fromLeft < 50,
                 qPrintable(QStringLiteral("%1, %2").arg(fromRight).arg(fromLeft)));
    }

    void everyCharacterSurvivesAnEditBesideIt() {
        constexpr char32_t last = 0x10FFFF;
        constexpr char32_t piece = 0x400;
        for (char32_t first = 0; first <= last; first += piece) {
            QString text = QStringLiteral("a");
            for (char32_t code = first; code < first + piece; ++code) {
                if (!QChar::isSurrogate(code)) {
                    text += QChar::fromUcs4(code);
                    text += u'x';
                }
            }
            QVERIFY2(textWithKeyAtEnd(text) == text + u'!',
                     QByteArray::number(first, 16).constData());
        }
    }

    void lineEndsSurviveInAnyOrder() {
        const QStringList pieces{
            QStringLiteral("\n"),     QStringLiteral("\r"),     QStringLiteral("\r\n"),
            QStringLiteral("\u2028"), QStringLiteral("\u2029"), QStringLiteral("\uFDD0"),
            QStringLiteral("\uFDD1"), QStringLiteral("\u00A0"), QStringLiteral("word"),
            QStringLiteral("\t"),     QStringLiteral("\u0085"), QStringLiteral("😀")};
        std::mt19937 random(20);
        std::uniform_int_distribution<qsizetype> anyPiece(0, pieces.size() - 1);
        for (int round = 0; round < 2000; ++round) {
            QString text;
            for (int i = 0; i < round % 12; ++i) {
                text += pieces[anyPiece(random)];
            }
            const QString after = textWithKeyAtEnd(text);
            QVERIFY2(after == text + u'!', qPrintable(QString::number(round)));
        }
    }

    /// A text that was moved would be removed from where it was.
    void aTextThatCannotBeInsertedIsNotDropped() {
        NoteTextEdit editor;
        const QString line(PlainText::LongestLine - 10, u'x');
        QVERIFY(editor.setNoteText(line));
        const QSignalSpy refused(&editor, &NoteTextEdit::insertionRefused);
        QMimeData moved;
        for (const int length : {100, 5}) {
            moved.setText(QString(length, u'y'));
            QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction, &moved, Qt::LeftButton,
                                  Qt::NoModifier);
            QCoreApplication::sendEvent(editor.viewport(), &enter);
            QVERIFY(enter.isAccepted());
            QDropEvent drop(QPointF(5, 5), Qt::MoveAction, &moved, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(editor.viewport(), &drop);
            const bool isRefused = length > 10;
            QCOMPARE(drop.dropAction() == Qt::IgnoreAction, isRefused);
            QCOMPARE(drop.isAccepted(), !isRefused);
            QCOMPARE(editor.noteText().size(), line.size() + (isRefused ? 0 : length));
        }
        QCOMPARE(refused.count(), 1);
    }

    void textMovedOverTheClipboardStaysUnchanged() {
        NoteTextEdit editor;
        const QString text =
            QStringLiteral("one\u00A0a\r\ntwo\u2028b\rthree\u2029four\uFDD0five\nsix\u0085😀");
        QVERIFY(editor.setNoteText(text));
        editor.selectAll();
        editor.cut();
        QCOMPARE(editor.noteText(), QString());
        editor.paste();
        QCOMPARE(editor.noteText(), text);
        for (int length = 1; length < text.size(); ++length) {
            if (text[length - 1].isHighSurrogate()) {
                continue;
            }
            QVERIFY(editor.setNoteText(QStringLiteral("<\r>")));
            QGuiApplication::clipboard()->setText(text.left(length));
            editor.moveCursor(QTextCursor::Start);
            editor.moveCursor(QTextCursor::NextCharacter);
            editor.paste();
            QCOMPARE(editor.noteText(), u'<' + text.left(length) + QStringLiteral("\r>"));
            editor.undo();
            QCOMPARE(editor.noteText(), QStringLiteral("<\r>"));
        }
    }

    void undoingADeletionRestoresTheLineEnds() {
        NoteTextEdit editor;
        const QString text = QStringLiteral("one\r\ntwo\r\nthree\u2029four\rfive");
        QVERIFY(editor.setNoteText(text));
        QVERIFY(!editor.document()->isUndoAvailable());
        editor.selectAll();
        QTest::keyClick(&editor, Qt::Key_Delete);
        QCOMPARE(editor.noteText(), QString());
        QTest::keySequence(&editor, QKeySequence::Undo);
        QCOMPARE(editor.noteText(), text);
    }

    void undoingAnyEditsRestoresTheText() {
        const QStringList pieces{QStringLiteral("\n"),     QStringLiteral("\r"),
                                 QStringLiteral("\r\n"),   QStringLiteral("x"),
                                 QStringLiteral("\u2029"), QStringLiteral("yy")};
        std::mt19937 random(21);
        const auto below = [&](qsizetype limit) {
            return std::uniform_int_distribution<int>(0, static_cast<int>(limit) - 1)(random);
        };
        NoteTextEdit editor;
        for (int round = 0; round < 1000; ++round) {
            QString text;
            for (int i = 0; i < round % 10; ++i) {
                text += pieces[below(pieces.size())];
            }
            QVERIFY(editor.setNoteText(text));
            for (int edit = 0; edit < 4; ++edit) {
                QTextCursor cursor(editor.document());
                cursor.setPosition(below(editor.document()->characterCount()));
                cursor.setPosition(below(editor.document()->characterCount()),
                                   QTextCursor::KeepAnchor);
                cursor.insertText(below(2) == 0 ? QString() : QStringLiteral("q\nz"));
            }
            const QString edited = editor.noteText();
            while (editor.document()->isUndoAvailable()) {
                editor.undo();
            }
            QVERIFY2(editor.noteText() == text, qPrintable(QString::number(round)));
            while (editor.document()->isRedoAvailable()) {
                editor.redo();
            }
            QVERIFY2(editor.noteText() == edited, qPrintable(QString::number(round)));
        }
    }

    void removingTextBetweenLineEndsKeepsThem() {
        NoteTextEdit editor;
        QVERIFY(editor.setNoteText(QStringLiteral("one\rtwo\r\nthree\u2029four")));
        editor.moveCursor(QTextCursor::End);
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(&editor, Qt::Key_Backspace);
        }
        QCOMPARE(editor.noteText(), QStringLiteral("one\rtwo\r\nthree\u2029"));
        QTest::keyClick(&editor, Qt::Key_Backspace);
        QCOMPARE(editor.noteText(), QStringLiteral("one\rtwo\r\nthree"));
        editor.moveCursor(QTextCursor::Start);
        QTest::keyClick(&editor, Qt::Key_End);
        QTest::keyClick(&editor, Qt::Key_Return);
        const QString after = editor.noteText();
        QVERIFY(after.endsWith(QStringLiteral("two\r\nthree")));
        NoteTextEdit again;
        QVERIFY(again.setNoteText(after));
        QCOMPARE(again.blockCount(), editor.blockCount());
    }

    void controlTabLeavesTheText() {
        QWidget window;
        auto *before = new QLineEdit;
        auto *editor = new NoteTextEdit;
        auto *after = new QLineEdit;
        auto *layout = new QVBoxLayout(&window);
        for (QWidget *each : QWidgetList{before, editor, after}) {
            layout->addWidget(each);
        }
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        editor->setFocus();
        QTest::keyClick(editor, Qt::Key_Tab);
        QCOMPARE(editor->noteText(), QStringLiteral("\t"));
        QTest::keyClick(editor, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), after);
        editor->setFocus();
        QTest::keyClick(editor, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), before);
        QCOMPARE(editor->noteText(), QStringLiteral("\t"));
    }
};

VELMORA_TEST(NoteTextEditTest)
#include "NoteTextEditTest.moc"
