#include "Application/NoteTextEdit.h"

#include <QtGui/QTextBlock>

namespace {

const QString Newline = QStringLiteral("\n");

/// The line end between a block and the one before it. Blocks without it follow an LF.
class LineEnd : public QTextBlockUserData {
public:
    explicit LineEnd(QStringView text) : m_text(text.toString()) {}
    const QString &text() const { return m_text; }

private:
    const QString m_text;
};

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

bool NoteTextEdit::setNoteText(const QString &text) {
    const Lines split = ::split(text);
    setPlainText(split.lines.join(u'\n'));
    QTextBlock block = document()->firstBlock().next();
    for (qsizetype i = 0; i < split.ends.size() && block.isValid(); ++i, block = block.next()) {
        if (split.ends[i] != Newline) {
            block.setUserData(new LineEnd(split.ends[i]));
        }
    }
    return noteText() == text;
}

QString NoteTextEdit::noteText() const {
    QString text = document()->firstBlock().text();
    for (QTextBlock block = document()->firstBlock().next(); block.isValid();
         block = block.next()) {
        const auto *lineEnd = static_cast<const LineEnd *>(block.userData());
        // An LF directly after a CR would be read as a single line end.
        const QString &added = text.endsWith(u'\r') ? QStringLiteral("\r") : Newline;
        text += lineEnd ? lineEnd->text() : added;
        text += block.text();
    }
    return text;
}
