#include "Application/MainWindow.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSignalBlocker>
#include <QtGui/QAction>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

#include "Application/ApplicationError.h"
#include "Application/CountText.h"
#include "Application/DeletionQuestion.h"
#include "Application/EventLog.h"
#include "Application/FailureSteps.h"
#include "Application/FirstStart.h"
#include "Application/Guide.h"
#include "Application/HistoryDialog.h"
#include "Application/Interface/NoteLibrary.h"
#include "Application/LocationRemovals.h"
#include "Application/LogWindow.h"
#include "Application/NameDialog.h"
#include "Application/NoteExport.h"
#include "Application/NotesView.h"
#include "Application/PaddedDelegate.h"
#include "Application/PlugIns.h"
#include "Application/PreferencesWindow.h"
#include "Application/PresentIfFailed.h"
#include "Application/Splitter.h"
#include "Application/StatusLine.h"
#include "Application/SynchronizationMonitor.h"
#include "Application/UndoBar.h"
#include "Application/VelmoraApplication.h"
#include "Application/WindowMemory.h"
#include "Application/WindowSize.h"
#include "Host/InboxUUID.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SaveLocations.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/Interface/MessageBox.h"
#include "Platform/Interface/PlainText.h"

namespace {

const QString ApplicationName = QStringLiteral("Velmora");
constexpr int IconSide = 64;

/// Names in WindowMemory.
const QString MainName = QStringLiteral("Main");
const QString LogName = QStringLiteral("Log");
const QString MainDatabaseName = QStringLiteral("MainDatabase");
const QString MainNoteName = QStringLiteral("MainNote");

QString shownName(const NoteDatabase &database) {
    QString name = PlainText::message(database.name());
    if (!database.isOpen()) {
        name = MainWindow::tr("%1 (closed)").arg(name);
    }
    const Expected<qint64> conflicts = database.countOfConflicts();
    if (!conflicts) {
        // NotesView presents that notes cannot be read.
        return MainWindow::tr("%1 · cannot be read").arg(name);
    }
    if (*conflicts == 0) {
        return name;
    }
    return translateCount("MainWindow", "%1 · %2 conflicts", "%1 · %2 conflict", *conflicts)
        .arg(name, QString::number(*conflicts));
}

/// The widths of the lists and the text.
struct Widths {
    int databases = 0;
    int notes = 0;
    int text = 0;
};

/// Most of the width of a window is for the text, and more of it in a narrow window.
Widths firstWidths(int window, int character) {
    const int databases = qMin(26 * character, window / 5);
    const int notes = qMin(34 * character, window / 4);
    return {databases, notes, window - databases - notes};
}

/// The tool bar shows the title without the mnemonic, of which Qt would leave the brackets.
void setTitle(QAction *action, const QString &title) {
    static const QRegularExpression mnemonic(QStringLiteral(" ?\\(&.\\)|&"));
    action->setText(title);
    action->setIconText(QString(title).remove(mnemonic));
}

}  // namespace

MainWindow::MainWindow(NoteLibrary *library, EventLog *log, const QString &profileFolder)
    : m_library(library),
      m_log(log),
      m_monitor(new SynchronizationMonitor(library, this)),
      m_removals(new LocationRemovals(QVSyncPlugin::plugin()->locationsController(), this)),
      m_databases(new QListWidget),
      m_notes(new NotesView(UnsavedTexts(profileFolder, library->inbox()->UUID()))),
      m_undoBar(new UndoBar) {
    restoreUnsavedTexts(UnsavedTexts(profileFolder, library->inbox()->UUID()));
    setWindowTitle(ApplicationName + QStringLiteral("[*]"));
    resize(WindowSize::of(*this, 140, 38));
    m_databases->setObjectName(QStringLiteral("databases"));
    m_databases->setAccessibleName(tr("Databases"));
    m_databases->setItemDelegate(new PaddedDelegate(m_databases));
    auto *splitter = new Splitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_databases);
    splitter->addWidget(m_notes);
    splitter->setStretchFactor(1, 3);
    const Widths widths = firstWidths(width(), fontMetrics().averageCharWidth());
    splitter->setSizes({widths.databases, widths.notes + widths.text});
    m_notes->divide(widths.notes, widths.text);
    auto *contents = new QWidget;
    auto *layout = new QVBoxLayout(contents);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_undoBar);
    auto *line = new StatusLine(m_monitor);
    connect(line, &StatusLine::failureRequested, this, &MainWindow::presentFailure);
    layout->addWidget(line);
    setCentralWidget(contents);
    connectToApplication();
    makeActions();

    connect(m_library, &NoteLibrary::knownDatabasesChanged, this, &MainWindow::showDatabases);
    connect(m_library, &NoteLibrary::deletedDatabasesChanged, this, &MainWindow::showDeletions);
    connect(m_undoBar, &UndoBar::undoRequested, this, &MainWindow::restoreDatabase);
    connect(m_databases, &QListWidget::currentRowChanged, this, &MainWindow::showDatabase);
    connect(m_databases, &QListWidget::itemActivated, this, &MainWindow::open);
    m_database = m_library->inbox();
    showDatabases();
    showDeletions();
}

