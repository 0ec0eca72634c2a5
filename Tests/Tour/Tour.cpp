#include "Tour/Tour.h"

#include <QtCore/QDirIterator>
#include <QtNetwork/QTcpServer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextBrowser>
#include <algorithm>

#include "Application/FirstStartDialog.h"
#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/SyncPlugIn.h"
#include "Application/PlugIns.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVWeeklySchedule.h"
#include "Support/DropboxBrowser.h"
#include "Support/DropboxServer.h"
#include "Support/FreePort.h"
#include "Support/PrivateVolume.h"
#include "Support/SecretService.h"
#include "Support/Verification.h"
#include "Tour/Screen.h"
#include "Tour/User.h"

namespace {

const QString DatabaseList = QStringLiteral("databasesView");
const QString LocationList = QStringLiteral("locationsView");
const QString MainTitle = QStringLiteral("Velmora");
const QString PanelTitle = QStringLiteral("Sync Preferences");
const QString LogTitle = QStringLiteral("Log");
const QString DatabaseName = QStringLiteral("Projects");
const QString SharedName = QStringLiteral("Shared");
const QString NoteTitle = QStringLiteral("Garden Shed");
const QString NoteText = QStringLiteral("Paint the door before the autumn.");

void check(bool holds, const QString &sentence) {
    if (!holds) {
        throw TourFailure(sentence);
    }
}

bool isTicked(const QString &location) {
    QWidget *row = Screen::row(LocationList, location);
    const auto *box = row ? row->findChild<QCheckBox *>(QStringLiteral("rowCheckBox")) : nullptr;
    return box && box->isChecked();
}

bool hasWarning(const QString &location) {
    const QWidget *row = Screen::row(LocationList, location);
    const auto *button =
        row ? row->findChild<QWidget *>(QStringLiteral("rowWarningButton")) : nullptr;
    return button && button->isVisible();
}

std::shared_ptr<NoteDatabase> knownDatabase(const NoteLibrary &library, const QString &name) {
    for (const auto &database : library.knownDatabases()) {
        if (database->name() == name) {
            return database;
        }
    }
    return nullptr;
}

bool hasNote(const NoteLibrary &library, const QString &database, const QString &title,
             const QString &text) {
    const auto found = knownDatabase(library, database);
    const QList<Note> notes = found && found->isOpen() ? found->notes().value() : QList<Note>();
    for (const Note &note : notes) {
        if (note.title == title && note.text == text) {
            return true;
        }
    }
    return false;
}

/// Whether a sync store's transactions are below `folder`.
bool hasTransactions(const QString &folder) {
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        if (files.next().contains(QStringLiteral("/transactions/"))) {
            return true;
        }
    }
    return false;
}

}  // namespace

Tour::Tour(const Surroundings &surroundings, TourPage &page)
    : m_surroundings(surroundings), m_page(page) {}

void Tour::run() {
    startForTheFirstTime();
    lookAround();
    addFolder();
    addWebDAVServer();
    addOtherComputer();
    addDropboxAccount();
    setSchedule();
    letOthersConnect();
    grantFolder();
    writeNote();
    synchronize();
    readLog();
    takeEdit();
    importDatabase();
    enterWrongPassword();
    loseServer();
    if (m_surroundings.hasPrivateMounts) {
        failToWrite();
    }
    undoRemoval();
    undoDeletion();
    deleteDatabase();
    editInTwoPlaces();
    verify();
    leave();
}

QStringList Tour::secrets() const {
    return m_surroundings.dropbox.secrets() << WebDAVServer::Password;
}

void Tour::startForTheFirstTime() {
    std::unique_ptr<FirstStartDialog> dialog;
    onMainThread([&] {
        dialog = std::make_unique<FirstStartDialog>(PlugIns::locationOffers().value());
        dialog->move(360, 200);
        dialog->show();
        Screen::turnTo(dialog.get());
    });
    show(QStringLiteral("first-start"),
         QStringLiteral("The first start asks where notes are kept in sync and how to begin. Here "
                        "it begins with the examples."));
    onMainThread([&] { dialog.reset(); });
}

