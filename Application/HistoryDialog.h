#pragma once

#include <QtWidgets/QDialog>
#include <memory>

#include "Application/Interface/NoteLibrary.h"

class NoteVersionsList;
class NoteVersionsModel;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

/// A sheet that lists notes that were replaced or deleted, shows their texts and restores them. It
/// also changes how long they are kept, when it is closed. Many are restored in short steps;
/// closing the dialog ends that, and those that are left stay as they were. Must be used on the
/// main thread. It reads the beginning of the list again whenever the notes of the database change,
/// and the rest as the user scrolls to it. The texts are shown as plain text.
class HistoryDialog : public QDialog {
    Q_OBJECT
public:
    /// Lists the deleted notes of `database` or, if `note` has a UUID, the earlier versions of that
    /// note. Shares ownership of `database`; `library` is not owned and must outlive the dialog.
    /// Neither may be null. `note` must be saved: a restored version replaces the edit that its
    /// revision names. Versions that cannot be read are presented as an error, and the list stays
    /// as it is. Blocks for the disk.
    HistoryDialog(NoteLibrary *library, const std::shared_ptr<NoteDatabase> &database,
                  const Note &note, QWidget *parent);

    /// Saves the limits if the user has changed them, presenting an error of that, and closes the
    /// dialog, also in that case. If the new limits remove versions, asks first, running a nested
    /// event loop.
    void done(int result) override;
    /// Ignores the wheel over a limit that does not have the focus.
    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    /// Emitted after a note was saved again, once for each restored version, with the note as it
    /// was saved. If saving one fails, the error is presented, and the remaining ones are not
    /// restored.
    void restored(const Note &note);

private:
    bool isOfNote() const { return !m_note.UUID.isEmpty(); }
    void makeWidgets();
    /// Returns the line with the limits, which are disabled if they cannot be read.
    QWidget *makeLimits();
    /// Reads a part of the versions.
    Expected<QList<NoteVersion>> read(const VersionsPart &part) const;
    /// Reads the versions again. Presents an error if they cannot be read.
    void showVersions();
    /// Returns the identifiers of the selected versions.
    QSet<qint64> selectedVersions() const;
    /// Selects those of the versions that are still in the list, in its first thousands of rows,
    /// and makes `current` the current one if it is among them. Has no effect if none is.
    void selectAgain(const QSet<qint64> &selected, qint64 current);
    void adjustColumns();
    QString explanation() const;
    /// Returns the texts of a row.
    QStringList textsOf(const NoteVersion &version) const;
    /// Returns how the version ended, for the user.
    QString changeText(const NoteVersion &version) const;
    /// Shows the text of the current version.
    void showText();
    /// Saves the selected versions as new edits. Has no effect while others are being saved.
    void restore();
    /// Saves the next of the versions to restore for a short time, and goes on in the next turn of
    /// the event loop.
    void restoreNext();
    /// Saves the version as a new edit, with the current time, and returns it.
    Expected<Note> restoreVersion(const NoteVersion &version);
    HistoryLimits shownLimits() const;
    /// Saves the limits unless the user wants to keep what they would remove.
    void saveLimits();
    /// Asks whether `count` versions shall be removed.
    bool isRemovalWanted(qint64 count);

    NoteLibrary *const m_library;
    const std::shared_ptr<NoteDatabase> m_database;
    /// The note that is shown in the main window; no UUID if the dialog lists deleted notes.
    Note m_note;
    /// The versions that are still to be restored, the last one first.
    QList<NoteVersion> m_toRestore;
    NoteVersionsModel *m_versions;
    NoteVersionsList *m_list;
    QPlainTextEdit *m_text;
    QLabel *m_explanation;
    QPushButton *m_restoreButton;
    /// As shown before the user has changed them.
    HistoryLimits m_shownLimits;
    QSpinBox *m_days;
    QSpinBox *m_megabytes;
};
