#pragma once

#include <memory>

#include "Engine/Foundation/EngineFuture.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Support/TestApplication.h"

/// Server that only records its calls, in `calls`.
class ScriptedConnectionServer : public QVDirectConnectionServer {
public:
    quint16 port() const override { return m_port; }
    void setPort(quint16 port) override;
    bool isServing() const override { return m_isServing; }
    void startServing() override;
    void stopServing() override;
    std::shared_ptr<NetService> bonjourService() const override { return service; }

    QStringList calls;
    std::shared_ptr<NetService> service;
    /// Whether starting fails without an error.
    bool cannotServe = false;

private:
    void setServing(bool isServing);

    quint16 m_port = 2222;
    bool m_isServing = false;
};

/// Engine future that records the futures passed to it, in order.
class RecordingFuture : public EngineFuture {
public:
    void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> &future) override;
    void passControlToFuture(const std::shared_ptr<PZFuture> &future) override;

    QList<std::shared_ptr<PZFuture>> cascades;
    QList<std::shared_ptr<PZFuture>> passes;
};

/// Host that replaces the engine and only records its calls, for states that the engine cannot be
/// brought into.
class ScriptedHost {
public:
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost &) = delete;
    ScriptedHost &operator=(const ScriptedHost &) = delete;

    TestApplication application;
    ScriptedConnectionServer server;
    /// "save", "synchronize UUID UUID", "bookmark URL", "remove URL", "start", …
    QStringList calls;
    QStringList bookmarks;
    /// The locations of the locations controller.
    QList<std::shared_ptr<QVSyncLocation>> locations;
    bool saves = true;
    /// Every future that was created.
    QList<std::shared_ptr<RecordingFuture>> futures;

private:
    struct Objects;
    std::unique_ptr<Objects> m_objects;
};
