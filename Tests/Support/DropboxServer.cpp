#include "Support/DropboxServer.h"
#include "Support/SetDefault.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>
#include <QtCore/QUrlQuery>
#include <QtCore/QUuid>
#include <QtNetwork/QTcpSocket>
#include <stdexcept>

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

const QString ApplicationKey = QStringLiteral("velmora-test-key");
const QString AuthorizePath = QStringLiteral("/oauth2/authorize");
const QString APIPath = QStringLiteral("/2");
const QString ContentPath = QStringLiteral("/content/2");
const QString Scope =
    QStringLiteral("account_info.read files.metadata.read files.content.read files.content.write");

bool matches(const QString &text, const char *pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)))
        .match(text)
        .hasMatch();
}

QByteArray json(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString lastComponent(const QString &path) {
    return path.section(u'/', -1);
}

QJsonObject tagged(const char *tag) {
    return {{QStringLiteral(".tag"), QString::fromLatin1(tag)}};
}

QJsonObject pathError(const char *tag) {
    return {{QStringLiteral(".tag"), QStringLiteral("path")},
            {QStringLiteral("path"), tagged(tag)}};
}

/// Only printable ASCII may stand in a header (RFC 9110, 5.5); control characters end a request.
bool isHeaderText(const QByteArray &text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return character >= ' ' && character < 0x7f; });
}

}  // namespace

DropboxServer::DropboxServer() {
    m_server = new QTcpServer(this);
    if (!m_server->listen(QHostAddress::LocalHost)) {
        throw std::runtime_error("the server cannot listen");
    }
    m_port = m_server->serverPort();
    connect(m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = m_server->nextPendingConnection()) {
            serve(socket);
        }
    });
    moveToThread(&m_thread);
    m_thread.start();
}

DropboxServer::~DropboxServer() {
    // With its sockets, on the thread that serves them.
    m_server->deleteLater();
    m_thread.quit();
    m_thread.wait();
    // The thread sanitizer does not see that QThread::wait() ends the thread's accesses.
    const std::lock_guard lock(m_mutex);
}

void DropboxServer::configure() const {
    using Configuration = DropboxConfiguration;
    setDefault(Configuration::ApplicationKeyDefault, ApplicationKey);
    setDefault(Configuration::AuthorizeAddressDefault, address(AuthorizePath).toString());
    setDefault(Configuration::TokenAddressDefault, address(tokenPath()).toString());
    setDefault(Configuration::APIAddressDefault, address(APIPath).toString());
    setDefault(Configuration::ContentAddressDefault, address(ContentPath).toString());
}

void DropboxServer::forget() {
    using Configuration = DropboxConfiguration;
    for (const QString &key :
         {Configuration::ApplicationKeyDefault, Configuration::AuthorizeAddressDefault,
          Configuration::TokenAddressDefault, Configuration::APIAddressDefault,
          Configuration::ContentAddressDefault, Configuration::RedirectPortDefault}) {
        removeDefault(key);
    }
}

QUrl DropboxServer::address(const QString &path) const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(m_port).arg(path);
}

QString DropboxServer::email() const {
    const std::lock_guard lock(m_mutex);
    return m_email;
}

void DropboxServer::setEmail(const QString &email) {
    const std::lock_guard lock(m_mutex);
    m_email = email;
}

void DropboxServer::setUser(User user) {
    const std::lock_guard lock(m_mutex);
    m_user = user;
}

void DropboxServer::expireAccessTokens() {
    const std::lock_guard lock(m_mutex);
    m_expiredTokens += m_accessTokens;
    m_accessTokens.clear();
}

void DropboxServer::revokeEverything() {
    const std::lock_guard lock(m_mutex);
    m_accessTokens.clear();
    m_refreshTokens.clear();
}

void DropboxServer::setSecondsToLive(int seconds) {
    const std::lock_guard lock(m_mutex);
    m_secondsToLive = seconds;
}

void DropboxServer::giveNoRefreshTokens() {
    const std::lock_guard lock(m_mutex);
    m_givesRefreshTokens = false;
}

