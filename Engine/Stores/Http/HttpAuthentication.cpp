#include "Engine/Stores/Http/HttpAuthentication.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QRandomGenerator>
#include <algorithm>
#include <cstring>

namespace {

bool isTokenCharacter(char character) {
    return QChar::isLetterOrNumber(static_cast<uchar>(character)) ||
           (character != '\0' && std::strchr("!#$%&'*+-.^_`|~", character));
}

bool isToken68Character(char character) {
    return isTokenCharacter(character) || character == '/';
}

/// A quoted string (RFC 9110, section 5.6.4).
QByteArray quoted(const QByteArray &text) {
    return '"' + QByteArray(text).replace('\\', "\\\\").replace('"', "\\\"") + '"';
}

/// Returns whether a quoted string may contain `bytes` (RFC 9110, section 5.6.4).
bool isText(const QByteArray &bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char character) {
        const auto code = static_cast<uchar>(character);
        return character == '\t' || (code >= ' ' && code != 0x7f);
    });
}

bool hasControlCharacter(const QString &text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.category() == QChar::Other_Control;
    });
}

QByteArray randomClientNonce() {
    QByteArray bytes(16, '\0');
    auto *const generator = QRandomGenerator::system();
    generator->generate(bytes.begin(), bytes.end());
    return bytes.toHex();
}

}  // namespace

struct HttpAuthentication::Challenge {
    /// In lower case, as are the names of the parameters.
    QByteArray scheme;
    QHash<QByteArray, QByteArray> parameters;
};

/// Reads a list of challenges (RFC 9110, section 11.6.1) up to the first syntax error.
class HttpAuthentication::Parser {
public:
    explicit Parser(const QByteArray &text) : m_text(text) {}

    QList<Challenge> challenges() {
        QList<Challenge> result;
        while (true) {
            skip(" \t,");
            const QByteArray name = token().toLower();
            if (name.isEmpty()) {
                return result;
            }
            skip(" \t");
            if (current() != '=') {
                result.append({name, {}});
                skipToken68();
            } else if (result.isEmpty()) {
                return result;
            } else {
                ++m_position;
                skip(" \t");
                result.last().parameters.insert(name, value());
            }
        }
    }

private:
    char current() const { return m_position < m_text.size() ? m_text.at(m_position) : '\0'; }

    void skip(const char *characters) {
        while (current() != '\0' && std::strchr(characters, current())) {
            ++m_position;
        }
    }

    QByteArray token() {
        const qsizetype start = m_position;
        while (isTokenCharacter(current())) {
            ++m_position;
        }
        return m_text.mid(start, m_position - start);
    }

    /// Skips the data of a scheme that has no parameters, such as NTLM.
    void skipToken68() {
        const qsizetype start = m_position;
        while (isToken68Character(current())) {
            ++m_position;
        }
        skip("=");
        skip(" \t");
        if (current() != ',' && m_position < m_text.size()) {
            m_position = start;
        }
    }

    QByteArray value() {
        if (current() != '"') {
            return token();
        }
        QByteArray result = "";
        for (++m_position; m_position < m_text.size() && current() != '"'; ++m_position) {
            if (current() == '\\') {
                ++m_position;
            }
            if (m_position < m_text.size()) {
                result += current();
            }
        }
        ++m_position;
        return result;
    }

    const QByteArray m_text;
    qsizetype m_position = 0;
};

std::optional<HttpAuthentication> HttpAuthentication::fromChallenges(const QByteArray &challenges) {
    std::optional<HttpAuthentication> best;
    for (const Challenge &challenge : Parser(challenges).challenges()) {
        const std::optional<Digest> digest = digestOf(challenge);
        const bool isStronger = !best || !best->m_digest ||
                                (best->m_digest->algorithm == QCryptographicHash::Md5 && digest &&
                                 digest->algorithm == QCryptographicHash::Sha256);
        if (digest && isStronger) {
            best = HttpAuthentication(digest);
        } else if (challenge.scheme == "basic" && !best) {
            best = HttpAuthentication(std::nullopt);
        }
    }
    return best;
}

std::optional<HttpAuthentication::Digest> HttpAuthentication::digestOf(const Challenge &challenge) {
    const auto value = [&](const char *name) { return challenge.parameters.value(name); };
    const QByteArray algorithm = value("algorithm").toLower();
    const bool isSha256 = algorithm == "sha-256";
    const bool isMd5 = algorithm == "md5" || algorithm.isNull();
    const QByteArrayList protections = value("qop").toLower().replace(' ', "").split(',');
    if (challenge.scheme != "digest" || !(isSha256 || isMd5) || !protections.contains("auth") ||
        value("nonce").isEmpty() || value("realm").isNull()) {
        return {};
    }
    // These are sent back, and must not end the header line.
    if (!isText(value("realm")) || !isText(value("nonce")) || !isText(value("opaque"))) {
        return {};
    }
    return Digest{isSha256 ? QCryptographicHash::Sha256 : QCryptographicHash::Md5, value("realm"),
                  value("nonce"), value("opaque")};
}

std::optional<SecretBytes> HttpAuthentication::authorization(const UrlCredential &credential,
                                                             const QByteArray &method,
                                                             const QByteArray &target) {
    return authorization(credential, method, target, randomClientNonce());
}

std::optional<SecretBytes> HttpAuthentication::authorization(const UrlCredential &credential,
                                                             const QByteArray &method,
                                                             const QByteArray &target,
                                                             const QByteArray &clientNonce) {
    if (hasControlCharacter(credential.user) || (!m_digest && credential.user.contains(u':'))) {
        return {};
    }
    return m_digest ? digestAuthorization(credential, method, target, clientNonce)
                    : basicAuthorization(credential);
}

SecretBytes HttpAuthentication::basicAuthorization(const UrlCredential &credential) {
    QByteArray plain = credential.user.toUtf8() + ':';
    plain.append(credential.password.view());
    QByteArray encoded = plain.toBase64();
    QByteArray value = "Basic " + encoded;
    SecretBytes result(value);
    for (QByteArray *bytes : {&plain, &encoded, &value}) {
        SecretBytes::wipe(*bytes);
    }
    return result;
}

SecretBytes HttpAuthentication::digestAuthorization(const UrlCredential &credential,
                                                    const QByteArray &method,
                                                    const QByteArray &target,
                                                    const QByteArray &clientNonce) {
    const QByteArray user = credential.user.toUtf8();
    const auto hash = [this](const QByteArray &text) {
        return QCryptographicHash::hash(text, m_digest->algorithm).toHex();
    };
    const QByteArray count = QByteArray::number(++m_digest->nonceCount, 16).rightJustified(8, '0');
    QByteArray login = user + ':' + m_digest->realm + ':';
    login.append(credential.password.view());
    const QByteArray loginHash = hash(login);
    SecretBytes::wipe(login);
    const QByteArray response = hash(loginHash + ':' + m_digest->nonce + ':' + count + ':' +
                                     clientNonce + ":auth:" + hash(method + ':' + target));
    const bool isSha256 = m_digest->algorithm == QCryptographicHash::Sha256;
    QByteArray result =
        "Digest username=" + quoted(user) + ", realm=" + quoted(m_digest->realm) +
        ", uri=" + quoted(target) + ", algorithm=" + (isSha256 ? "SHA-256" : "MD5") +
        ", nonce=" + quoted(m_digest->nonce) + ", nc=" + count + ", cnonce=" + quoted(clientNonce) +
        ", qop=auth, response=\"" + response + '"';
    if (!m_digest->opaque.isNull()) {
        result += ", opaque=" + quoted(m_digest->opaque);
    }
    return result;
}