void Tour::lookAround() {
    User::turnTo(PanelTitle);
    User::await(QStringLiteral("the lists"), [] {
        return Screen::rows(DatabaseList).size() == 3 && Screen::rows(LocationList).size() == 1;
    });
    show(QStringLiteral("first-showing"),
         QStringLiteral("Velmora opens. Sync Preferences lists the databases of "
                        "the new profile and one location, a folder on this computer."));
    User::clickRow(DatabaseList, DatabaseName);
    User::await(QStringLiteral("the tick of the first location"),
                [] { return isTicked(QStringLiteral("Home")); });
    show(QStringLiteral("database-chosen"),
         QStringLiteral("A click on the database “Projects”: the tick on the right says that it "
                        "synchronizes with “Home”."));
}

void Tour::addFolder() {
    User::click(QStringLiteral("addLocationButton"));
    User::await(QStringLiteral("the menu"), [] { return QApplication::activePopupWidget(); });
    show(QStringLiteral("add-menu"),
         QStringLiteral("“Add” offers each kind of location. The first is a folder that all "
                        "computers reach."));
    User::choose(QStringLiteral("New Folder Store…"));
    User::fill(QStringLiteral("fileNameEdit"), SharedName);
    show(QStringLiteral("folder-panel"),
         QStringLiteral("The save panel asks where the new sync store goes. The user types its "
                        "name."));
    User::click(QStringLiteral("Save"));
    awaitLocation(SharedName, 2);
    const QDir package(sharedPackage());
    check(package.exists(QStringLiteral("databases")) &&
              package.exists(QStringLiteral("transactions")),
          QStringLiteral("The folder store was not made."));
    show(QStringLiteral("folder-added"),
         QStringLiteral("The sync store is made and listed, and “Projects” synchronizes with it."));
    showEditor(QStringLiteral("folder-sheet"),
               QStringLiteral("“Edit…” shows where the folder is, and can choose another one."));
}

void Tour::addWebDAVServer() {
    openAddMenu(QStringLiteral("WebDAV Server…"));
    User::fill(QStringLiteral("serverField"), QStringLiteral("localhost"));
    User::fill(QStringLiteral("portField"), QString::number(m_webDAV.port()));
    User::fill(QStringLiteral("userField"), WebDAVServer::User);
    User::fill(QStringLiteral("passwordField"), WebDAVServer::Password);
    User::fill(QStringLiteral("pathField"), QStringLiteral("dav"));
    User::fill(QStringLiteral("storeField"), QStringLiteral("Notes"));
    User::await(QStringLiteral("the typed password"), [] {
        const auto *field = Screen::as<QLineEdit>(QStringLiteral("passwordField"));
        return field && field->text() == WebDAVServer::Password;
    });
    show(QStringLiteral("webdav-sheet"),
         QStringLiteral("For a WebDAV server a sheet asks for the address and the account."));
    User::click(QStringLiteral("acceptButton"));
    awaitLocation(QStringLiteral("localhost – Notes"), 3);
    User::await(QStringLiteral("the password in the keyring"), [this] {
        // For both ways of asking for it.
        return m_surroundings.keyring.count({{QStringLiteral("user"), WebDAVServer::User}}) == 2;
    });
    show(QStringLiteral("webdav-added"),
         QStringLiteral("The server is listed; its password is in the keyring and nowhere else."));
}

void Tour::addOtherComputer() {
    openAddMenu(QStringLiteral("Direct Connection…"));
    const QString name = m_surroundings.nameInNetwork;
    const QString host =
        name.isEmpty() ? QStringLiteral("127.0.0.1") : name + QStringLiteral(".local");
    const QString port = QString::number(m_otherComputer.port());
    if (name.isEmpty()) {
        User::fill(QStringLiteral("hostField"), host);
        User::fill(QStringLiteral("portField"), port);
    } else {
        User::clickItem(QStringLiteral("servicesTable"), name);
    }
    User::await(QStringLiteral("the address of the other computer"), [&] {
        const auto *hostField = Screen::as<QLineEdit>(QStringLiteral("hostField"));
        const auto *portField = Screen::as<QSpinBox>(QStringLiteral("portField"));
        return hostField && hostField->text() == host && portField && portField->text() == port;
    });
    show(QStringLiteral("direct-connection-sheet"),
         QStringLiteral("Another computer that runs Velmora is chosen from the list, or by its "
                        "address."));
    User::click(QStringLiteral("acceptButton"));
    const QString code = m_otherComputer.awaitCode();
    User::await(QStringLiteral("the code of the other computer"),
                [&] { return !Screen::texts().filter(code).isEmpty(); });
    show(
        QStringLiteral("pairing"),
        QStringLiteral("Both computers show the same code, %1, so no third computer is in between.")
            .arg(code));
    m_otherComputer.allow();
    User::click(QStringLiteral("Connect"));
    awaitLocation(host, 4);
    User::await(QStringLiteral("the end of the question"),
                [] { return !QApplication::activeModalWidget(); });
    show(QStringLiteral("direct-connection-added"),
         QStringLiteral("Both have allowed it: the two computers are paired."));
}