MainWindow::~MainWindow() = default;

void MainWindow::makeDatabaseMenu() {
    QMenu *menu = menuBar()->addMenu(tr("&Database"));
    // They say why a command cannot be used.
    menu->setToolTipsVisible(true);
    m_createAction = menu->addAction(tr("&New Database…"), this, &MainWindow::createDatabase);
    m_createAction->setShortcut(QKeySequence::New);
    m_renameAction = menu->addAction(tr("&Rename…"), this, &MainWindow::renameDatabase);
    m_renameAction->setShortcut(Qt::Key_F2);
    m_openAction = menu->addAction(tr("&Open"), this, &MainWindow::toggleOpen);
    m_synchronizeAction = menu->addAction(tr("&Sync Now"), this, &MainWindow::synchronize);
    m_synchronizeAction->setShortcut(Qt::Key_F5);
    m_exportAction = menu->addAction(tr("&Export…"), this, &MainWindow::exportDatabase);
    menu->addSeparator();
    m_deleteAction = menu->addAction(tr("&Delete…"), this, &MainWindow::deleteDatabase);
    // Elsewhere the key deletes text.
    m_deleteAction->setShortcut(QKeySequence::Delete);
    m_deleteAction->setShortcutContext(Qt::WidgetShortcut);
    m_databases->addAction(m_deleteAction);
    m_restoreAction =
        menu->addAction(tr("Res&tore Deleted Database"), this, &MainWindow::restoreDatabase);
    menu->addSeparator();
    m_quitAction = menu->addAction(tr("&Quit"), this, &MainWindow::quit);
    // QKeySequence::Quit has no key on some desktops.
    m_quitAction->setShortcut(Qt::CTRL | Qt::Key_Q);
}

void MainWindow::makeListMenu() {
    auto *menu = new QMenu(m_databases);
    menu->setObjectName(QStringLiteral("databaseMenu"));
    menu->setToolTipsVisible(true);
    menu->addActions(
        {m_synchronizeAction, m_openAction, m_renameAction, m_exportAction, m_deleteAction});
    menu->insertSeparator(m_deleteAction);
    ContextMenu::setMenu(m_databases, menu);
}

void MainWindow::makeActions() {
    makeDatabaseMenu();
    makeListMenu();
    QMenu *editMenu = menuBar()->addMenu(tr("&Edit"));
    editMenu->addAction(m_notes->undoAction());
    editMenu->addSeparator();
    m_versionsAction =
        editMenu->addAction(tr("Earlier &Versions…"), this, &MainWindow::showEarlierVersions);
    m_deletedAction =
        editMenu->addAction(tr("&Deleted Notes…"), this, &MainWindow::showDeletedNotes);
    editMenu->addSeparator();
    m_exportNoteAction = editMenu->addAction(tr("E&xport Note…"), this, &MainWindow::exportNote);
    m_notes->addNoteActions({m_versionsAction, m_exportNoteAction});
    connect(m_notes, &NotesView::noteChanged, this, &MainWindow::updateNoteActions);
    connect(m_notes, &NotesView::editedChanged, this, &QWidget::setWindowModified);

    m_toolsMenu = menuBar()->addMenu(tr("&Tools"));
    QAction *preferencesAction =
        m_toolsMenu->addAction(tr("Sync &Preferences…"), this, &MainWindow::showPreferences);
    preferencesAction->setShortcut(Qt::CTRL | Qt::Key_Comma);
    m_toolsMenu->addAction(tr("&Log"), this, &MainWindow::showLog);

    makeHelpMenu();
    makeToolBar({m_createAction, m_renameAction, m_openAction, preferencesAction});
}

void MainWindow::makeHelpMenu() {
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&Guide"), this, [] { Guide::open(); })
        ->setShortcut(QKeySequence::HelpContents);
    menu->addAction(tr("&About Velmora"), this, &MainWindow::showVersion);
}

