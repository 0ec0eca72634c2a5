#include "Tour/Tour.h"

#include <QtCore/QDirIterator>
#include <QtNetwork/QTcpServer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextBrowser>

#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/SyncPlugIn.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVWeeklySchedule.h"
#include "Support/DropboxBrowser.h"
#include "Support/DropboxServer.h"
#include "Support/FreePort.h"
#include "Support/SecretService.h"
#include "Support/Verification.h"
#include "Tour/Person.h"
#include "Tour/Screen.h"

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
    verify();
    leave();
}

QStringList Tour::secrets() const {
    return m_surroundings.dropbox.secrets() << WebDAVServer::Password;
}

void Tour::lookAround() {
    Person::turnTo(PanelTitle);
    Person::await(QStringLiteral("the lists"), [] {
        return Screen::rows(DatabaseList).size() == 3 && Screen::rows(LocationList).size() == 1;
    });
    show(QStringLiteral("first-showing"),
         QStringLiteral("Velmora opens for the first time. Sync Preferences lists the databases of "
                        "the new profile and one location, a folder on this computer."));
    Person::clickRow(DatabaseList, DatabaseName);
    Person::await(QStringLiteral("the tick of the first location"),
                  [] { return isTicked(QStringLiteral("Home")); });
    show(QStringLiteral("database-chosen"),
         QStringLiteral("A click on the database “Projects”: the tick on the right says that it "
                        "synchronizes with “Home”."));
}

void Tour::addFolder() {
    Person::click(QStringLiteral("addLocationButton"));
    Person::await(QStringLiteral("the menu"), [] { return QApplication::activePopupWidget(); });
    show(QStringLiteral("add-menu"),
         QStringLiteral("“Add” offers each kind of location. The first is a folder that all "
                        "computers reach."));
    Person::choose(QStringLiteral("New Folder Store…"));
    Person::fill(QStringLiteral("fileNameEdit"), SharedName);
    show(QStringLiteral("folder-panel"),
         QStringLiteral("The save panel asks where the new sync store goes. The person types its "
                        "name."));
    Person::click(QStringLiteral("Save"));
    awaitLocation(SharedName, 2);
    const QDir package(sharedPackage());
    check(package.exists(QStringLiteral("databases")) &&
              package.exists(QStringLiteral("transactions")),
          QStringLiteral("The folder store was not made."));
    show(QStringLiteral("folder-added"),
         QStringLiteral("The sync store is made and listed, and “Projects” synchronizes with it."));
}

