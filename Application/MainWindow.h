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

/// The databases of the profile on the left, the notes of the chosen one on the right.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// Both outlive the window.
    MainWindow(NoteLibrary *library, EventLog *log);
    ~MainWindow() override;

    /// Opens Sync Preferences, or brings the open window to the front. nullptr where the pane
    /// cannot be loaded, after the person was told.
    PreferencesWindow *showPreferences();
    /// Brings the window to the front.
    void bringToFront();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeActions();
    void showDatabases();
    void showDatabase();
    std::shared_ptr<NoteDatabase> currentDatabase() const;
    void createDatabase();
    void renameDatabase();
    void toggleOpen();
    void showLog();

    NoteLibrary *const m_library;
    EventLog *const m_log;
    QListWidget *m_databases;
    NotesView *m_notes;
    QAction *m_renameAction = nullptr;
    QAction *m_openAction = nullptr;
    QPointer<PreferencesWindow> m_preferences;
    QPointer<LogWindow> m_logWindow;
};