void Tour::addDropboxAccount() {
    openAddMenu(QStringLiteral("Dropbox Account…"));
    User::await(QStringLiteral("the browser's page"),
                [this] { return !m_surroundings.browser.pages().isEmpty(); });
    onMainThread([this] {
        m_surroundings.browserWindow.setHtml(m_surroundings.browser.pages().last());
        m_surroundings.browserWindow.show();
    });
    awaitLocation(m_surroundings.dropbox.email(), 5);
    User::await(QStringLiteral("the tokens in the keyring"), [this] {
        return m_surroundings.keyring.count(
                   {{QStringLiteral("service"), QStringLiteral("Velmora Dropbox")}}) == 1;
    });
    show(QStringLiteral("dropbox-added"),
         QStringLiteral("The browser has shown Dropbox's own page, where the user has signed in. "
                        "The account is listed; what opens it is in the keyring."));
    onMainThread([this] { m_surroundings.browserWindow.close(); });
}

void Tour::setSchedule() {
    User::click(QStringLiteral("weeklyButton"));
    User::click(QStringLiteral("Saturday"));
    User::click(QStringLiteral("syncOnOpenBox"));
    User::await(QStringLiteral("the schedule at each location"), [this] {
        bool isSet = states().size() == 5;
        for (const auto &state : states()) {
            const auto weekly =
                std::dynamic_pointer_cast<const QVWeeklySchedule>(state->schedule());
            isSet = isSet && state->syncOnOpen() && weekly &&
                    (weekly->daysOfWeek() & (1U << Qt::Saturday)) != 0;
        }
        return isSet;
    });
    show(QStringLiteral("schedule"),
         QStringLiteral(
             "“Projects” is to synchronize on working days and Saturdays at nine, and whenever it "
             "is opened. The panel says when that will be next."));
}

void Tour::letOthersConnect() {
    const quint16 port = freePort();
    User::click(QStringLiteral("serverButton"));
    User::fill(QStringLiteral("portField"), QString::number(port));
    User::press(Qt::Key_Tab);
    User::click(QStringLiteral("enabledCheckBox"));
    User::await(QStringLiteral("this computer's server"), [=] {
        const QVDirectConnectionServer *server = QVSyncPlugin::plugin()->server();
        return server->isServing() && server->port() == port;
    });
    show(QStringLiteral("server"),
         QStringLiteral("“Direct Connections…” lets other computers connect with this one."));
    User::click(QStringLiteral("closeButton"));
    User::await(QStringLiteral("the end of the sheet"),
                [] { return !QApplication::activeModalWidget(); });
}

void Tour::grantFolder() {
    const QString name = QStringLiteral("Photos");
    const QString path = QDir::current().filePath(name);
    User::click(QStringLiteral("bookmarksButton"));
    User::click(QStringLiteral("addButton"));
    User::clickItem(QStringLiteral("treeView"), name);
    User::click(QStringLiteral("Open"));
    User::await(QStringLiteral("the grant"),
                [&] { return QVSyncPlugin::plugin()->bookmarkDictionaryKeys().contains(path); });
    show(QStringLiteral("folder-access"),
         QStringLiteral("This profile is sandboxed: “Folder Access…” lists the folders that it may "
                        "reach. “Photos” was added; the sync store came there by itself."));
    User::click(QStringLiteral("closeButton"));
    User::await(QStringLiteral("the end of the sheet"),
                [] { return !QApplication::activeModalWidget(); });
}

