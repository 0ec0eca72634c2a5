#include "Support/FreePort.h"

#include <QtCore/QRandomGenerator>
#include <QtNetwork/QTcpServer>

namespace {

/// Below the ports that the system gives to outgoing connections and to servers without a port of
/// their own, so that none of them takes the port before it is used.
constexpr int FirstPort = 10'000;
constexpr int EndOfPorts = 32'768;

}  // namespace

quint16 freePort() {
    QTcpServer server;
    while (!server.isListening()) {
        const int port = QRandomGenerator::global()->bounded(FirstPort, EndOfPorts);
        server.listen(QHostAddress::Any, static_cast<quint16>(port));
    }
    return server.serverPort();
}
