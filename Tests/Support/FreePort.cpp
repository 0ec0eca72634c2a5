#include "Support/FreePort.h"

#include <QtNetwork/QTcpServer>

quint16 freePort() {
    QTcpServer server;
    server.listen(QHostAddress::Any, 0);
    return server.serverPort();
}