void DropboxServer::setTrouble(const QString &path, Trouble trouble) {
    const std::lock_guard lock(m_mutex);
    m_troubles.insert(path, trouble);
}

void DropboxServer::setAnswer(const QString &path, int status, const QByteArray &body) {
    const std::lock_guard lock(m_mutex);
    m_answers.insert(path, {.status = status, .body = body});
}

void DropboxServer::clearTroubles() {
    const std::lock_guard lock(m_mutex);
    m_troubles.clear();
    m_answers.clear();
    m_limits.clear();
}

void DropboxServer::limitRate(const QString &path, int times, const QByteArray &retryAfter,
                              int status) {
    const std::lock_guard lock(m_mutex);
    m_limits.insert(path, {.times = times, .status = status, .retryAfter = retryAfter});
}

void DropboxServer::setPageSize(qsizetype size) {
    const std::lock_guard lock(m_mutex);
    m_pageSize = size;
}

void DropboxServer::resetNextCursor(const QString &removedPath) {
    const std::lock_guard lock(m_mutex);
    m_removedByReset = removedPath;
}

QMap<QString, QByteArray> DropboxServer::files() const {
    const std::lock_guard lock(m_mutex);
    return m_files;
}

void DropboxServer::putFile(const QString &path, const QByteArray &contents) {
    const std::lock_guard lock(m_mutex);
    m_files.insert(path, contents);
}

void DropboxServer::removeFile(const QString &path) {
    const std::lock_guard lock(m_mutex);
    m_files.remove(path);
}

int DropboxServer::count(const QString &path) const {
    const std::lock_guard lock(m_mutex);
    return m_counts.value(path);
}

QStringList DropboxServer::violations() const {
    const std::lock_guard lock(m_mutex);
    return m_violations;
}

QStringList DropboxServer::secrets() const {
    const std::lock_guard lock(m_mutex);
    return m_secrets;
}

void DropboxServer::serve(QTcpSocket *socket) {
    const auto received = std::make_shared<QByteArray>();
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket, received] {
        *received += socket->readAll();
        while (const std::optional<Request> request = takeRequest(*received)) {
            write(socket, *request);
        }
    });
}

std::optional<DropboxServer::Request> DropboxServer::takeRequest(QByteArray &received) {
    const qsizetype headEnd = received.indexOf("\r\n\r\n");
    if (headEnd < 0) {
        return std::nullopt;
    }
    QByteArrayList lines = received.left(headEnd).split('\n');
    const QByteArrayList first = lines.takeFirst().trimmed().split(' ');
    Request request{.method = first.value(0)};
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
    }
    const qsizetype size = request.headers.value("content-length").toLongLong();
    if (received.size() < headEnd + 4 + size) {
        return std::nullopt;
    }
    const QUrl target = QUrl::fromEncoded(first.value(1));
    request.path = target.path();
    request.query = target.query(QUrl::FullyEncoded);
    request.body = received.mid(headEnd + 4, size);
    received.remove(0, headEnd + 4 + size);
    return request;
}

void DropboxServer::write(QTcpSocket *socket, const Request &request) {
    std::optional<Answer> answer;
    Trouble trouble = Trouble::None;
    {
        const std::lock_guard lock(m_mutex);
        ++m_counts[request.path];
        trouble = m_troubles.value(request.path);
        answer = answerLocked(request);
    }
    if (!answer) {
        return;
    }
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer->status) +
                      " Status\r\nContent-Type: " + answer->type +
                      "\r\nContent-Length: " + QByteArray::number(answer->body.size()) + "\r\n";
    for (const auto &[name, value] : std::as_const(answer->headers)) {
        head += name + ": " + value + "\r\n";
    }
    if (trouble == Trouble::HangsUp) {
        socket->write(head + "\r\n" + answer->body.chopped(1));
        socket->disconnectFromHost();
        return;
    }
    socket->write(head + "\r\n" + answer->body);
    if (request.headers.value("connection") == "close") {
        socket->disconnectFromHost();
    }
}

