#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QUuid>
#include <map>

#include "Benchmarks/Benchmark.h"
#include "Benchmarks/DelayedLine.h"
#include "Engine/Locations/EngineSyncState.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Notes/TransactionName.h"
#include "Host/InboxUUID.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/Compaction.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestWebDAVStore.h"
#include "Support/WebDAVServer.h"

namespace {

/// Of one direction of the line.
constexpr std::chrono::milliseconds Delay{25};
constexpr double RoundTrip = 50;
constexpr int NoteCount = 200;
constexpr int EditCount = 2000;
const QString StoreName = QStringLiteral("Notes.qvSyncStore");

void require(const Expected<void> &result) {
    if (!result) {
        qFatal("%s", qPrintable(result.error().localizedDescription));
    }
}

double millisecondsOf(const std::function<void()> &work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void acceptPassword(const WebDAVServer &server, quint16 port) {
    server.storePassword();
    UrlCredentialStorage::shared().setCredentialForProtectionSpace(
        {WebDAVServer::User, WebDAVServer::Password, UrlCredential::Persistence::ForSession},
        UrlProtectionSpace{QStringLiteral("localhost"),
                           port,
                           QStringLiteral("http"),
                           {},
                           UrlAuthenticationMethodHttpBasic});
    require(UnencryptedPasswords::accept(
        Url::fromString(QStringLiteral("http://ida@localhost:%1/").arg(port))));
}

QString URLText(quint16 port) {
    return QStringLiteral("http://ida@localhost:%1/dav/%2").arg(port).arg(StoreName);
}

/// Returns the operation of edit number `edit`, which supersedes that of the same note before.
Operation operation(int edit, const QList<Operation> &before) {
    const QString text =
        QStringLiteral("What edit %1 says, line by line.\n").arg(edit).repeated(30);
    const QString title = QStringLiteral("Note %1").arg(edit % NoteCount);
    if (edit < NoteCount) {
        return Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces), title, text,
                               edit, {});
    }
    const Operation &superseded = before[edit - NoteCount];
    return Operation::make(superseded.note, title, text, edit, {superseded.id});
}

/// Writes one record for each edit, as if nothing had ever been merged.
void writeRecords(const WebDAVServer &server) {
    QList<Operation> operations;
    for (int edit = 0; edit < EditCount; ++edit) {
        operations.append(operation(edit, operations));
        const QByteArray record = Transaction{{operations.last()}, {}}.encoded();
        server.putFile(StoreName + QStringLiteral("/transactions/") + InboxUUID + u'/' +
                           TransactionName::of(record),
                       record);
    }
}

/// A computer with the store at the end of the line.
class DistantComputer {
public:
    explicit DistantComputer(quint16 port) {
        m_state = m_host.addState(m_host.addLocation(URLText(port)), m_host.inbox());
        m_state->setEnabled(true);
        m_host.save();
    }

    double timeToSynchronize() {
        return millisecondsOf([&] {
            QEventLoop loop;
            m_host.engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
                {m_state}, [&] { loop.quit(); });
            loop.exec();
            const auto &result = std::dynamic_pointer_cast<EngineSyncState>(m_state)->lastResult();
            if (!result || result->error) {
                qFatal("the synchronization has failed");
            }
        });
    }

    void restart() {
        m_state.reset();
        m_host.restart();
        m_state = m_host.locations().syncLocations().first()->synchronizationStates().first();
    }

    void save(const QString &title) {
        Note note{{}, title, title, {}};
        require(m_host.inbox()->saveNote(note));
    }

    qsizetype notes() { return m_host.inbox()->notes().value().size(); }

private:
    TestHost m_host;
    std::shared_ptr<QVSyncState> m_state;
};