void MainWindow::makeToolBar(const QList<QAction *> &actions) {
    QToolBar *toolBar = addToolBar(tr("Commands"));
    toolBar->setObjectName(QStringLiteral("commands"));
    toolBar->setMovable(false);
    for (QAction *action : actions) {
        setTitle(action, action->text());
        toolBar->addAction(action);
    }
}

void MainWindow::showDatabases() {
    {
        const QSignalBlocker blocker(m_databases);
        listDatabases();
        showNames();
        if (const int row = rowOf(m_database); row >= 0) {
            m_databases->setCurrentRow(row);
        }
    }
    showDatabase();
}

void MainWindow::listDatabases() {
    const auto known = m_library->knownDatabases();
    for (qsizetype row = m_listed.size() - 1; row >= 0; --row) {
        if (!known.contains(m_listed[row])) {
            disconnect(m_listed.takeAt(row).get(), nullptr, this, nullptr);
            delete m_databases->takeItem(static_cast<int>(row));
        }
    }
    for (qsizetype row = 0; row < known.size(); ++row) {
        const auto &database = known[row];
        if (m_listed.value(row) == database) {
            continue;
        }
        m_listed.insert(row, database);
        m_databases->insertItem(static_cast<int>(row), QString());
        connect(database.get(), &NoteDatabase::openChanged, this, &MainWindow::showDatabases);
        connect(database.get(), &NoteDatabase::nameChanged, this, &MainWindow::showDatabases);
        connect(database.get(), &NoteDatabase::notesChanged, this,
                [this, changed = std::weak_ptr(database)] {
                    const auto shown = changed.lock();
                    if (const int changedRow = rowOf(shown); changedRow >= 0) {
                        showName(changedRow, *shown);
                    }
                });
    }
}

void MainWindow::showNames() {
    const auto databases = m_library->knownDatabases();
    for (int row = 0; row < m_databases->count(); ++row) {
        showName(row, *databases[row]);
    }
}

void MainWindow::showName(int row, const NoteDatabase &database) {
    m_databases->item(row)->setText(shownName(database));
}

void MainWindow::showDatabase() {
    const auto database = currentDatabase();
    if (!m_notes->setDatabase(database)) {
        const QSignalBlocker blocker(m_databases);
        m_databases->setCurrentRow(rowOf(m_database));
        return;
    }
    m_database = database;
    {
        // The list may have changed while the user was asked.
        const QSignalBlocker blocker(m_databases);
        m_databases->setCurrentRow(rowOf(m_database));
    }
    m_renameAction->setEnabled(database && !database->isInbox());
    m_openAction->setEnabled(database && !database->isInbox());
    m_deleteAction->setEnabled(database && !database->isInbox());
    m_deleteAction->setToolTip(database && database->isInbox()
                                   ? tr("The inbox cannot be deleted, because every profile has "
                                        "one. You can delete its notes.")
                                   : QString());
    setTitle(m_openAction, database && database->isOpen() ? tr("&Close") : tr("&Open"));
    updateNoteActions();
}

std::shared_ptr<NoteDatabase> MainWindow::currentDatabase() const {
    const auto databases = m_library->knownDatabases();
    const int row = m_databases->currentRow();
    return row >= 0 && row < databases.size() ? databases.at(row) : nullptr;
}

void MainWindow::createDatabase() {
    NameDialog dialog(tr("New Database"), tr("Name of the new database:"), {}, this);
    if (const auto name = dialog.ask()) {
        const bool isCreated = presentIfFailed(m_library->createDatabase(*name));
        if (isCreated) {
            // The newest one is last.
            m_databases->setCurrentRow(m_databases->count() - 1);
        }
    }
}

void MainWindow::renameDatabase() {
    const auto database = currentDatabase();
    NameDialog dialog(tr("Rename"), tr("New name of the database:"), database->name(), this);
    if (const auto name = dialog.ask()) {
        presentIfFailed(m_library->renameDatabase(database, *name));
    }
}

void MainWindow::toggleOpen() {
    const auto database = currentDatabase();
    if (!database || database->isInbox() || !m_notes->leave()) {
        return;
    }
    presentIfFailed(database->isOpen() ? m_library->closeDatabase(database)
                                       : m_library->openDatabase(database));
}

void MainWindow::deleteDatabase() {
    const auto database = currentDatabase();
    // The question counts what was typed, too.
    if (!database || database->isInbox() || !m_notes->leave() ||
        !DeletionQuestion::ask(*database, this)) {
        return;
    }
    if (presentIfFailed(m_library->deleteDatabase(database))) {
        m_notes->forgetDeletions(database);
    }
}

