#include "Application/NoteTextEdit.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <algorithm>
#include <memory>

#include "Application/LineAlignment.h"
#include "Platform/Interface/PlainText.h"

namespace {

const QString Newline = QStringLiteral("\n");

/// The property of a block's format with the line end between the block and the one before it.
/// Blocks without it follow an LF. Undoing an edit restores formats, unlike the user data of
/// blocks.
constexpr int LineEnd = QTextFormat::UserProperty;

bool endsLine(QChar character) {
    // QTextDocument uses two noncharacters as separators of frames.
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator ||
           character == QChar(0xFDD0) || character == QChar(0xFDD1);
}

struct Lines {
    QStringList lines;
    QStringList ends;
};

Lines split(const QString &text) {
    Lines result;
    qsizetype start = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (endsLine(text[at])) {
            const bool isPair = text[at] == u'\r' && text.mid(at + 1, 1) == Newline;
            result.lines.append(text.mid(start, at - start));
            result.ends.append(text.mid(at, isPair ? 2 : 1));
            at += isPair ? 1 : 0;
            start = at + 1;
        }
    }
    result.lines.append(text.mid(start));
    return result;
}

}  // namespace

NoteTextEdit::NoteTextEdit(QWidget *parent) : QPlainTextEdit(parent) {
    alignLines(*this);
}

bool NoteTextEdit::setNoteText(const QString &text) {
    const Lines split = ::split(PlainText::page(text));
    setPlainText(split.lines.join(u'\n'));
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (const QString &end : split.ends) {
        if (cursor.movePosition(QTextCursor::NextBlock) && end != Newline) {
            QTextBlockFormat format;
            format.setProperty(LineEnd, end);
            cursor.setBlockFormat(format);
        }
    }
    cursor.endEditBlock();
    document()->setUndoRedoEnabled(true);
    return noteText() == text;
}

QString NoteTextEdit::noteText() const {
    return textBetween(0, document()->characterCount() - 1);
}

QString NoteTextEdit::textBetween(int start, int end) const {
    QString text;
    for (QTextBlock block = document()->findBlock(start);
         block.isValid() && block.position() <= end; block = block.next()) {
        if (block.position() > start) {
            const QString lineEnd = block.blockFormat().stringProperty(LineEnd);
            // An LF directly after a CR would be read as a single line end.
            const QString &added = text.endsWith(u'\r') ? QStringLiteral("\r") : Newline;
            text += lineEnd.isEmpty() ? added : lineEnd;
        }
        const int first = std::max(start - block.position(), 0);
        text += block.text().mid(first, end - block.position() - first);
    }
    return text;
}

QMimeData *NoteTextEdit::createMimeDataFromSelection() const {
    auto selected = std::make_unique<QMimeData>();
    selected->setText(textBetween(textCursor().selectionStart(), textCursor().selectionEnd()));
    return selected.release();
}

bool NoteTextEdit::canReplace(const QTextCursor &cursor, const QString &text) const {
    const QString whole = textBetween(0, cursor.selectionStart()) + text +
                          textBetween(cursor.selectionEnd(), document()->characterCount() - 1);
    return whole.size() <= LongestText && PlainText::page(whole) == whole;
}

void NoteTextEdit::keyPressEvent(QKeyEvent *event) {
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (isTab && event->modifiers().testFlag(Qt::ControlModifier)) {
        // QPlainTextEdit's own refuses, so that Tab can be typed.
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractScrollArea::focusNextPrevChild(!event->modifiers().testFlag(Qt::ShiftModifier));
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void NoteTextEdit::dropEvent(QDropEvent *event) {
    // Text that is moved here is removed from where it was before it is inserted.
    if (event->mimeData()->hasText() &&
        !canReplace(cursorForPosition(event->position().toPoint()), event->mimeData()->text())) {
        QDragLeaveEvent leave;
        dragLeaveEvent(&leave);
        event->setDropAction(Qt::IgnoreAction);
        event->ignore();
        Q_EMIT insertionRefused();
        return;
    }
    QPlainTextEdit::dropEvent(event);
}

void NoteTextEdit::insertFromMimeData(const QMimeData *source) {
    if (!source->hasText()) {
        return;
    }
    if (!canReplace(textCursor(), source->text())) {
        Q_EMIT insertionRefused();
        return;
    }
    const Lines split = ::split(source->text());
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    cursor.insertText(split.lines.first());
    for (qsizetype i = 0; i < split.ends.size(); ++i) {
        QTextBlockFormat format;
        format.setProperty(LineEnd, split.ends[i]);
        cursor.insertBlock(format);
        cursor.insertText(split.lines[i + 1]);
    }
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}