/// Lets a computer beside the server synchronize each of the edits.
void writeEdits(const WebDAVServer &server) {
    TestHost host;
    const auto store = webDAVStoreWithoutEngine(URLText(server.port()));
    require(store->open(EngineFuture()));
    std::map<int, Note> notes;
    for (int edit = 0; edit < EditCount; ++edit) {
        Note &note = notes[edit % NoteCount];
        note.title = QStringLiteral("Note %1").arg(edit % NoteCount);
        note.text = QStringLiteral("What edit %1 says, line by line.\n").arg(edit).repeated(30);
        require(host.inbox()->saveNote(note));
        const StoreSession::Subject subject{InboxUUID, QStringLiteral("Inbox"),
                                            QStringLiteral("store")};
        SyncSession session(host.engine().profile(), host.library(), subject);
        require(runSession(session, *store));
        Compaction compaction(host.engine().profile(), host.library(), subject);
        require(runSession(compaction, *store));
    }
}

/// Returns the time in which the reference copies the store, 8 files at a time.
double timeToCopy(quint16 port) {
    if (QStandardPaths::findExecutable(QStringLiteral("rclone")).isEmpty()) {
        qFatal("This benchmark needs rclone.");
    }
    const QTemporaryDir folder;
    QProcess obscured;
    obscured.start(QStringLiteral("rclone"), {QStringLiteral("obscure"), WebDAVServer::Password});
    obscured.waitForFinished();
    return millisecondsOf([&] {
        const int failed = QProcess::execute(
            QStringLiteral("rclone"),
            {QStringLiteral("copy"), QStringLiteral("--config"), QStringLiteral("/dev/null"),
             QStringLiteral("--transfers"), QStringLiteral("8"), QStringLiteral("--checkers"),
             QStringLiteral("8"), QStringLiteral("--webdav-url"),
             QStringLiteral("http://localhost:%1/dav").arg(port), QStringLiteral("--webdav-user"),
             WebDAVServer::User, QStringLiteral("--webdav-pass"),
             QString::fromLatin1(obscured.readAll().trimmed()),
             QStringLiteral(":webdav:") + StoreName, folder.path()});
        if (failed != 0) {
            qFatal("rclone has failed");
        }
    });
}

double timeToImport(quint16 port) {
    DistantComputer computer(port);
    const double time = computer.timeToSynchronize();
    if (computer.notes() != NoteCount) {
        qFatal("notes were lost");
    }
    return time;
}

void measureIdle(Benchmark::Report &report) {
    const WebDAVServer server({});
    const DelayedLine line(server.port(), Delay);
    acceptPassword(server, line.port());
    DistantComputer computer(line.port());
    for (int i = 0; i < 10; ++i) {
        computer.save(QString::number(i));
        computer.timeToSynchronize();
    }
    report.add({QStringLiteral("Idle synchronization, warm / one round trip"),
                Benchmark::median([&] { return computer.timeToSynchronize(); }), RoundTrip,
                QStringLiteral("ms"), 2.5});
    report.add({QStringLiteral("Idle synchronization, cold / one round trip"),
                Benchmark::median([&] {
                    computer.restart();
                    return computer.timeToSynchronize();
                }),
                RoundTrip, QStringLiteral("ms"), 5.0});
}

void measureNetwork(Benchmark::Report &report) {
    measureIdle(report);
    const WebDAVServer uncompacted({});
    const DelayedLine line(uncompacted.port(), Delay);
    acceptPassword(uncompacted, line.port());
    writeRecords(uncompacted);
    const double copied = timeToCopy(line.port());
    report.add({QStringLiteral("Import of 2,000 uncompacted records / rclone copy, 8 at a time"),
                timeToImport(line.port()), copied, QStringLiteral("ms"), 1.0});
    const WebDAVServer grown({});
    const DelayedLine otherLine(grown.port(), Delay);
    acceptPassword(grown, otherLine.port());
    writeEdits(grown);
    report.add({QStringLiteral("Import of a store grown by 2,000 edits / the same"),
                timeToImport(otherLine.port()), copied, QStringLiteral("ms"), 0.1});
}

const Benchmark::Suite networkSuite(QStringLiteral("network"), &measureNetwork);

}  // namespace