void MainWindow::synchronize() {
    const auto database = currentDatabase();
    if (!database || !m_notes->leave()) {
        return;
    }
    m_monitor->update();
    const QString UUID = UUIDInStores(*database, m_library->inbox().get());
    QVSyncStates states;
    const QList<SynchronizationSummary::Item> items = m_monitor->summary().items();
    for (const SynchronizationSummary::Item &item : items) {
        if (item.state->databaseUUID() == UUID) {
            states.append(item.state);
        }
    }
    if (!states.isEmpty()) {
        QVSyncPlugin::plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(
            states);
        return;
    }
    Error error = applicationError(
        tr("“%1” is not synchronized with any location. Tick one in Sync Preferences.")
            .arg(database->name()));
    error.recoveryOptions = {{tr("Sync &Preferences…"), [window = QPointer(this)] {
                                  if (window) {
                                      window->showPreferences();
                                  }
                              }}};
    NSApp()->presentError(error);
}

void MainWindow::restoreDatabase() {
    const auto deleted = m_library->deletedDatabases();
    if (!deleted.isEmpty() && presentIfFailed(m_library->restoreDatabase(deleted.last()))) {
        m_databases->setCurrentRow(rowOf(deleted.last()));
        m_databases->setFocus();
    }
}

void MainWindow::showDeletions() {
    const auto deleted = m_library->deletedDatabases();
    m_restoreAction->setEnabled(!deleted.isEmpty());
    m_undoBar->setText(
        deleted.isEmpty()
            ? QString()
            : PlainText::message(tr("“%1” was deleted. For ten minutes it can be restored with its "
                                    "notes, ticks and schedules.")
                                     .arg(deleted.last()->name())));
}

void MainWindow::open() {
    const auto database = currentDatabase();
    if (database && !database->isOpen() && m_notes->leave()) {
        presentIfFailed(m_library->openDatabase(database));
    }
}

PreferencesWindow *MainWindow::showPreferences() {
    if (!m_preferences) {
        auto pane = PlugIns::makeSyncPreferences();
        if (!pane) {
            NSApp()->presentError(pane.error());
            return nullptr;
        }
        m_preferences = new PreferencesWindow(std::move(*pane));
        m_preferences->showRemovals(m_removals, &PlugIns::makeSyncPreferences);
        m_preferences->addAction(m_quitAction);
        if (m_remembersWindows) {
            m_preferences->remember();
        }
    }
    m_preferences->show();
    m_preferences->raise();
    m_preferences->activateWindow();
    return m_preferences;
}

void MainWindow::editLocation(const std::shared_ptr<QVSyncLocation> &location) {
    if (PreferencesWindow *preferences = showPreferences()) {
        preferences->editLocation(location);
    }
}

void MainWindow::addLocation(const FirstStart &start) {
    if (PreferencesWindow *preferences = showPreferences()) {
        preferences->addLocation(start.location, start.next);
    }
}

void MainWindow::presentFailure() {
    std::optional<Error> failure = m_monitor->summary().failure();
    if (!failure) {
        return;
    }
    const QList<SynchronizationSummary::Item> failed = m_monitor->summary().failedItems();
    failure->recoveryOptions = FailureSteps::of(
        failed,
        [window = QPointer(this)](const auto &location) {
            if (window) {
                window->editLocation(location);
            }
        },
        [failed] { FailureSteps::runAgain(failed); });
    NSApp()->presentError(*failure);
}

void MainWindow::showLog() {
    if (!m_logWindow) {
        m_logWindow = new LogWindow(m_log, this);
        m_logWindow->addAction(m_quitAction);
        if (m_remembersWindows) {
            WindowMemory::restore(*m_logWindow, LogName);
        }
    }
    m_logWindow->show();
    m_logWindow->raise();
    m_logWindow->activateWindow();
}

