#pragma once

#include <QtWidgets/QDialog>
#include <memory>

#include "Application/Interface/NoteLibrary.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QTreeWidget;

/// A sheet that lists notes that were replaced or deleted, shows their texts and restores them. It
/// also changes how long they are kept, when it is closed. Must be used on the main thread.
class HistoryDialog : public QDialog {
    Q_OBJECT
public:
    /// Lists the deleted notes of `database` or, if `note` has a UUID, the earlier versions of that
    /// note. Shares ownership of `database`; `library` is not owned and must outlive the dialog.
    /// Neither may be null.
    HistoryDialog(NoteLibrary *library, const std::shared_ptr<NoteDatabase> &database,
                  const Note &note, QWidget *parent);

    void done(int result) override;

Q_SIGNALS:
    /// Emitted after a note was saved again.
    void restored(const Note &note);

private:
    bool isOfNote() const { return !m_note.UUID.isEmpty(); }
    void makeWidgets();
    QWidget *makeLimits();
    /// Reads the versions again. Presents an error if they cannot be read.
    void showVersions();
    QString changeText(const NoteVersion &version) const;
    /// Shows the text of the current version.
    void showText();
    /// Saves the selected versions as new edits.
    void restore();
    Expected<Note> restoreVersion(const NoteVersion &version);
    void saveLimits();

    NoteLibrary *const m_library;
    const std::shared_ptr<NoteDatabase> m_database;
    /// The note that is shown in the main window; no UUID if the dialog lists deleted notes.
    Note m_note;
    /// In the order of the rows.
    QList<NoteVersion> m_versions;
    QTreeWidget *m_list;
    QPlainTextEdit *m_text;
    QLabel *m_explanation;
    QPushButton *m_restoreButton;
    QSpinBox *m_days;
    QSpinBox *m_megabytes;
};
