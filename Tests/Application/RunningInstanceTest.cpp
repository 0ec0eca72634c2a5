#include "Application/RunningInstance.h"

#include <QtCore/QThread>
#include <QtNetwork/QLocalSocket>
#include <QtTest/QSignalSpy>
#include <future>
#include <thread>

#include "Support/EventTimeout.h"
#include "Support/TestMain.h"

class RunningInstanceTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QByteArray m_runtimeFolderBefore;

    /// Makes a folder below the test's the runtime folder.
    void useRuntimeFolder(const QString &name) {
        const QString path = m_folder.filePath(name);
        QVERIFY(QDir().mkpath(path));
        QVERIFY(
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        qputenv("XDG_RUNTIME_DIR", path.toUtf8());
    }

private Q_SLOTS:
    void initTestCase() { m_runtimeFolderBefore = qgetenv("XDG_RUNTIME_DIR"); }
    void cleanup() { qputenv("XDG_RUNTIME_DIR", m_runtimeFolderBefore); }

    void theProcessIsFoundWithoutARuntimeFolder_data() {
        QTest::addColumn<QString>("folder");
        QTest::newRow("not set") << QString();
        QTest::newRow("missing") << m_folder.filePath(QStringLiteral("missing"));
        QTest::newRow("of another user") << QStringLiteral("/proc");
        QTest::newRow("open to other users") << m_folder.filePath(QStringLiteral("open"));
        QTest::newRow("too long") << m_folder.filePath(QString(120, u'x'));
    }
    void theProcessIsFoundWithoutARuntimeFolder() {
        QFETCH(QString, folder);
        if (folder.endsWith(u'x')) {
            useRuntimeFolder(folder.section(u'/', -1));
        } else if (folder.endsWith(QStringLiteral("open"))) {
            QVERIFY(QDir().mkpath(folder));
            QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
        }
        qputenv("XDG_RUNTIME_DIR", folder.toUtf8());
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        QTemporaryDir profile;
        QVERIFY(!RunningInstance::raise(profile.path()));
        RunningInstance instance(profile.path());
        QVERIFY(instance.listen());
        QSignalSpy raised(&instance, &RunningInstance::raiseRequested);
        bool isConfirmed = false;
        const std::unique_ptr<QThread> other(
            QThread::create([&] { isConfirmed = RunningInstance::raise(profile.path()); }));
        other->start();
        QTRY_COMPARE(raised.size(), 1);
        QVERIFY(other->wait());
        QVERIFY(isConfirmed);
    }

    void aSocketThatIsLeftOverIsReplaced() {
        useRuntimeFolder(QStringLiteral("runtime"));
        RunningInstance first(m_folder.path());
        QVERIFY(first.listen());
        RunningInstance second(m_folder.path());
        QVERIFY(second.listen());
    }

    void aSocketThatCannotBeUsedIsReported() {
        // A socket's path has at most 107 bytes.
        useRuntimeFolder(QString(120, u'x'));
        const QString profile = m_folder.filePath(QString(120, u'y'));
        QVERIFY(QDir().mkpath(profile));
        RunningInstance instance(profile);
        const Expected<void> listening = instance.listen();
        QVERIFY(!listening);
        QVERIFY(listening.error().localizedDescription.contains(m_folder.path()));
    }

    void aCommandThatTheOtherVersionDoesNotKnowIsNotTakenForItsEnd() {
        useRuntimeFolder(QStringLiteral("commands"));
        RunningInstance instance(m_folder.path());
        QVERIFY(instance.listen());
        QSignalSpy commands(&instance, &RunningInstance::commandRequested);
        const QDir folder(QString::fromUtf8(qgetenv("XDG_RUNTIME_DIR")));
        const QStringList sockets = folder.entryList(QDir::System);
        QCOMPARE(sockets.size(), 1);
        QLocalSocket socket;
        socket.connectToServer(folder.filePath(sockets.first()));
        QVERIFY(socket.waitForConnected());
        socket.write("{\"command\":\"later\"}\n");
        QTRY_VERIFY(socket.canReadLine());
        const auto result = ShellResult::fromLine(socket.readLine());
        QVERIFY(result);
        QVERIFY(result->exitCode != 0);
        QVERIFY2(result->errors.contains(QStringLiteral("has another version")),
                 qPrintable(result->errors));
        QCOMPARE(commands.size(), 0);
    }

    void aResultOfAnotherVersionIsNotTakenForItsEnd() {
        useRuntimeFolder(QStringLiteral("results"));
        QString path;
        {
            RunningInstance instance(m_folder.path());
            QVERIFY(instance.listen());
            const QDir folder(QString::fromUtf8(qgetenv("XDG_RUNTIME_DIR")));
            path = folder.filePath(folder.entryList(QDir::System).value(0));
        }
        // A server that responds with a line of its own.
        std::promise<bool> listening;
        std::future<bool> isListening = listening.get_future();
        std::thread other([&] {
            QLocalServer server;
            listening.set_value(server.listen(path));
            if (server.waitForNewConnection(EventTimeout)) {
                QLocalSocket *socket = server.nextPendingConnection();
                socket->waitForReadyRead(EventTimeout);
                socket->write("{\"result\":2}\n");
                socket->waitForBytesWritten(EventTimeout);
                socket->disconnectFromServer();
            }
        });
        const bool canListen = isListening.get();
        const auto result =
            RunningInstance::ask(m_folder.path(), ShellCommand{}, QDeadlineTimer(EventTimeout));
        other.join();
        QVERIFY(canListen);
        QVERIFY(result);
        QVERIFY2(result->errors.contains(QStringLiteral("has another version")),
                 qPrintable(result->errors));
    }
};

VELMORA_TEST(RunningInstanceTest)
#include "RunningInstanceTest.moc"