void MainWindow::showVersion() {
    auto *box = new MessageBox(
        QMessageBox::NoIcon,
        QStringLiteral("%1 %2").arg(ApplicationName, QCoreApplication::applicationVersion()),
        tr("Notes that are kept in sync between your computers.\n\nLicense: Apache License 2.0"),
        this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIconPixmap(windowIcon().pixmap(IconSide));
    box->addButton(tr("&Close"), QMessageBox::RejectRole);
    box->open();
}

void MainWindow::showDeletedNotes() {
    showHistory({});
}

void MainWindow::showEarlierVersions() {
    showHistory(m_notes->note());
}

void MainWindow::showHistory(const Note &note) {
    // Saving may change the note's revision, and the database may be closed meanwhile.
    if (!m_notes->leave() || !m_notes->database()) {
        return;
    }
    auto *dialog = new HistoryDialog(m_library, m_notes->database(),
                                     note.UUID.isEmpty() ? Note() : m_notes->note(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &HistoryDialog::restored, m_notes, &NotesView::select);
    dialog->open();
}

void MainWindow::exportDatabase() {
    const auto database = m_notes->database();
    if (!m_notes->leave() || !database) {
        return;
    }
    const Expected<QList<Note>> notes = database->notes();
    if (notes) {
        NoteExport::ask({database->name(), *notes}, this);
    } else {
        NSApp()->presentError(notes.error());
    }
}

void MainWindow::exportNote() {
    if (m_notes->leave() && !m_notes->note().UUID.isEmpty()) {
        NoteExport::ask({{}, {m_notes->note()}}, this);
    }
}

void MainWindow::updateNoteActions() {
    const bool hasNote = !m_notes->note().UUID.isEmpty();
    m_versionsAction->setEnabled(hasNote);
    m_exportNoteAction->setEnabled(hasNote);
    m_deletedAction->setEnabled(m_notes->database() != nullptr);
    m_exportAction->setEnabled(m_notes->database() != nullptr);
}

void MainWindow::bringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::quit() {
    Q_EMIT quitRequested();
    close();
}

bool MainWindow::leaveText() {
    return m_notes->leave();
}

void MainWindow::connectToApplication() {
    auto *application = qobject_cast<VelmoraApplication *>(QCoreApplication::instance());
    if (!application) {
        return;
    }
    const auto provide = [this, application] {
        application->setSynchronizationText(m_monitor->summary().text());
    };
    connect(m_monitor, &SynchronizationMonitor::changed, application, provide);
    provide();
    connect(application, &VelmoraApplication::logRequested, this, &MainWindow::showLog);
}

bool MainWindow::leavePreferences() {
    if (!m_preferences || !m_preferences->isVisible()) {
        return true;
    }
    Expected<void> saved = saveLocations();
    while (!saved) {
        MessageBox box(QMessageBox::Warning, tr("Your changes in Sync Preferences are not saved."),
                       saved.error().localizedDescription, this);
        QPushButton *tryAgain = box.addButton(tr("&Try Again"), QMessageBox::AcceptRole);
        QPushButton *discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
        box.addButton(tr("&Cancel"), QMessageBox::RejectRole);
        box.setDefaultButton(tryAgain);
        box.exec();
        if (box.clickedButton() == discard) {
            break;
        }
        if (box.clickedButton() != tryAgain) {
            return false;
        }
        saved = saveLocations();
    }
    if (m_preferences) {
        m_preferences->closeInAnyCase();
    }
    return true;
}

void MainWindow::rememberWindows() {
    m_remembersWindows = true;
    WindowMemory::restore(*this, MainName);
    const QString UUID = WindowMemory::text(MainDatabaseName);
    const auto databases = m_library->knownDatabases();
    for (const auto &database : databases) {
        if (database->UUID() == UUID) {
            m_databases->setCurrentRow(rowOf(database));
        }
    }
    m_notes->selectWhenRead(WindowMemory::text(MainNoteName));
}

void MainWindow::saveWindows() const {
    if (!m_remembersWindows) {
        return;
    }
    WindowMemory::save(*this, MainName);
    if (m_logWindow) {
        WindowMemory::save(*m_logWindow, LogName);
    }
    WindowMemory::saveText(MainDatabaseName, m_database ? m_database->UUID() : QString());
    WindowMemory::saveText(MainNoteName, m_notes->note().UUID);
}

void MainWindow::saveAll() {
    saveWindows();
    m_notes->commit();
    presentIfFailed(saveLocations());
    if (m_preferences) {
        m_preferences->closeInAnyCase();
    }
}

void MainWindow::restoreUnsavedTexts(const UnsavedTexts &unsavedTexts) {
    const UnsavedTexts::Restored restored = unsavedTexts.restore(*m_library);
    presentIfFailed(restored.result);
    for (const QString &title : restored.titles) {
        m_log->append(
            ApplicationName,
            tr("The text of “%1”, which could not be saved before, is saved.").arg(title));
    }
}

int MainWindow::rowOf(const std::shared_ptr<NoteDatabase> &database) const {
    return static_cast<int>(m_library->knownDatabases().indexOf(database));
}

void MainWindow::closeEvent(QCloseEvent *event) {
    if (!leaveText() || !leavePreferences()) {
        event->ignore();
        return;
    }
    saveAll();
    event->accept();
}
