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

/// Dropbox as far as Velmora speaks to it, on this computer's loopback interface: the page where a
/// person signs in, the token endpoint, and the routes for the account and its files. It takes no
/// request that is not exactly as it should be, and remembers what was wrong with it. It serves on
/// a thread of its own; everything may be called from any thread.
class DropboxServer : public QObject {
    Q_OBJECT
public:
    /// What the person does on the page.
    enum class Person {
        SignsIn,
        Refuses,
        /// The browser shows the page for ever.
        LooksAway,
        /// The browser comes back with neither a code nor an error.
        GetsLost
    };
    /// Where tokens are asked for.
    static QString tokenPath() { return QStringLiteral("/oauth2/token"); }

    enum class Trouble {
        None,
        /// Reads, and answers nothing.
        Stalls,
        /// Status 200, and no JSON.
        AnswersGarbage,
        /// Status 200, and JSON of another shape.
        AnswersBesidesTheQuestion,
        /// Status 500.
        BreaksDown,
        /// Closes the connection in the middle of the answer.
        HangsUp
    };

    /// Begins to serve. An account without files, whose person signs in.
    DropboxServer();
    ~DropboxServer() override;
    DropboxServer(const DropboxServer &) = delete;
    DropboxServer &operator=(const DropboxServer &) = delete;

    /// Sets the user defaults by which Velmora finds this server; `forget` removes them.
    void configure() const;
    static void forget();
    QUrl address(const QString &path = {}) const;

    /// The account's address; "ada.l@example.com" unless set.
    QString email() const;
    void setEmail(const QString &email);
    void setPerson(Person person);
    /// The access tokens given so far are expired: status 401.
    void expireAccessTokens();
    /// Nothing given so far is good for anything any more.
    void revokeEverything();
    /// How long access tokens are said to live; 4 hours unless set. They live longer.
    void setSecondsToLive(int seconds);
    /// The token endpoint gives no refresh token from now on.
    void giveNoRefreshTokens();
    /// From now on requests to `path`, such as "/2/files/upload", meet trouble.
    void setTrouble(const QString &path, Trouble trouble);
    /// From now on requests to `path` are answered with this.
    void setAnswer(const QString &path, int status, const QByteArray &body);
    void clearTroubles();
    /// The next `times` requests to `path` are answered with `status` (429), and Retry-After where
    /// it is not empty. A request that comes before that time is a violation.
    void limitRate(const QString &path, int times, const QByteArray &retryAfter, int status = 429);
    /// How many entries a page of a list has.
    void setPageSize(qsizetype size);
    /// The next continuation of a list has to begin anew.
    void resetNextCursor();

    /// The account's files by their paths.
    QMap<QString, QByteArray> files() const;
    void putFile(const QString &path, const QByteArray &contents);

    /// How often `path` was asked for.
    int count(const QString &path) const;
    /// What was wrong with requests; of a sound program, nothing.
    QStringList violations() const;
    /// The verifier, codes and tokens there were, none of which may be written anywhere but in the
    /// secret store.
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
    Person m_person = Person::SignsIn;
    int m_secondsToLive = 14400;
    bool m_givesRefreshTokens = true;
    qsizetype m_pageSize = 1000;
    bool m_resetsNextCursor = false;
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
