#pragma once

#include <QtWidgets/QDialog>

#include "Application/Interface/NoteDatabase.h"

class QPlainTextEdit;
class QPushButton;

/// A sheet that shows two edits of a note side by side, with their differences marked, and asks
/// which of them to keep. Must be used on the main thread.
class ConflictDialog : public QDialog {
    Q_OBJECT
public:
    /// The results of the dialog. QDialog::Rejected leaves both edits as they are.
    enum Decision { KeepThis = 1, KeepOther, KeepBoth };

    /// `shown` is the edit that the main window shows, `other` the one that it is compared with;
    /// they are copied. `parent` owns the dialog, which changes no note.
    /// Computing the differences blocks for bounded time, see TextDifferences.
    ConflictDialog(const Note &shown, const Note &other, QWidget *parent);

private:
    /// Returns the view of one edit with its heading.
    QWidget *makeSide(const QString &heading, const Note &note, QPlainTextEdit *view) const;
    QWidget *makeButtons();
    /// Marks what differs in the texts of both views.
    void markDifferences();

    QPlainTextEdit *m_shown;
    QPlainTextEdit *m_other;
    /// The first and the last button that were created.
    QPushButton *m_close = nullptr;
    QPushButton *m_keepBoth = nullptr;
};
