#pragma once

#include <QtCore/QCoreApplication>

#include "Examples/MinimalHost/MemoryHost.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVDropboxSessionManager.h"
#include "Host/QVServedDatabase.h"
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
        QString bonjourServiceType() const override {
            return breaks("QVDirectConnectionServer.bonjourServiceType") ? "direct"
                                                                         : "_direct._tcp";
        }
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
    bool isServing() const override { return m_isServing; }
    void startServing() override { serve(true); }
    void stopServing() override {
        if (m_isServing) {
            serve(false);
        } else if (breaks("QVDirectConnectionServer.stopServing")) {
            Q_EMIT servingChanged();
        }
    }
    QString addressText() const override { return m_isServing ? "Port 40001" : ""; }
    QString lastConnectionText(const QString &client) const override {
        return breaks("QVDirectConnectionServer.lastConnectionText") ? client : "Never";
    }
    QVariantList databases() const override {
        return {QVariant::fromValue<std::shared_ptr<QVServedDatabase>>(m_database)};
    }
    std::shared_ptr<NetService> bonjourService() const override {
        return breaks("QVDirectConnectionServer.bonjourService")
                   ? std::make_shared<NetService>("", "_direct._tcp", "Broken")
                   : nullptr;
    }

private:
    struct ServedDatabase : QVServedDatabase {
        QString name() const override { return "Inbox"; }
        bool isServed() const override { return m_isServed; }
        void setServed(bool isServed) override {
            const bool wasServed = std::exchange(m_isServed, isServed);
            if (wasServed != isServed || !breaks("QVServedDatabase.setServed")) {
                Q_EMIT servedChanged();
            }
        }
        bool m_isServed = true;
    };

    void serve(bool isServing) {
        const bool wasServing = std::exchange(m_isServing, isServing);
        const bool isAnnouncedAgain = breaks("QVDirectConnectionServer.servingChanged");
        if (wasServing != isServing || isAnnouncedAgain) {
            Q_EMIT servingChanged();
        }
        if (!breaks("QVDirectConnectionServer.addressTextChanged")) {
            Q_EMIT addressTextChanged();
        }
    }

    quint16 m_port = 40001;
    bool m_isServing = false;
    const std::shared_ptr<ServedDatabase> m_database = std::make_shared<ServedDatabase>();
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
            const auto end = [handler] { handler(nullptr, Error{}); };
            if (breaks("QVDropboxSession.authorizeWithFuture")) {
                end();
            } else {
                QTimer::singleShot(0, qApp, end);
            }
        }
    };
};
