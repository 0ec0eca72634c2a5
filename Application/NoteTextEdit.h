#pragma once

#include <QtWidgets/QPlainTextEdit>

/// An editor of plain text that changes only what the user edits: all other characters and line
/// ends (LF, CR, CRLF, U+2029 and the like) are returned as they were set, also where they are
/// copied, moved or pasted. Must be used on the main thread.
class NoteTextEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit NoteTextEdit(QWidget *parent = nullptr);

    /// Maximum number of characters of a text into which something is inserted. A note of more
    /// bytes cannot be saved.
    static constexpr qsizetype LongestText = 8LL << 20;

    /// Shows `text` and clears the undo history. Returns false if the editor cannot represent
    /// `text` exactly, or not all of it (see PlainText::page()); noteText() then differs from it.
    /// O(n). Emits textChanged(), as an edit by
    /// the user does; callers that must distinguish them block signals.
    bool setNoteText(const QString &text);
    /// Returns the text with the user's edits. A line that the user has split ends as the one
    /// before it, and other line ends that the user has added are LF, or CR directly after a CR.
    /// Undoing the edits restores the text exactly. O(n).
    QString noteText() const;

Q_SIGNALS:
    /// Emitted if a text that was pasted or dropped is not inserted, because the editor could not
    /// represent the text exactly then, or it would be too long.
    void insertionRefused();

protected:
    /// Qt would change spaces and line ends.
    QMimeData *createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData *source) override;
    /// Ctrl+Tab and Ctrl+Shift+Tab leave the text, since Tab is typed.
    void keyPressEvent(QKeyEvent *event) override;
    /// Refuses text that could not be inserted, so that text that is moved stays where it is.
    void dropEvent(QDropEvent *event) override;

private:
    /// Returns whether the text can be edited after `text` has replaced the selection of `cursor`.
    bool canReplace(const QTextCursor &cursor, const QString &text) const;
    /// Returns the text between two positions of the document.
    QString textBetween(int start, int end) const;
};
