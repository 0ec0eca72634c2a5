#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QMainWindow>
#include <memory>

class EventLog;
class LogWindow;
class NoteDatabase;
class NoteLibrary;
class NotesView;
class PreferencesWindow;
class QAction;
class QListWidget;
class UnsavedTexts;

/// The databases of the profile on the left, the notes of the chosen one on the right.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// `library` and `log` are not owned and must outlive the window. `profileFolder` is the folder
    /// of the profile. Saves the texts that an earlier run could not save.
    MainWindow(NoteLibrary *library, EventLog *log, const QString &profileFolder);
    ~MainWindow() override;

    /// Opens Sync Preferences, or brings the open window to the front. Returns the window, which
    /// deletes itself when it is closed; nullptr if the pane cannot be loaded, after the user was
    /// told.
    PreferencesWindow *showPreferences();
    /// Brings the window to the front.
    void bringToFront();
    /// Saves everything that is not saved yet, without asking the user, and closes Sync
    /// Preferences. Text that cannot be saved is kept for the next start.
    void saveAll();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeActions();
    void showDatabases();
    void showDatabase();
    void restoreUnsavedTexts(const UnsavedTexts &unsavedTexts);
    int rowOf(const std::shared_ptr<NoteDatabase> &database) const;
    std::shared_ptr<NoteDatabase> currentDatabase() const;
    void createDatabase();
    void renameDatabase();
    void toggleOpen();
    void showLog();

    NoteLibrary *const m_library;
    EventLog *const m_log;
    /// The database that is chosen; not necessarily open.
    std::shared_ptr<NoteDatabase> m_database;
    QListWidget *m_databases;
    NotesView *m_notes;
    QAction *m_renameAction = nullptr;
    QAction *m_openAction = nullptr;
    QPointer<PreferencesWindow> m_preferences;
    QPointer<LogWindow> m_logWindow;
};
