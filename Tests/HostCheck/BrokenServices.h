#pragma once

#include <QtCore/QCoreApplication>
#include <QtNetwork/QTcpServer>

#include "Examples/MinimalHost/MemoryHost.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVDropboxSessionManager.h"
#include "Host/QVServedDatabase.h"
#include "HostCheck/BrokenPromise.h"
#include "Platform/Network/NetService.h"

/// A server that accepts connections and sends no response.
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
        const bool isLeft = breaks("QVDirectConnectionServer.setPort (serving)") &&
                            QTcpServer().listen(QHostAddress::Any, m_port);
        if (isServing() && former != m_port && !isLeft) {
            stop();
            start(breaks("QVDirectConnectionServer.setPort (occupied)"));
        }
        if (former != m_port || !breaks("QVDirectConnectionServer.setPort")) {
            Q_EMIT portChanged();
        }
    }
    bool isServing() const override { return m_listener != nullptr; }
    void startServing() override {
        if (!isServing()) {
            start(breaks("QVDirectConnectionServer.startServing (occupied)"));
        } else if (breaks("QVDirectConnectionServer.servingChanged")) {
            Q_EMIT servingChanged();
        }
    }
    void stopServing() override {
        if (isServing()) {
            stop();
        } else if (breaks("QVDirectConnectionServer.stopServing")) {
            Q_EMIT servingChanged();
        }
    }
    QString addressText() const override { return isServing() ? "Port 40001" : ""; }
    QString lastConnectionText(const QString &client) const override {
        return breaks("QVDirectConnectionServer.lastConnectionText") ? client : "Never";
    }
    QVariantList databases() const override {
        return {QVariant::fromValue<std::shared_ptr<QVServedDatabase>>(m_database)};
    }
    std::shared_ptr<NetService> bonjourService() const override {
        const bool isAnnounced = isServing()
                                     ? !breaks("QVDirectConnectionServer.bonjourService (serving)")
                                     : breaks("QVDirectConnectionServer.bonjourService");
        return isAnnounced ? std::make_shared<NetService>("", bonjourServiceType(), "", m_port)
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

    /// Does not report that the port is occupied if `isSilent`.
    void start(bool isSilent) {
        auto listener = std::make_unique<QTcpServer>();
        if (listener->listen(QHostAddress::Any, m_port)) {
            m_listener = std::move(listener);
        } else if (!isSilent) {
            QTimer::singleShot(0, qApp, [] { NSApp()->presentError(Error{}); });
        }
        announce();
    }
    void stop() {
        m_listener = nullptr;
        announce();
    }
    void announce() {
        Q_EMIT servingChanged();
        if (!breaks("QVDirectConnectionServer.addressTextChanged")) {
            Q_EMIT addressTextChanged();
        }
    }

    quint16 m_port = 40001;
    /// Null unless the server is serving.
    std::unique_ptr<QTcpServer> m_listener;
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
