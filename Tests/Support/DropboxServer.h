#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>
#include <mutex>
#include <optional>

class QTcpSocket;

/// The part of Dropbox that Velmora uses, served on the loopback interface: the sign-in page, the
/// token endpoint, and the routes for the account and its files. Rejects every request that is not
/// exactly right and records what is wrong with it. Serves on its own thread. Thread-safe.
class DropboxServer : public QObject {
    Q_OBJECT
public:
    /// What the user does on the sign-in page.
    enum class User {
        SignsIn,
        Refuses,
        /// The browser keeps showing the page.
        LooksAway,
        /// The browser is redirected with neither a code nor an error.
        GetsLost
    };
    /// The path of the token endpoint.
    static QString tokenPath() { return QStringLiteral("/oauth2/token"); }

    enum class Trouble {
        None,
        /// Reads the request and sends no response.
        Stalls,
        /// Status 200 with a body that is not JSON.
        AnswersGarbage,
        /// Status 200 with JSON of another structure.
        AnswersBesidesTheQuestion,
        /// Status 500.
        BreaksDown,
        /// Closes the connection in the middle of the response.
        HangsUp,
        /// Keeps half of an uploaded file and reports success.
        KeepsHalf
    };

    /// Starts serving an account without files, whose user signs in.
    DropboxServer();
    ~DropboxServer() override;
    DropboxServer(const DropboxServer &) = delete;
    DropboxServer &operator=(const DropboxServer &) = delete;

    /// Sets the user defaults that direct Velmora to this server; `forget` removes them.
    void configure() const;
    static void forget();
    QUrl address(const QString &path = {}) const;

    /// The account's address; "ada.l@example.com" unless set.
    QString email() const;
    void setEmail(const QString &email);
    void setUser(User user);
    /// Expires the access tokens issued so far: requests with them get status 401.
    void expireAccessTokens();
    /// Invalidates every code and token issued so far.
    void revokeEverything();
    /// Sets the lifetime that responses announce for access tokens (default: 4 hours). They are
    /// accepted for longer.
    void setSecondsToLive(int seconds);
    /// Makes the token endpoint issue no refresh tokens from now on.
    void giveNoRefreshTokens();
    /// Makes requests to `path`, for example "/2/files/upload", fail from now on.
    void setTrouble(const QString &path, Trouble trouble);
    /// Sets the response to every later request to `path`.
    void setAnswer(const QString &path, int status, const QByteArray &body);
    void clearTroubles();
    /// Rejects the next `times` requests to `path` with `status` (429), and with a Retry-After
    /// header unless it is empty. A request before that time is a violation.
    void limitRate(const QString &path, int times, const QByteArray &retryAfter, int status = 429);
    /// Sets the number of entries on a page of a listing.
    void setPageSize(qsizetype size);
    /// Rejects the next continuation of a listing, which then has to start again, and removes the
    /// file at `removedPath` before that.
    void resetNextCursor(const QString &removedPath);

    /// The account's files by path.
    QMap<QString, QByteArray> files() const;
    void putFile(const QString &path, const QByteArray &contents);
    void removeFile(const QString &path);

    /// The number of requests to `path`.
    int count(const QString &path) const;
    /// What was wrong with requests; empty if the program is correct.
    QStringList violations() const;
    /// All verifiers, codes and tokens so far. None of them may be stored outside the secret store.
    QStringList secrets() const;

private:
    struct Request {
        QByteArray method;
        QString path = {};
        QString query = {};
        QHash<QByteArray, QByteArray> headers = {};
        QByteArray body = {};
    };
    struct Answer {
        int status = 200;
        QByteArray body = {};
        QByteArray type = "application/json";
        QList<QPair<QByteArray, QByteArray>> headers = {};
    };
    struct Grant {
        QString challenge;
        QString redirectAddress;
    };
    struct Limit {
        int times = 0;
        int status = 429;
        QByteArray retryAfter;
        qint64 notBefore = 0;
    };
    using Form = QMap<QString, QString>;

    void serve(QTcpSocket *socket);
    static std::optional<Request> takeRequest(QByteArray &received);
    void write(QTcpSocket *socket, const Request &request);
    std::optional<Answer> answerLocked(const Request &request);
    Answer authorizePage(const Request &request);
    Answer token(const Request &request);
    Answer tokenForCode(const Form &form);
    Answer tokenForRefreshToken(const Form &form);
    Answer newTokens(bool withRefreshToken);
    std::optional<Answer> unauthorized(const Request &request);
    Answer account(const Request &request);
    Answer listFolder(const QJsonObject &argument);
    Answer continueList(const QJsonObject &argument);
    Answer page(const QStringList &entries);
    Answer download(const QJsonObject &argument, const Request &request);
    Answer upload(const QJsonObject &argument, const Request &request);
    Answer remove(const QJsonObject &argument);
    Answer route(const Request &request);
    std::optional<Answer> limited(const QString &path);
    bool isFolder(const QString &path) const;
    void expect(bool holds, const QString &violation);
    Form form(const QByteArray &text);
    QString newSecret();
    Answer failed(const QJsonObject &error) const;

    mutable std::mutex m_mutex;
    QThread m_thread;
    QTcpServer *m_server = nullptr;
    quint16 m_port = 0;
    QString m_email = QStringLiteral("ada.l@example.com");
    User m_user = User::SignsIn;
    int m_secondsToLive = 14400;
    bool m_givesRefreshTokens = true;
    qsizetype m_pageSize = 1000;
    std::optional<QString> m_removedByReset;
    QHash<QString, Trouble> m_troubles;
    QHash<QString, Answer> m_answers;
    QHash<QString, Limit> m_limits;
    QHash<QString, Grant> m_grants;
    QStringList m_accessTokens;
    QStringList m_expiredTokens;
    QStringList m_refreshTokens;
    QStringList m_secrets;
    QHash<QString, QStringList> m_cursors;
    QMap<QString, QByteArray> m_files;
    QHash<QString, int> m_counts;
    QStringList m_violations;
};
