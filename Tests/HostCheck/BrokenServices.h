#pragma once

#include <QtCore/QCoreApplication>

#include "Examples/MinimalHost/MemoryHost.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVDropboxSessionManager.h"
#include "HostCheck/BrokenPromise.h"
#include "Platform/Network/NetService.h"

/// A server that serves no client.
class BrokenServer : public QVDirectConnectionServer {
public:
    class Class : public QVDirectConnectionServer::Class {
    public:
        QString URLScheme() const override {
            return breaks("QVDirectConnectionServer.URLScheme") ? "Direct" : "direct";
        }
        quint16 defaultPort() const override {
            return breaks("QVDirectConnectionServer.port") ? 0 : 4711;
        }
        QString bonjourServiceType() const override { return "_direct._tcp"; }
        QString clientAuthorizationServiceName() const override {
            return breaks("QVDirectConnectionServer.clientAuthorizationServiceName") ? ""
                                                                                     : "Direct";
        }
    };

    quint16 port() const override { return m_port; }
    void setPort(quint16 port) override {
        const quint16 former = std::exchange(m_port, port ? port : defaultPort());
        if (former != m_port || !breaks("QVDirectConnectionServer.setPort")) {
            Q_EMIT portChanged();
        }
    }
    bool isServing() const override { return false; }
    void startServing() override { Q_EMIT servingChanged(); }
    void stopServing() override {
        if (breaks("QVDirectConnectionServer.stopServing")) {
            Q_EMIT servingChanged();
        }
    }
    std::shared_ptr<NetService> bonjourService() const override {
        return breaks("QVDirectConnectionServer.bonjourService")
                   ? std::make_shared<NetService>("", "_direct._tcp", "Broken")
                   : nullptr;
    }

private:
    quint16 m_port = 40001;
};

/// Accounts to which no user can sign in.
class BrokenSessionManager : public QVDropboxSessionManager {
public:
    std::shared_ptr<QVDropboxSession> sessionWithURL(const Url & /*URL*/) override {
        return breaks("QVDropboxSessionManager.sessionWithURL") ? nullptr
                                                                : std::make_shared<Session>();
    }

private:
    struct Session : QVDropboxSession {
        void authorizeWithFuture(const Future & /*future*/, Handler handler) override {
            QTimer::singleShot(0, qApp, [handler] { handler(nullptr, Error{}); });
        }
    };
};
