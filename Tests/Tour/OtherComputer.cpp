#include "Tour/OtherComputer.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <QtNetwork/QTcpServer>
#include <csignal>
#include <iostream>

#include "Host/QVDirectConnectionServer.h"
#include "Host/QVRemoteDatabase.h"
#include "Host/QVSyncStore.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Support/Commands.h"
#include "Support/EventTimeout.h"
#include "Support/FreePort.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Tour/User.h"

namespace {

const QString ServingLine = QStringLiteral("serving ");
const QString CodeLine = QStringLiteral("code ");
const QString DoneLine = QStringLiteral("done");
const QString AllowCommand = QStringLiteral("allow");
const QString PutCommand = QStringLiteral("put");
const QString EditCommand = QStringLiteral("edit");

void say(const QString &line) {
    std::cout << line.toStdString() << std::endl;
}

class OtherUser : public TestApplication {
public:
    Withdrawal ask(const Question &question, std::function<void(bool)> handler) override {
        say(CodeLine + question.code);
        handler(nextCommand() == AllowCommand);
        return [] {};
    }
};

void require(const Expected<void> &result) {
    if (!result) {
        throw TourFailure(result.error().localizedDescription);
    }
}

std::shared_ptr<NoteDatabase> knownDatabase(TestHost &host, const QString &name) {
    for (const auto &database : host.library().knownDatabases()) {
        if (database->name() == name) {
            return database;
        }
    }
    return nullptr;
}

void synchronize(TestHost &host, const std::shared_ptr<QVSyncState> &state) {
    bool isDone = false;
    state->setEnabled(true);
    host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
        {state}, [&] { isDone = true; });
    if (!QTest::qWaitFor([&] { return isDone && state->lastSynced().isValid(); }, EventTimeout)) {
        throw TourFailure(QStringLiteral("The other computer does not synchronize."));
    }
}

std::shared_ptr<QVSyncLocation> locationAt(TestHost &host, const QString &package) {
    return host.addLocation(Url::fileURL(package).absoluteString());
}

/// The state, new here, of the database `name` that lies at `location`.
std::shared_ptr<QVSyncState> newStateAt(const std::shared_ptr<QVSyncLocation> &location,
                                        const QString &name) {
    const std::shared_ptr<QVSyncStore> store = location->createStore();
    std::atomic<bool> isOpen = false;
    store->openWithCompletionHandler([&](const auto &error) { isOpen = !error; });
    std::atomic<bool> isFetched = false;
    QVRemoteDatabases fetched;
    if (QTest::qWaitFor([&] { return isOpen.load(); }, EventTimeout)) {
        store->fetchDatabasesWithCompletionHandler([&](const auto &databases, const auto &) {
            fetched = databases.value_or(QVRemoteDatabases());
            isFetched = true;
        });
    }
    const bool isThere = QTest::qWaitFor([&] { return isFetched.load(); }, EventTimeout);
    for (const auto &database : fetched) {
        if (isThere && database->metadata()->name() == name) {
            return location->addStateForDatabaseWithUUID(database->UUID(), name);
        }
    }
    throw TourFailure(QStringLiteral("The other computer does not find the database."));
}

void putDatabase(TestHost &host, const QString &package) {
    const auto database = knownDatabase(host, OtherComputer::Database);
    synchronize(host, host.addState(locationAt(host, package), database));
}

void editNote(TestHost &host, const QString &package, const QString &name, const QString &title) {
    const std::shared_ptr<QVSyncState> state = newStateAt(locationAt(host, package), name);
    synchronize(host, state);
    const auto database = knownDatabase(host, name);
    host.openDatabase(database);
    const QList<Note> notes = database->notes().value();
    for (Note note : notes) {
        if (note.title == title) {
            note.text += OtherComputer::Edit;
            require(database->saveNote(note));
        }
    }
    synchronize(host, state);
}

/// False when that was the last command.
bool obey(TestHost &host, const QStringList &command) {
    if (command.first() == PutCommand) {
        putDatabase(host, command.value(1));
    } else if (command.first() == EditCommand) {
        editNote(host, command.value(1), command.value(2), command.value(3));
    } else {
        return false;
    }
    say(DoneLine);
    return true;
}

}  // namespace

int OtherComputer::be(int argumentCount, char **arguments) {
    const QApplication application(argumentCount, arguments);
    const SecretService keyring;
    TestHost host;
    OtherUser user;
    user.setEngine(&host.engine());
    const auto database = host.addDatabase(Database);
    Note note;
    note.title = NoteTitle;
    note.text = NoteText;
    require(database->saveNote(note));
    QVDirectConnectionServer *server = host.engine().plugin().server();
    server->setPort(freePort());
    server->startServing();
    say(ServingLine + QString::number(server->port()));
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        if (!obey(host, nextCommand().split(u'\t'))) {
            QCoreApplication::quit();
        }
    });
    return QCoreApplication::exec();
}

OtherComputer::OtherComputer() {
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), {Role});
    m_port = awaitLine(ServingLine).toUShort();
}

OtherComputer::~OtherComputer() {
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(EventTimeout)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

QString OtherComputer::awaitCode() {
    return awaitLine(CodeLine);
}

void OtherComputer::allow() {
    tell(AllowCommand);
}

void OtherComputer::putDatabase(const QString &package) {
    tell(PutCommand + u'\t' + package);
    awaitLine(DoneLine);
}

void OtherComputer::editNote(const QString &package, const QString &name, const QString &title) {
    tell(QStringList{EditCommand, package, name, title}.join(u'\t'));
    awaitLine(DoneLine);
}

void OtherComputer::tell(const QString &command) {
    m_process.write(command.toUtf8() + '\n');
    m_process.waitForBytesWritten();
}

QString OtherComputer::awaitLine(const QString &start) {
    QString line;
    while (!line.startsWith(start)) {
        if (!m_process.canReadLine() && !m_process.waitForReadyRead(EventTimeout)) {
            throw TourFailure(QStringLiteral("The other computer does not answer."));
        }
        line =
            m_process.canReadLine() ? QString::fromUtf8(m_process.readLine()).trimmed() : QString();
    }
    return line.mid(start.size());
}
