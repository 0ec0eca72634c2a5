#pragma once

#include <QtCore/QTimer>
#include <future>

#include "Engine/Stores/Http/HttpClient.h"

class QNetworkReply;
class QSslError;

/// One request of an HttpClient and the answer to it. Made on the thread that waits; runs on that
/// of the client's network.
class HttpExchange : public QObject {
    Q_OBJECT
public:
    /// All must outlive this.
    HttpExchange(QNetworkAccessManager &manager, const HttpClient::Options &options,
                 const HttpClient::Request &request);

    /// Begins; on the network's thread.
    void start();
    /// Ends it soon with `error`, where it has not ended yet; on the network's thread.
    void abort(const Error &error);

    std::future<Expected<HttpClient::Response>> result() { return m_result.get_future(); }

private:
    void watch();
    void judgeCertificate(const QList<QSslError> &errors);
    void takeBody();
    void showLife();
    void finish();
    Expected<HttpClient::Response> answer() const;
    Error closedEarly() const;
    Error transportError() const;
    QString server() const;

    QNetworkAccessManager &m_manager;
    const HttpClient::Options &m_options;
    const HttpClient::Request &m_request;
    QNetworkReply *m_reply = nullptr;
    QTimer m_patience{this};
    QTimer m_end{this};
    QByteArray m_body;
    std::optional<Error> m_error;
    std::promise<Expected<HttpClient::Response>> m_result;
};