void Tour::writeNote() {
    User::turnTo(MainTitle);
    User::clickItem(QStringLiteral("Databases"), DatabaseName);
    User::click(QStringLiteral("New Note"));
    User::fill(QStringLiteral("Title"), NoteTitle);
    User::fill(QStringLiteral("Text"), NoteText);
    User::await(QStringLiteral("the note"), [this] {
        return hasNote(m_surroundings.library, DatabaseName, NoteTitle, NoteText);
    });
    show(QStringLiteral("note"), QStringLiteral("In the main window the user writes a note."));
}

void Tour::synchronize() {
    User::turnTo(PanelTitle);
    synchronizeChosenDatabase();
    check(hasTransactions(sharedPackage()), QStringLiteral("Nothing is in the folder store."));
    check(hasTransactions(m_webDAV.folder()), QStringLiteral("Nothing is on the WebDAV server."));
    check(!m_surroundings.dropbox.files().isEmpty(), QStringLiteral("Nothing is in Dropbox."));
    show(QStringLiteral("synchronized"),
         QStringLiteral("“Sync Now” in the row of “Projects” brings its notes to all five "
                        "locations."));
}

void Tour::readLog() {
    User::turnTo(MainTitle);
    User::choose(QStringLiteral("Tools"));
    User::choose(LogTitle);
    User::turnTo(LogTitle);
    show(QStringLiteral("log"), QStringLiteral("The log tells what was done with which location."));
    onMainThread([] { Screen::window(LogTitle)->close(); });
}

void Tour::takeEdit() {
    const Note note = onMainThread([this] {
        return knownDatabase(m_surroundings.library, DatabaseName)->notes().value().first();
    });
    m_otherComputer.editNote(sharedPackage(), DatabaseName, note.title);
    User::turnTo(PanelTitle);
    synchronizeChosenDatabase();
    User::await(QStringLiteral("the other computer's edit"), [&] {
        return hasNote(m_surroundings.library, DatabaseName, note.title,
                       note.text + OtherComputer::Edit);
    });
    User::turnTo(MainTitle);
    User::clickItem(QStringLiteral("Notes"), note.title);
    show(QStringLiteral("edit-arrived"),
         QStringLiteral("On the other computer a line was added to “%1”. After the next "
                        "synchronization it is here, too.")
             .arg(note.title));
}

void Tour::importDatabase() {
    m_otherComputer.putDatabase(sharedPackage());
    User::turnTo(PanelTitle);
    User::click(QStringLiteral("importButton"));
    User::clickItem(QStringLiteral("locationsTable"), SharedName);
    show(QStringLiteral("import-locations"),
         QStringLiteral("The other computer has put a database of its own into the folder. "
                        "“Import…” asks from where to import."));
    User::click(QStringLiteral("continueButton"));
    User::await(QStringLiteral("the only database that is not here"), [] {
        const auto *table = Screen::as<QAbstractItemView>(QStringLiteral("databasesTable"));
        const QWidget *page = Screen::widget(QStringLiteral("databasesView"));
        return table && table->model()->rowCount() == 1 && page->x() == 0;
    });
    User::clickItem(QStringLiteral("databasesTable"), OtherComputer::Database);
    show(QStringLiteral("import-databases"),
         QStringLiteral("Listed is what this computer does not have: “Travel”, and neither the "
                        "inbox nor “Projects”."));
    User::click(QStringLiteral("actionButton"));
    User::await(QStringLiteral("the imported notes"), [this] {
        return !QApplication::activeModalWidget() &&
               hasNote(m_surroundings.library, OtherComputer::Database, OtherComputer::NoteTitle,
                       OtherComputer::NoteText) &&
               Screen::rows(DatabaseList).contains(OtherComputer::Database);
    });
    User::clickRow(DatabaseList, OtherComputer::Database);
    User::await(QStringLiteral("the tick of its location"), [] { return isTicked(SharedName); });
    show(QStringLiteral("imported"),
         QStringLiteral("“Travel” is here, and synchronizes with the location it came from."));
    User::turnTo(MainTitle);
    User::clickItem(QStringLiteral("Databases"), OtherComputer::Database);
    show(QStringLiteral("imported-notes"), QStringLiteral("The same notes can be read."));
}