void Tour::addWebDAVServer() {
    openAddMenu(QStringLiteral("WebDAV Server…"));
    Person::fill(QStringLiteral("serverField"), QStringLiteral("localhost"));
    Person::fill(QStringLiteral("portField"), QString::number(m_webDAV.port()));
    Person::fill(QStringLiteral("userField"), WebDAVServer::User);
    Person::fill(QStringLiteral("passwordField"), WebDAVServer::Password);
    Person::fill(QStringLiteral("pathField"), QStringLiteral("dav"));
    Person::fill(QStringLiteral("storeField"), QStringLiteral("Notes"));
    Person::await(QStringLiteral("the typed password"), [] {
        const auto *field = Screen::as<QLineEdit>(QStringLiteral("passwordField"));
        return field && field->text() == WebDAVServer::Password;
    });
    show(QStringLiteral("webdav-sheet"),
         QStringLiteral("For a WebDAV server a sheet asks for the address and the account."));
    Person::click(QStringLiteral("acceptButton"));
    awaitLocation(QStringLiteral("localhost – Notes"), 3);
    Person::await(QStringLiteral("the password in the keyring"), [this] {
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
        Person::fill(QStringLiteral("hostField"), host);
        Person::fill(QStringLiteral("portField"), port);
    } else {
        Person::clickItem(QStringLiteral("servicesTable"), name);
    }
    Person::await(QStringLiteral("the address of the other computer"), [&] {
        const auto *hostField = Screen::as<QLineEdit>(QStringLiteral("hostField"));
        const auto *portField = Screen::as<QSpinBox>(QStringLiteral("portField"));
        return hostField && hostField->text() == host && portField && portField->text() == port;
    });
    show(QStringLiteral("direct-connection-sheet"),
         QStringLiteral("Another computer that runs Velmora is chosen from the list, or by its "
                        "address."));
    Person::click(QStringLiteral("acceptButton"));
    const QString code = m_otherComputer.awaitCode();
    Person::await(QStringLiteral("the code of the other computer"),
                  [&] { return !Screen::texts().filter(code).isEmpty(); });
    show(QStringLiteral("pairing"),
         QStringLiteral("Both computers show the same code, %1, so nobody is in between.")
             .arg(code));
    m_otherComputer.allow();
    Person::click(QStringLiteral("Connect"));
    awaitLocation(host, 4);
    Person::await(QStringLiteral("the end of the question"),
                  [] { return !QApplication::activeModalWidget(); });
    show(QStringLiteral("direct-connection-added"),
         QStringLiteral("Both have allowed it: the two computers are paired."));
}

void Tour::addDropboxAccount() {
    openAddMenu(QStringLiteral("Dropbox Account…"));
    Person::await(QStringLiteral("the browser's page"),
                  [this] { return !m_surroundings.browser.pages().isEmpty(); });
    onMainThread([this] {
        m_surroundings.browserWindow.setHtml(m_surroundings.browser.pages().last());
        m_surroundings.browserWindow.show();
    });
    awaitLocation(m_surroundings.dropbox.email(), 5);
    Person::await(QStringLiteral("the tokens in the keyring"), [this] {
        return m_surroundings.keyring.count(
                   {{QStringLiteral("service"), QStringLiteral("Velmora Dropbox")}}) == 1;
    });
    show(QStringLiteral("dropbox-added"),
         QStringLiteral("The browser has shown Dropbox's own page, where the person has signed in. "
                        "The account is listed; what opens it is in the keyring."));
    onMainThread([this] { m_surroundings.browserWindow.close(); });
}

void Tour::setSchedule() {
    Person::click(QStringLiteral("weeklyButton"));
    Person::click(QStringLiteral("Saturday"));
    Person::click(QStringLiteral("syncOnOpenBox"));
    Person::await(QStringLiteral("the schedule at each location"), [this] {
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
    Person::click(QStringLiteral("serverButton"));
    Person::fill(QStringLiteral("portField"), QString::number(port));
    Person::press(Qt::Key_Tab);
    Person::click(QStringLiteral("enabledCheckBox"));
    Person::await(QStringLiteral("this computer's server"), [=] {
        const QVDirectConnectionServer *server = QVSyncPlugin::plugin()->server();
        return server->isServing() && server->port() == port;
    });
    show(QStringLiteral("server"),
         QStringLiteral("“Direct Connections…” lets other computers connect with this one."));
    Person::click(QStringLiteral("closeButton"));
    Person::await(QStringLiteral("the end of the sheet"),
                  [] { return !QApplication::activeModalWidget(); });
}

void Tour::grantFolder() {
    const QString name = QStringLiteral("Photos");
    const QString path = QDir::current().filePath(name);
    Person::click(QStringLiteral("bookmarksButton"));
    Person::click(QStringLiteral("addButton"));
    Person::clickItem(QStringLiteral("treeView"), name);
    Person::click(QStringLiteral("Open"));
    Person::await(QStringLiteral("the grant"),
                  [&] { return QVSyncPlugin::plugin()->bookmarkDictionaryKeys().contains(path); });
    show(QStringLiteral("folder-access"),
         QStringLiteral("This profile is sandboxed: “Folder Access…” lists the folders that it may "
                        "reach. “Photos” was added; the sync store came there by itself."));
    Person::click(QStringLiteral("closeButton"));
    Person::await(QStringLiteral("the end of the sheet"),
                  [] { return !QApplication::activeModalWidget(); });
}

void Tour::writeNote() {
    Person::turnTo(MainTitle);
    Person::clickItem(QStringLiteral("Databases"), DatabaseName);
    Person::click(QStringLiteral("New Note"));
    Person::fill(QStringLiteral("Title"), NoteTitle);
    Person::fill(QStringLiteral("Text"), NoteText);
    Person::await(QStringLiteral("the note"), [this] {
        return hasNote(m_surroundings.library, DatabaseName, NoteTitle, NoteText);
    });
    show(QStringLiteral("note"), QStringLiteral("In the main window the person writes a note."));
}

void Tour::synchronize() {
    Person::turnTo(PanelTitle);
    synchronizeChosenDatabase();
    check(hasTransactions(sharedPackage()), QStringLiteral("Nothing is in the folder store."));
    check(hasTransactions(m_webDAV.folder()), QStringLiteral("Nothing is on the WebDAV server."));
    check(!m_surroundings.dropbox.files().isEmpty(), QStringLiteral("Nothing is in Dropbox."));
    show(QStringLiteral("synchronized"),
         QStringLiteral("“Sync Now” in the row of “Projects” brings its notes to all five "
                        "locations."));
}

void Tour::readLog() {
    Person::turnTo(MainTitle);
    Person::choose(QStringLiteral("Tools"));
    Person::choose(LogTitle);
    Person::turnTo(LogTitle);
    show(QStringLiteral("log"), QStringLiteral("The log tells what was done with which location."));
    onMainThread([] { Screen::window(LogTitle)->close(); });
}

void Tour::takeEdit() {
    const Note note = onMainThread([this] {
        return knownDatabase(m_surroundings.library, DatabaseName)->notes().value().first();
    });
    m_otherComputer.editNote(sharedPackage(), DatabaseName, note.title);
    Person::turnTo(PanelTitle);
    synchronizeChosenDatabase();
    Person::await(QStringLiteral("the other computer's edit"), [&] {
        return hasNote(m_surroundings.library, DatabaseName, note.title,
                       note.text + OtherComputer::Edit);
    });
    Person::turnTo(MainTitle);
    Person::clickItem(QStringLiteral("Notes"), note.title);
    show(QStringLiteral("edit-arrived"),
         QStringLiteral("On the other computer a line was added to “%1”. After the next "
                        "synchronization it is here, too.")
             .arg(note.title));
}

void Tour::importDatabase() {
    m_otherComputer.putDatabase(sharedPackage());
    Person::turnTo(PanelTitle);
    Person::click(QStringLiteral("importButton"));
    Person::clickItem(QStringLiteral("locationsTable"), SharedName);
    show(QStringLiteral("import-locations"),
         QStringLiteral("The other computer has put a database of its own into the folder. "
                        "“Import…” asks from where to import."));
    Person::click(QStringLiteral("continueButton"));
    Person::await(QStringLiteral("the only database that is not here"), [] {
        const auto *table = Screen::as<QAbstractItemView>(QStringLiteral("databasesTable"));
        const QWidget *page = Screen::widget(QStringLiteral("databasesView"));
        return table && table->model()->rowCount() == 1 && page->x() == 0;
    });
    Person::clickItem(QStringLiteral("databasesTable"), OtherComputer::Database);
    show(QStringLiteral("import-databases"),
         QStringLiteral("Listed is what this computer does not have: “Travel”, and neither the "
                        "inbox nor “Projects”."));
    Person::click(QStringLiteral("actionButton"));
    Person::await(QStringLiteral("the imported notes"), [this] {
        return !QApplication::activeModalWidget() &&
               hasNote(m_surroundings.library, OtherComputer::Database, OtherComputer::NoteTitle,
                       OtherComputer::NoteText) &&
               Screen::rows(DatabaseList).contains(OtherComputer::Database);
    });
    Person::clickRow(DatabaseList, OtherComputer::Database);
    Person::await(QStringLiteral("the tick of its location"), [] { return isTicked(SharedName); });
    show(QStringLiteral("imported"),
         QStringLiteral("“Travel” is here, and synchronizes with the location it came from."));
    Person::turnTo(MainTitle);
    Person::clickItem(QStringLiteral("Databases"), OtherComputer::Database);
    show(QStringLiteral("imported-notes"), QStringLiteral("The same notes can be read."));
}

/// What came from one location is sent to the others before.
void Tour::verify() {
    Person::turnTo(PanelTitle);
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
    Person::click(QStringLiteral("addLocationButton"));
    Person::choose(item);
}

void Tour::show(const QString &name, const QString &sentence) {
    for (const QString &secret : secrets()) {
        check(!sentence.contains(secret) &&
                  onMainThread([&] { return Screen::texts().filter(secret).isEmpty(); }),
              QStringLiteral("A secret can be read."));
    }
    onMainThread([&] { m_page.add(name, sentence, Screen::picture()); });
}

void Tour::awaitLocation(const QString &title, int count) {
    Person::await(QStringLiteral("the location “%1”, ticked").arg(title), [&] {
        return Screen::rows(LocationList).size() == count && isTicked(title) &&
               states().size() == count && states().last()->isEnabled();
    });
}

void Tour::synchronizeChosenDatabase() {
    const QDateTime before = QDateTime::currentDateTime();
    Person::clickRow(DatabaseList, DatabaseName, QStringLiteral("rowSyncButton"));
    Person::await(QStringLiteral("the end of the synchronization"), [&] {
        bool areSynchronized = true;
        for (const auto &state : states()) {
            areSynchronized = areSynchronized && state->lastSynced() >= before;
        }
        return areSynchronized;
    });
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
