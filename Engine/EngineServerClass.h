#pragma once

#include "Host/QVDirectConnectionServer.h"

/// What is fixed about direct connections.
class EngineServerClass : public QVDirectConnectionServer::Class {
public:
    static constexpr QLatin1StringView scheme{"velmora"};

    QString URLScheme() const override { return scheme; }
    /// From the range for private use (RFC 6335, section 6).
    quint16 defaultPort() const override { return 50842; }
    QString bonjourServiceType() const override { return QStringLiteral("_velmora._tcp"); }
    QString clientAuthorizationServiceName() const override {
        return QStringLiteral("Velmora Direct Connection Client");
    }
};