void Tour::enterWrongPassword() {
    const QString server = QStringLiteral("localhost – Notes");
    const auto enterPassword = [](const QString &password) {
        User::fill(QStringLiteral("passwordField"), password);
        User::click(QStringLiteral("acceptButton"));
        User::await(QStringLiteral("the end of the sheet"),
                    [] { return !QApplication::activeModalWidget(); });
    };
    User::turnTo(PanelTitle);
    User::clickRow(DatabaseList, DatabaseName);
    User::clickRow(LocationList, server);
    User::click(QStringLiteral("editLocationButton"));
    enterPassword(QStringLiteral("swordfish"));
    failToSynchronize(server);
    show(QStringLiteral("synchronization-failed"),
         QStringLiteral("A wrong password was entered. After “Sync Now” the rows of the database "
                        "and the location say what failed."));
    showError(server, QStringLiteral("does not accept this user name and password"),
              QStringLiteral("wrong-password"),
              QStringLiteral("A click on the warning says what happened, and offers what to do "
                             "next. “Edit Location…” leads to the password."));
    User::click(QStringLiteral("Edit Location…"));
    enterPassword(WebDAVServer::Password);
    synchronizeChosenDatabase();
    User::await(QStringLiteral("the end of the warning"), [&] { return !hasWarning(server); });
}

void Tour::loseServer() {
    const QString server = QStringLiteral("localhost – Notes");
    m_webDAV.stop();
    failToSynchronize(server);
    showError(server, QStringLiteral("refused the connection"), QStringLiteral("server-gone"),
              QStringLiteral("The server was shut down. When it runs again, “Try Again” is "
                             "enough."));
    m_webDAV.start();
    User::click(QStringLiteral("Try Again"));
    User::await(QStringLiteral("the end of the warning"), [&] { return !hasWarning(server); });
    show(QStringLiteral("server-back"),
         QStringLiteral("The server runs again, and the warning has gone."));
}

void Tour::failToWrite() {
    const QString disk = QStringLiteral("USB Stick");
    const QString title = QStringLiteral("Copy");
    constexpr qint64 size = 512 * 1024;
    PrivateVolume volume(QDir::current().filePath(disk), size);
    openAddMenu(QStringLiteral("New Folder Store…"));
    User::fill(QStringLiteral("fileNameEdit"), disk + u'/' + title);
    User::click(QStringLiteral("Save"));
    awaitLocation(title, 6);
    synchronizeChosenDatabase();

    QFile filler(QDir::current().filePath(disk + QStringLiteral("/Films")));
    check(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered),
          QStringLiteral("The disk cannot be filled."));
    while (filler.write(QByteArray(1024, 'x')) == 1024) {
    }
    editNote(QStringLiteral(" Buy a larger stick."));
    User::turnTo(PanelTitle);
    failToSynchronize(title);
    showError(title, QStringLiteral("is full"), QStringLiteral("full-disk"),
              QStringLiteral("The disk of a location is full. “Show Folder” leads there."));
    User::click(QStringLiteral("Close"));
    filler.remove();
    volume.makeReadOnly();
    failToSynchronize(title);
    showError(title, QStringLiteral("read-only"), QStringLiteral("read-only-folder"),
              QStringLiteral("There is space again, but now the disk is write-protected."));
    User::click(QStringLiteral("Close"));
    User::clickRow(LocationList, title);
    User::click(QStringLiteral("removeLocationButton"));
    User::await(QStringLiteral("the removal"), [&] { return !Screen::row(LocationList, title); });
}

void Tour::undoRemoval() {
    User::clickRow(LocationList, SharedName);
    User::click(QStringLiteral("removeLocationButton"));
    User::await(QStringLiteral("the offer to undo"), [] {
        return !Screen::texts().filter(SharedName + QStringLiteral("” was removed")).isEmpty();
    });
    show(QStringLiteral("removed"),
         QStringLiteral("A location was removed by mistake. Its notes stay there, and “Undo” "
                        "brings the location back, with its ticks and schedules."));
    User::click(QStringLiteral("Undo"));
    User::await(QStringLiteral("the row"), [] { return Screen::row(LocationList, SharedName); });
    User::clickRow(DatabaseList, DatabaseName);
    User::await(QStringLiteral("the tick"), [] { return isTicked(SharedName); });
    show(QStringLiteral("removal-undone"), QStringLiteral("It is listed and ticked again."));
}

