#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QUuid>
#include <array>
#include <map>

#include "Benchmarks/Benchmark.h"
#include "Benchmarks/DelayedLine.h"
#include "Engine/Locations/EngineSyncState.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Notes/TransactionName.h"
#include "Host/InboxUUID.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/RunJob.h"
#include "Support/TestHost.h"
#include "Support/TestWebDAVStore.h"
#include "Support/WebDAVServer.h"

using Benchmark::require;

namespace {

/// Of one direction of the line.
constexpr std::chrono::milliseconds Delay{25};
constexpr double RoundTrip = 50;
constexpr int NoteCount = 200;
constexpr int EditCount = 2000;
constexpr std::array Counts{EditCount / 4, EditCount / 2, EditCount};
const QString StoreName = QStringLiteral("Notes.qvSyncStore");

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

/// A store to which records are written one for each edit, as if nothing had ever been merged.
class UncompactedStore {
public:
    explicit UncompactedStore(const WebDAVServer &server) : m_server(server) {}

    /// Writes records until there are `count`.
    void grow(int count) {
        while (m_operations.size() < count) {
            m_operations.append(operation(static_cast<int>(m_operations.size()), m_operations));
            const QByteArray record = Transaction{{m_operations.last()}, {}}.encoded();
            m_server.putFile(StoreName + QStringLiteral("/transactions/") + InboxUUID + u'/' +
                                 TransactionName::of(record),
                             record);
        }
    }

private:
    const WebDAVServer &m_server;
    QList<Operation> m_operations;
};

/// A new computer with the store at the end of the line. The host is at it.
class DistantComputer {
public:
    DistantComputer(TestHost &host, quint16 port) : m_host(host) {
        m_host.goToComputer(QUuid::createUuid().toString(QUuid::WithoutBraces));
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
                qFatal("The synchronization has failed: %s",
                       result ? qPrintable(result->error->localizedDescription) : "no result");
            }
        });
    }

    void restart() {
        m_state.reset();
        m_host.restart();
        m_state = m_host.locations().syncLocations().first()->synchronizationStates().first();
    }

    qsizetype notes() { return m_host.inbox()->notes().value().size(); }

private:
    TestHost &m_host;
    std::shared_ptr<QVSyncState> m_state;
};

/// A computer beside the server, which synchronizes each of its edits.
class Author {
public:
    Author(TestHost &host, const WebDAVServer &server)
        : m_host(host), m_store(webDAVStoreWithoutEngine(URLText(server.port()))) {
        require(m_store->open(EngineFuture()));
    }

    /// Synchronizes edits until there are `count`.
    void edit(int count) {
        m_host.goToComputer(QStringLiteral("Author"));
        for (; m_edits < count; ++m_edits) {
            Note &note = m_notes[m_edits % NoteCount];
            note.title = QStringLiteral("Note %1").arg(m_edits % NoteCount);
            note.text =
                QStringLiteral("What edit %1 says, line by line.\n").arg(m_edits).repeated(30);
            require(m_host.inbox()->saveNote(note));
            require(runJob(m_host.engine().profile(), m_host.library(),
                           {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")}, m_store));
        }
    }

private:
    TestHost &m_host;
    const decltype(webDAVStoreWithoutEngine({})) m_store;
    std::map<int, Note> m_notes;
    int m_edits = 0;
};

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

double timeToImport(TestHost &host, quint16 port) {
    DistantComputer computer(host, port);
    const double time = computer.timeToSynchronize();
    if (computer.notes() != NoteCount) {
        qFatal("notes were lost");
    }
    return time;
}

void measureNetwork(Benchmark::Report &report) {
    const auto unit = QStringLiteral("ms");
    TestHost host;
    const WebDAVServer uncompacted({});
    const DelayedLine line(uncompacted.port(), Delay);
    acceptPassword(uncompacted, line.port());
    UncompactedStore records(uncompacted);
    QList<Benchmark::Point> imports;
    for (const int count : Counts) {
        records.grow(count);
        imports.append({double(count), timeToImport(host, line.port())});
    }
    const double copied = timeToCopy(line.port());
    report.add({QStringLiteral("Import of 2,000 uncompacted records / rclone copy, 8 at a time"),
                imports.last().value, copied, unit, 1.0, imports});

    const WebDAVServer grown({});
    const DelayedLine otherLine(grown.port(), Delay);
    acceptPassword(grown, otherLine.port());
    Author author(host, grown);
    QList<Benchmark::Point> grownImports;
    QList<Benchmark::Point> warm;
    QList<Benchmark::Point> cold;
    for (const int count : Counts) {
        author.edit(count);
        grownImports.append({double(count), timeToImport(host, otherLine.port())});
        DistantComputer computer(host, otherLine.port());
        warm.append(
            {double(count), Benchmark::median([&] { return computer.timeToSynchronize(); })});
        cold.append({double(count), Benchmark::median([&] {
                         computer.restart();
                         return computer.timeToSynchronize();
                     })});
    }
    report.add({QStringLiteral("Import of a store grown by 2,000 edits / the same"),
                grownImports.last().value, copied, unit, 0.1, grownImports});
    report.add({QStringLiteral("Idle synchronization, warm / one round trip"), warm.last().value,
                RoundTrip, unit, 2.5, warm});
    report.add({QStringLiteral("Idle synchronization, cold / one round trip"), cold.last().value,
                RoundTrip, unit, 5.0, cold});
}

const Benchmark::Suite networkSuite(QStringLiteral("network"), &measureNetwork);

}  // namespace