std::optional<DropboxServer::Answer> DropboxServer::answerLocked(const Request &request) {
    switch (m_troubles.value(request.path)) {
        case Trouble::Stalls:
            return std::nullopt;
        case Trouble::AnswersGarbage:
            return Answer{.body = "<html>\x01 What? </html>"};
        case Trouble::AnswersBesidesTheQuestion:
            return Answer{.body = R"({"entries":{},"has_more":"yes","email":7,"access_token":[]})"};
        case Trouble::BreaksDown:
            return Answer{.status = 500, .body = "Internal Server Error", .type = "text/plain"};
        case Trouble::HangsUp:
        case Trouble::KeepsHalf:
        case Trouble::None:
            break;
    }
    if (const std::optional<Answer> limit = limited(request.path)) {
        return limit;
    }
    if (m_answers.contains(request.path)) {
        return m_answers.value(request.path);
    }
    if (request.path == AuthorizePath) {
        return m_user == User::LooksAway ? std::nullopt : std::optional(authorizePage(request));
    }
    return request.path == tokenPath() ? token(request) : route(request);
}

std::optional<DropboxServer::Answer> DropboxServer::limited(const QString &path) {
    const auto limit = m_limits.find(path);
    if (limit == m_limits.end()) {
        return std::nullopt;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    expect(now >= limit->notBefore, QStringLiteral("%1 was asked for too early").arg(path));
    if (limit->times == 0) {
        return std::nullopt;
    }
    --limit->times;
    limit->notBefore = now + limit->retryAfter.toInt() * 1000;
    Answer answer{.status = limit->status,
                  .body = R"({"error":{"reason":{".tag":"too_many_requests"}}})"};
    if (!limit->retryAfter.isEmpty()) {
        answer.headers.append({"Retry-After", limit->retryAfter});
    }
    return answer;
}

DropboxServer::Answer DropboxServer::authorizePage(const Request &request) {
    const Form parameters = form(request.query.toLatin1());
    const auto value = [&](const char *name) {
        return parameters.value(QString::fromLatin1(name));
    };
    const QString redirectAddress = value("redirect_uri");
    const QStringList names = {QStringLiteral("client_id"),
                               QStringLiteral("code_challenge"),
                               QStringLiteral("code_challenge_method"),
                               QStringLiteral("redirect_uri"),
                               QStringLiteral("response_type"),
                               QStringLiteral("scope"),
                               QStringLiteral("state"),
                               QStringLiteral("token_access_type")};
    const bool isSound =
        request.method == "GET" && parameters.keys() == names &&
        value("client_id") == ApplicationKey && value("response_type") == QStringLiteral("code") &&
        value("code_challenge_method") == QStringLiteral("S256") &&
        matches(value("code_challenge"), "[A-Za-z0-9_-]{43}") &&
        matches(value("state"), "[A-Za-z0-9_-]{22,500}") && value("scope") == Scope &&
        value("token_access_type") == QStringLiteral("offline") &&
        matches(redirectAddress, "http://127\\.0\\.0\\.1:[0-9]{1,5}/dropbox");
    expect(isSound, QStringLiteral("authorize: ") + request.query);
    if (!isSound) {
        return {.status = 400, .body = "This request is not valid.", .type = "text/plain"};
    }
    QUrlQuery query{{QStringLiteral("state"), value("state")}};
    if (m_user == User::SignsIn) {
        const QString code = newSecret();
        m_grants.insert(code, {value("code_challenge"), redirectAddress});
        query.addQueryItem(QStringLiteral("code"), code);
    } else if (m_user == User::Refuses) {
        query.addQueryItem(QStringLiteral("error"), QStringLiteral("access_denied"));
    }
    QUrl target(redirectAddress);
    target.setQuery(query);
    return {.status = 302, .type = "text/plain", .headers = {{"Location", target.toEncoded()}}};
}

DropboxServer::Answer DropboxServer::token(const Request &request) {
    expect(request.method == "POST" && request.query.isEmpty() &&
               request.headers.value("content-type") == "application/x-www-form-urlencoded" &&
               !request.headers.contains("authorization") && !request.headers.contains("cookie"),
           QStringLiteral("token: wrong method or headers"));
    const Form parameters = form(request.body);
    expect(parameters.value(QStringLiteral("client_id")) == ApplicationKey,
           QStringLiteral("token: another application"));
    return parameters.value(QStringLiteral("grant_type")) == QStringLiteral("refresh_token")
               ? tokenForRefreshToken(parameters)
               : tokenForCode(parameters);
}

DropboxServer::Answer DropboxServer::tokenForCode(const Form &form) {
    const QStringList names = {QStringLiteral("client_id"), QStringLiteral("code"),
                               QStringLiteral("code_verifier"), QStringLiteral("grant_type"),
                               QStringLiteral("redirect_uri")};
    const QString verifier = form.value(QStringLiteral("code_verifier"));
    m_secrets.append(verifier);
    // A code is good for one time.
    const Grant grant = m_grants.take(form.value(QStringLiteral("code")));
    const QByteArray challenge =
        QCryptographicHash::hash(verifier.toUtf8(), QCryptographicHash::Sha256)
            .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    const bool isSound =
        form.keys() == names &&
        form.value(QStringLiteral("grant_type")) == QStringLiteral("authorization_code") &&
        matches(verifier, "[A-Za-z0-9._~-]{43,128}") && !grant.challenge.isEmpty() &&
        grant.challenge.toLatin1() == challenge &&
        grant.redirectAddress == form.value(QStringLiteral("redirect_uri"));
    expect(isSound, QStringLiteral("token: code, verifier or redirect address"));
    return isSound ? newTokens(m_givesRefreshTokens)
                   : Answer{.status = 400, .body = R"({"error":"invalid_grant"})"};
}

DropboxServer::Answer DropboxServer::tokenForRefreshToken(const Form &form) {
    const QStringList names = {QStringLiteral("client_id"), QStringLiteral("grant_type"),
                               QStringLiteral("refresh_token")};
    expect(form.keys() == names, QStringLiteral("token: parameters of a refresh"));
    const bool isKnown = m_refreshTokens.contains(form.value(QStringLiteral("refresh_token")));
    return isKnown ? newTokens(false)
                   : Answer{.status = 400, .body = R"({"error":"invalid_grant"})"};
}

DropboxServer::Answer DropboxServer::newTokens(bool withRefreshToken) {
    const QString access = newSecret();
    m_accessTokens.append(access);
    QJsonObject tokens{{QStringLiteral("access_token"), access},
                       {QStringLiteral("token_type"), QStringLiteral("bearer")},
                       {QStringLiteral("expires_in"), m_secondsToLive},
                       {QStringLiteral("scope"), Scope},
                       {QStringLiteral("account_id"), QStringLiteral("dbid:test")}};
    if (withRefreshToken) {
        m_refreshTokens.append(newSecret());
        tokens.insert(QStringLiteral("refresh_token"), m_refreshTokens.last());
    }
    return {.body = json(tokens)};
}

std::optional<DropboxServer::Answer> DropboxServer::unauthorized(const Request &request) {
    const QByteArray header = request.headers.value("authorization");
    const QString access = QString::fromLatin1(header.mid(7));
    expect(header.startsWith("Bearer ") && !request.headers.contains("cookie"),
           request.path + QStringLiteral(": no bearer token"));
    if (m_accessTokens.contains(access)) {
        return std::nullopt;
    }
    const bool isExpired = m_expiredTokens.contains(access);
    return Answer{
        .status = 401,
        .body = json({{QStringLiteral("error"),
                       tagged(isExpired ? "expired_access_token" : "invalid_access_token")}})};
}

DropboxServer::Answer DropboxServer::route(const Request &request) {
    const bool isForContents = request.path.startsWith(ContentPath);
    const QByteArray text = isForContents ? request.headers.value("dropbox-api-arg") : request.body;
    const QByteArray type = isForContents ? "application/octet-stream" : "application/json";
    expect(request.method == "POST" && request.query.isEmpty() &&
               request.headers.value("content-type") == type &&
               (!isForContents || isHeaderText(text)),
           request.path + QStringLiteral(": wrong method or headers"));
    if (const std::optional<Answer> answer = unauthorized(request)) {
        return *answer;
    }
    if (request.path == APIPath + QStringLiteral("/users/get_current_account")) {
        return account(request);
    }
    QJsonParseError error;
    const QJsonObject argument = QJsonDocument::fromJson(text, &error).object();
    expect(error.error == QJsonParseError::NoError, request.path + QStringLiteral(": no JSON"));
    if (request.path == APIPath + QStringLiteral("/files/list_folder")) {
        return listFolder(argument);
    }
    if (request.path == APIPath + QStringLiteral("/files/list_folder/continue")) {
        return continueList(argument);
    }
    if (request.path == APIPath + QStringLiteral("/files/delete_v2")) {
        return remove(argument);
    }
    if (request.path == ContentPath + QStringLiteral("/files/download")) {
        return download(argument, request);
    }
    if (request.path == ContentPath + QStringLiteral("/files/upload")) {
        return upload(argument, request);
    }
    expect(false, QStringLiteral("no such route: ") + request.path);
    return {.status = 404, .type = "text/plain"};
}

DropboxServer::Answer DropboxServer::account(const Request &request) {
    expect(request.body == "null", QStringLiteral("account: an argument"));
    return {.body = json({{QStringLiteral("account_id"), QStringLiteral("dbid:test")},
                          {QStringLiteral("email"), m_email},
                          {QStringLiteral("email_verified"), true}})};
}

DropboxServer::Answer DropboxServer::listFolder(const QJsonObject &argument) {
    const QString folder = argument.value(QStringLiteral("path")).toString();
    expect(argument.keys() == QStringList{QStringLiteral("path")} &&
               matches(folder, "/Velmora\\.qvSyncStore(/[^/]+)*"),
           QStringLiteral("list: arguments"));
    if (m_files.contains(folder)) {
        return failed(pathError("not_folder"));
    }
    if (!isFolder(folder)) {
        return failed(pathError("not_found"));
    }
    QStringList entries;
    for (auto file = m_files.keyBegin(); file != m_files.keyEnd(); ++file) {
        if (file->startsWith(folder + u'/')) {
            entries.append(folder + u'/' + file->mid(folder.size() + 1).section(u'/', 0, 0));
        }
    }
    entries.removeDuplicates();
    return page(entries);
}

DropboxServer::Answer DropboxServer::continueList(const QJsonObject &argument) {
    const QString cursor = argument.value(QStringLiteral("cursor")).toString();
    expect(argument.keys() == QStringList{QStringLiteral("cursor")} && m_cursors.contains(cursor),
           QStringLiteral("continue: no such cursor"));
    if (const auto removed = std::exchange(m_removedByReset, std::nullopt)) {
        m_files.remove(*removed);
        return failed(tagged("reset"));
    }
    return page(m_cursors.take(cursor));
}

DropboxServer::Answer DropboxServer::page(const QStringList &entries) {
    QJsonArray array;
    for (const QString &path : entries.first(std::min(m_pageSize, entries.size()))) {
        QJsonObject entry = tagged(m_files.contains(path) ? "file" : "folder");
        entry.insert(QStringLiteral("name"), lastComponent(path));
        entry.insert(QStringLiteral("path_display"), path);
        array.append(entry);
    }
    const QStringList rest = entries.mid(m_pageSize);
    const QString cursor = QUuid::createUuid().toString();
    m_cursors.insert(cursor, rest);
    return {.body = json({{QStringLiteral("entries"), array},
                          {QStringLiteral("cursor"), cursor},
                          {QStringLiteral("has_more"), !rest.isEmpty()}})};
}

DropboxServer::Answer DropboxServer::download(const QJsonObject &argument, const Request &request) {
    const QString path = argument.value(QStringLiteral("path")).toString();
    expect(argument.keys() == QStringList{QStringLiteral("path")} && request.body.isEmpty(),
           QStringLiteral("download: arguments"));
    if (!m_files.contains(path)) {
        return failed(pathError(isFolder(path) ? "not_file" : "not_found"));
    }
    return {.body = m_files.value(path),
            .type = "application/octet-stream",
            .headers = {{"Dropbox-API-Result", R"({"name":"as asked for"})"}}};
}

DropboxServer::Answer DropboxServer::upload(const QJsonObject &argument, const Request &request) {
    const QString path = argument.value(QStringLiteral("path")).toString();
    const QJsonObject expected{{QStringLiteral("path"), path},
                               {QStringLiteral("mode"), QStringLiteral("add")},
                               {QStringLiteral("autorename"), false},
                               {QStringLiteral("strict_conflict"), true},
                               {QStringLiteral("mute"), true}};
    expect(argument == expected && matches(path, "/Velmora\\.qvSyncStore(/[^/]+)+"),
           QStringLiteral("upload: arguments"));
    if (m_files.contains(path) || isFolder(path)) {
        const QJsonObject reason{
            {QStringLiteral(".tag"), QStringLiteral("conflict")},
            {QStringLiteral("conflict"), tagged(isFolder(path) ? "folder" : "file")}};
        return failed({{QStringLiteral(".tag"), QStringLiteral("path")},
                       {QStringLiteral("reason"), reason},
                       {QStringLiteral("upload_session_id"), QString()}});
    }
    const bool isCut = m_troubles.value(request.path) == Trouble::KeepsHalf;
    m_files.insert(path, isCut ? request.body.first(request.body.size() / 2) : request.body);
    return {.body = json({{QStringLiteral("name"), lastComponent(path)}})};
}

DropboxServer::Answer DropboxServer::remove(const QJsonObject &argument) {
    const QString path = argument.value(QStringLiteral("path")).toString();
    expect(argument.keys() == QStringList{QStringLiteral("path")},
           QStringLiteral("delete: arguments"));
    if (!m_files.contains(path) && !isFolder(path)) {
        return failed({{QStringLiteral(".tag"), QStringLiteral("path_lookup")},
                       {QStringLiteral("path_lookup"), tagged("not_found")}});
    }
    m_files.removeIf([&](const QMap<QString, QByteArray>::iterator &file) {
        return file.key() == path || file.key().startsWith(path + u'/');
    });
    return {.body = json({{QStringLiteral("metadata"), tagged("file")}})};
}

bool DropboxServer::isFolder(const QString &path) const {
    const auto below = m_files.lowerBound(path + u'/');
    return below != m_files.end() && below.key().startsWith(path + u'/');
}

void DropboxServer::expect(bool holds, const QString &violation) {
    if (!holds) {
        m_violations.append(violation);
    }
}

DropboxServer::Form DropboxServer::form(const QByteArray &text) {
    Form result;
    for (const QByteArray &field : text.split('&')) {
        const qsizetype equals = field.indexOf('=');
        const QString name = QUrl::fromPercentEncoding(field.left(equals));
        expect(equals > 0 && !result.contains(name),
               QStringLiteral("a field without a name, or twice"));
        result.insert(name, QUrl::fromPercentEncoding(field.mid(equals + 1).replace('+', ' ')));
    }
    return result;
}

QString DropboxServer::newSecret() {
    m_secrets.append(QUuid::createUuid().toString(QUuid::Id128) +
                     QUuid::createUuid().toString(QUuid::Id128));
    return m_secrets.last();
}

DropboxServer::Answer DropboxServer::failed(const QJsonObject &error) const {
    return {.status = 409,
            .body = json({{QStringLiteral("error"), error},
                          {QStringLiteral("error_summary"), QStringLiteral("not/for/programs")}})};
}