void Tour::undoDeletion() {
    User::turnTo(MainTitle);
    User::clickItem(QStringLiteral("Databases"), DatabaseName);
    User::clickItem(QStringLiteral("Notes"), NoteTitle);
    User::click(QStringLiteral("Delete Note"));
    User::await(QStringLiteral("the deletion"), [this] { return !tourNote(); });
    User::choose(QStringLiteral("Edit"));
    show(QStringLiteral("deleted"),
         QStringLiteral("A note was deleted by mistake. The menu “Edit” undoes that."));
    User::choose(QStringLiteral("Undo Delete Note"));
    User::await(QStringLiteral("the note"), [this] { return tourNote().has_value(); });
    show(QStringLiteral("deletion-undone"), QStringLiteral("The note is there again."));
}

void Tour::deleteDatabase() {
    User::clickItem(QStringLiteral("Databases"), OtherComputer::Database);
    User::choose(QStringLiteral("Database"));
    User::choose(QStringLiteral("Delete…"));
    show(QStringLiteral("database-deletion"),
         QStringLiteral("“Travel” is deleted from this computer. The question says how many notes "
                        "it has, and which locations keep it."));
    User::click(QStringLiteral("Delete"));
    User::await(QStringLiteral("the deletion"),
                [this] { return !knownDatabase(m_surroundings.library, OtherComputer::Database); });
    show(QStringLiteral("database-deleted"),
         QStringLiteral("For ten minutes, “Undo” brings it back with its notes and ticks."));
    User::click(QStringLiteral("Undo"));
    User::await(QStringLiteral("the restored notes"), [this] {
        return hasNote(m_surroundings.library, OtherComputer::Database, OtherComputer::NoteTitle,
                       OtherComputer::NoteText);
    });
    show(QStringLiteral("database-restored"), QStringLiteral("It is there again."));
    User::clickItem(QStringLiteral("Databases"), DatabaseName);
}

void Tour::editInTwoPlaces() {
    m_otherComputer.editNote(sharedPackage(), DatabaseName, NoteTitle);
    editNote(QStringLiteral(" Added on this computer."));
    User::turnTo(PanelTitle);
    synchronizeChosenDatabase();
    User::turnTo(MainTitle);
    User::clickItem(QStringLiteral("Notes"), NoteTitle);
    User::await(QStringLiteral("the bar of the conflict"),
                [] { return Screen::widget(QStringLiteral("Compare…")) != nullptr; });
    show(QStringLiteral("conflict"),
         QStringLiteral("The note was edited here and on the other computer at the same time. "
                        "Both edits are kept, and a bar says so."));
    User::click(QStringLiteral("Compare…"));
    show(QStringLiteral("comparison"),
         QStringLiteral("“Compare…” marks the differences, and lets the user choose."));
    User::click(QStringLiteral("Keep Both"));
    User::await(QStringLiteral("the end of the conflict"), [this] {
        return knownDatabase(m_surroundings.library, DatabaseName)->countOfConflicts() == 0;
    });
    show(QStringLiteral("both-kept"), QStringLiteral("Both are notes of their own now."));
}

/// What came from one location is sent to the others before.
void Tour::verify() {
    User::turnTo(PanelTitle);
    synchronizeChosenDatabase();
    const QStringList problems = onMainThread([this] {
        return Verification::problems(m_surroundings.sync.verify(VerificationMode::Report));
    });
    check(problems.isEmpty(), problems.join(u'\n'));
}

void Tour::leave() {
    const QStringList violations = m_surroundings.dropbox.violations();
    check(violations.isEmpty(), violations.join(u'\n'));
    QDirIterator files(m_surroundings.folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        check(file.open(QIODevice::ReadOnly), file.fileName() + QStringLiteral(" is not readable"));
        const QByteArray contents = file.readAll();
        for (const QString &secret : secrets()) {
            check(!contents.contains(secret.toUtf8()),
                  QStringLiteral("A secret is in the file %1.").arg(file.fileName()));
        }
    }
}

void Tour::openAddMenu(const QString &item) {
    User::click(QStringLiteral("addLocationButton"));
    User::choose(item);
}

