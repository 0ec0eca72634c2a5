#include <atomic>

#include "Support/DisplayTest.h"
#include "Support/ProgramMemory.h"
#include "Support/ScriptedServer.h"
#include "Support/SecretService.h"
#include "Support/ShownProgram.h"

/// Looks for a password in the memory of the program, after the user has typed it into the sheet of
/// a WebDAV location and the location was checked with it.
class TypedPasswordTest : public QObject {
    Q_OBJECT

    static inline const QString User = QStringLiteral("ida");
    static inline const QString Password = QStringLiteral("correct-horse-7319");

    /// Fills in the sheet by keyboard, from its first field on.
    static void fillIn(const VirtualDisplay &display, quint16 port) {
        const QStringList next{QStringLiteral("Tab")};
        display.type(QStringLiteral("localhost"));
        // HTTPS is not ticked.
        display.press(next + next);
        display.type(QString::number(port));
        display.press(next);
        display.type(User);
        display.press(next);
        display.type(Password);
        display.press(next + next);
        display.type(QStringLiteral("Shared"));
    }

private Q_SLOTS:
    void aTypedPasswordDoesNotStayInMemory() {
        const QByteArray login = (User + u':' + Password).toUtf8().toBase64();
        std::atomic_bool wasUsed = false;
        const ScriptedServer server(
            [&](ScriptedServer::Connection &connection) {
                for (QByteArray request = connection.readRequest(); !request.isEmpty();
                     request = connection.readRequest()) {
                    if (request.contains("Authorization: Basic " + login)) {
                        wasUsed = true;
                        connection.answer("403 Forbidden");
                    } else {
                        connection.answer(
                            "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"");
                    }
                }
            },
            ScriptedServer::Order::AllAtOnce);
        const SecretService secrets;
        const VirtualDisplay display;
        ShownProgram program(QStringLiteral(VELMORA), display);
        program.start();
        program.awaitWindows();
        display.focus(program.preferencesWindow());
        // In the menu "Add", the third entry.
        const QString down = QStringLiteral("Down");
        display.press({QStringLiteral("alt+a"), down, down, down, QStringLiteral("Return")});
        QString sheet;
        QTRY_VERIFY(!(sheet = display.window(QStringLiteral("^WebDAV Location$"))).isEmpty());
        display.focus(sheet);
        fillIn(display, server.port());
        const auto isPasswordInMemory = [&] {
            return ProgramMemory(program.processId())
                .containsAny({Password, User + u':' + Password});
        };
        QTRY_VERIFY(isPasswordInMemory());
        display.press({QStringLiteral("Return")});
        QTRY_VERIFY(wasUsed);
        QTRY_VERIFY(secrets.count({{QStringLiteral("user"), User}}) == 2 && !isPasswordInMemory());
        // Nothing would be found of a program that has ended either.
        QVERIFY(ProgramMemory(program.processId()).containsAny({User}));
    }
};

VELMORA_DISPLAY_TEST(TypedPasswordTest)
#include "TypedPasswordTest.moc"
