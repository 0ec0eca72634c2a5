#include <QtCore/QSettings>
#include <QtNetwork/QTcpSocket>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/Stores/BlobStore.h"
#include "Host/DefaultsKeys.h"
#include "Host/InboxUUID.h"
#include "Platform/Foundation/MainQueue.h"
#include "Support/AccessibleScreen.h"
#include "Support/AskedUser.h"
#include "Support/DisplayTest.h"
#include "Support/FreePort.h"
#include "Support/NameOfProgram.h"
#include "Support/ProgramMemory.h"
#include "Support/SecretService.h"
#include "Support/ShownProgram.h"
#include "Support/TestHost.h"

/// Looks for the secret of a pairing in the memory of the program, right after its user has paired
/// it with this process, which is the other computer.
class NewPairingTest : public QObject {
    Q_OBJECT

    static inline const QString NoteTitle = QStringLiteral("Title that may be in memory");

    const SecretService m_secrets;
    const VirtualDisplay m_display;
    const AccessibleScreen m_screen{m_secrets.busAddress()};
    const quint16 m_port = freePort();
    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<ShownProgram> m_program;

    QString address() const {
        return QStringLiteral("%1://127.0.0.1:%2").arg(DirectConnection::URLScheme).arg(m_port);
    }

    /// Writes a profile with a note, and with a location with this address, unless it is empty,
    /// that the inbox synchronizes with when the program starts. Returns the location's identifier.
    QString writeProfile(const QString &URLText) const {
        const TestApplication application;
        SyncEngine engine;
        const auto opened =
            engine.openProfile(m_program->profile(), FirstContents::Inbox, ProfileUse::Edit);
        Note note{.title = NoteTitle, .text = QStringLiteral("Text")};
        if (!opened || !engine.library()->inbox()->saveNote(note) || URLText.isEmpty()) {
            return {};
        }
        auto *locations = engine.plugin().locationsController();
        const auto location = engine.plugin().newLocation(Url::fromString(URLText));
        locations->insertObjectInSyncLocationsAtIndex(location, 0);
        const auto state =
            location->addStateForDatabaseWithUUID(InboxUUID, QStringLiteral("Inbox"));
        state->setEnabled(true);
        state->setSyncOnOpen(true);
        std::optional<Error> error;
        return locations->save(&error)
                   ? dynamic_cast<const EngineSyncLocation &>(*location).identifier()
                   : QString();
    }
    /// Stores that the program serves on the port, as its sheet does.
    void serve() const {
        QSettings settings(m_settings->filePath(QStringLiteral("Velmora/Velmora.conf")),
                           QSettings::NativeFormat);
        settings.setValue(DefaultsKeys::DirectConnectionServerPortNumber, m_port);
        settings.setValue(DefaultsKeys::DirectConnectionServerEnabled, true);
    }
    /// Returns the stored secret of the pairing of a location with address().
    std::optional<SecretBytes> secretOf(const QString &location, TestHost &host) const {
        const DirectConnectionPairings pairings(host.engine().profile());
        return pairings.secret(address() + u' ' + location).value_or(std::nullopt);
    }
    /// Whether the program's memory could be read and does not contain the secret.
    bool isForgotten(const SecretBytes &secret) const {
        const ProgramMemory memory(m_program->processId());
        return memory.containsAny({NoteTitle}) && !memory.contains(secret.toByteArray());
    }

private Q_SLOTS:
    void init() {
        m_settings = std::make_unique<QTemporaryDir>();
        m_program = std::make_unique<ShownProgram>(QStringLiteral(VELMORA), m_display);
        m_program->setVariable(QStringLiteral("XDG_CONFIG_HOME"), m_settings->path());
        m_program->useSession(m_secrets.busAddress());
        m_program->setVariable(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                               QStringLiteral("unix:path=/there/is/no/bus"));
    }
    void cleanup() { m_program.reset(); }

    void theSecretDoesNotStayInTheMemoryOfTheClient() {
        const QString location = writeProfile(address());
        QVERIFY(!location.isEmpty());
        TestHost host;
        AskedUser user;
        user.answerAll([](const Question &) { return true; });
        auto &server = dynamic_cast<DirectConnectionServer &>(*host.engine().plugin().server());
        server.setPort(m_port);
        server.startServing();
        QVERIFY(server.isServing());
        m_program->start();
        QVERIFY(m_screen.perform(QStringLiteral("Connect")));
        const auto isReceived = [&] {
            return !host.inbox()->notes().value_or(QList<Note>()).isEmpty();
        };
        QTRY_VERIFY(isReceived());
        std::optional<SecretBytes> secret;
        const auto isStored = [&] {
            const NameOfProgram name;
            return (secret = secretOf(location, host)).has_value();
        };
        QTRY_VERIFY(isStored());
        QTRY_VERIFY(isForgotten(*secret));
    }

    void theSecretDoesNotStayInTheMemoryOfTheServer() {
        writeProfile({});
        TestHost host;
        AskedUser user;
        user.answerAll([](const Question &) { return true; });
        serve();
        m_program->start();
        const auto isServing = [&] {
            QTcpSocket socket;
            socket.connectToHost(QStringLiteral("127.0.0.1"), m_port);
            return socket.waitForConnected();
        };
        QTRY_VERIFY(isServing());
        const auto location = host.addLocation(address());
        const auto store = std::dynamic_pointer_cast<BlobStore>(location->createStore());
        std::optional<bool> isOpen;
        store->openWithCompletionHandler([&](const std::optional<Error> &error) {
            MainQueue::dispatchAsync([&, isPaired = !error] { isOpen = isPaired; });
        });
        QVERIFY(m_screen.perform(QStringLiteral("Allow")));
        QTRY_VERIFY(isOpen);
        QVERIFY(*isOpen);
        std::optional<SecretBytes> secret;
        const QString identifier = dynamic_cast<const EngineSyncLocation &>(*location).identifier();
        QTRY_VERIFY((secret = secretOf(identifier, host)));
        QTRY_VERIFY(isForgotten(*secret));
    }
};

VELMORA_DISPLAY_TEST(NewPairingTest, AccessibleScreen::require())
#include "NewPairingTest.moc"
