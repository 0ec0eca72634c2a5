#pragma once

#include <QtWidgets/QPlainTextEdit>

/// An editor of plain text that changes nothing but what the user edits: every other character and
/// line end (LF, CR, CRLF, U+2029 and the like) is returned as it was shown.
class NoteTextEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    using QPlainTextEdit::QPlainTextEdit;

    /// Shows `text` and forgets the undo history. Returns false if the editor cannot show `text`
    /// without changing it.
    bool setNoteText(const QString &text);
    /// Returns the text with the user's edits. Line ends that the user has added are LF.
    QString noteText() const;
};