void Tour::show(const QString &name, const QString &sentence) {
    for (const QString &secret : secrets()) {
        check(!sentence.contains(secret) &&
                  onMainThread([&] { return Screen::texts().filter(secret).isEmpty(); }),
              QStringLiteral("A secret can be read."));
    }
    onMainThread([&] {
        m_page.add(name, sentence, Screen::picture());
        // A window that was raised later may lie behind a modal one.
        QWidget *modal = QApplication::activeModalWidget();
        QWidget *popup = QApplication::activePopupWidget();
        QWidget *front = popup ? popup : modal ? modal : Screen::windows().constLast();
        QList<QWidget *> shown{front};
        // A menu is shown with its window.
        if (front->windowType() == Qt::Popup) {
            shown.prepend(front->parentWidget()->window());
        }
        m_page.addToGuide(name, Screen::picture(shown));
    });
}

void Tour::awaitLocation(const QString &title, int count) {
    User::await(QStringLiteral("the location “%1”, ticked").arg(title), [&] {
        return Screen::rows(LocationList).size() == count && isTicked(title) &&
               states().size() == count && states().last()->isEnabled();
    });
}

void Tour::synchronizeChosenDatabase() {
    const QDateTime before = QDateTime::currentDateTime();
    User::clickRow(DatabaseList, DatabaseName, QStringLiteral("rowSyncButton"));
    User::await(QStringLiteral("the end of the synchronization"), [&] {
        bool areSynchronized = true;
        for (const auto &state : states()) {
            areSynchronized = areSynchronized && state->lastSynced() >= before;
        }
        return areSynchronized;
    });
}

void Tour::failToSynchronize(const QString &location) {
    User::clickRow(DatabaseList, DatabaseName, QStringLiteral("rowSyncButton"));
    User::await(QStringLiteral("the warning of “%1”").arg(location), [&] {
        return hasWarning(location) && QVSyncPlugin::plugin()->dispatcher()->activity().isEmpty();
    });
}

void Tour::showEditor(const QString &name, const QString &sentence) {
    User::turnTo(PanelTitle);
    User::click(QStringLiteral("editLocationButton"));
    User::await(QStringLiteral("the sheet"), [] { return QApplication::activeModalWidget(); });
    show(name, sentence);
    User::click(QStringLiteral("acceptButton"));
    User::await(QStringLiteral("the end of the sheet"),
                [] { return !QApplication::activeModalWidget(); });
}

void Tour::showError(const QString &location, const QString &text, const QString &name,
                     const QString &sentence) {
    // Otherwise the error may belong to the window under the panel, which hides it in the picture.
    User::turnTo(PanelTitle);
    User::clickRow(LocationList, location, QStringLiteral("rowWarningButton"));
    User::await(QStringLiteral("an error that says “%1”").arg(text), [&] {
        return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) &&
               !Screen::texts().filter(text).isEmpty();
    });
    show(name, sentence);
}

std::optional<Note> Tour::tourNote() const {
    const QList<Note> notes =
        knownDatabase(m_surroundings.library, DatabaseName)->notes().value_or(QList<Note>());
    const auto found = std::find_if(notes.begin(), notes.end(),
                                    [](const Note &each) { return each.title == NoteTitle; });
    return found == notes.end() ? std::nullopt : std::optional(*found);
}

void Tour::editNote(const QString &line) {
    const std::optional<Note> before = onMainThread([this] { return tourNote(); });
    check(before.has_value(), QStringLiteral("The note is missing."));
    User::turnTo(MainTitle);
    User::clickItem(QStringLiteral("Databases"), DatabaseName);
    User::clickItem(QStringLiteral("Notes"), NoteTitle);
    const QString text = before->text + line;
    User::fill(QStringLiteral("Text"), text);
    User::await(QStringLiteral("the edit"),
                [&] { return hasNote(m_surroundings.library, DatabaseName, NoteTitle, text); });
}

QVSyncStates Tour::states() const {
    QVSyncStates states;
    const auto database = knownDatabase(m_surroundings.library, DatabaseName);
    const auto locations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    for (const auto &location : locations) {
        if (const auto state = location->stateForDatabaseWithUUID(database->UUID())) {
            states.append(state);
        }
    }
    return states;
}

QString Tour::sharedPackage() const {
    return QDir::current().filePath(SharedName + QStringLiteral(".qvSyncStore"));
}
