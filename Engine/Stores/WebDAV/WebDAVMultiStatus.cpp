#include "Engine/Stores/WebDAV/WebDAVMultiStatus.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>
#include <algorithm>
#include <utility>

#include "Engine/Foundation/EngineFuture.h"

namespace {

using Failure = WebDAVMultiStatus::Failure;

constexpr int DeepestNesting = 32;
constexpr qsizetype PieceSize = 4 << 10;

/// Reads a document piece by piece, so that no step of QXmlStreamReader, which takes quadratic time
/// for the attributes of a tag, sees more than a long token.
class MultiStatusReader {
public:
    MultiStatusReader(const QByteArray &document, const EngineFuture &future)
        : m_document(document), m_future(future) {}

    tl::expected<WebDAVMultiStatus, Failure> read() {
        while (m_reader.readNext() != QXmlStreamReader::EndDocument) {
            const bool isAtEndOfPiece =
                m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError;
            if (!(isAtEndOfPiece ? addPiece() : takeToken())) {
                return tl::unexpected(m_failure);
            }
        }
        if (!m_document.mid(m_position).trimmed().isEmpty()) {
            return tl::unexpected(Failure::Invalid);
        }
        return std::move(m_result);
    }

private:
    bool addPiece() {
        m_tokenLength += PieceSize;
        if (m_future.isCancelled()) {
            m_failure = Failure::Cancelled;
            return false;
        }
        if (m_position >= m_document.size() ||
            m_tokenLength > WebDAVMultiStatus::LongestToken + PieceSize) {
            return false;
        }
        const QByteArray piece = m_document.mid(m_position, PieceSize);
        m_position += piece.size();
        m_reader.addData(piece);
        return true;
    }

    bool takeToken() {
        m_tokenLength = 0;
        switch (m_reader.tokenType()) {
            case QXmlStreamReader::StartElement:
                return beginElement();
            case QXmlStreamReader::EndElement:
                endElement();
                return true;
            case QXmlStreamReader::Characters:
                m_text += m_isInText ? m_reader.text() : QStringView();
                return m_text.size() <= WebDAVMultiStatus::LongestToken;
            case QXmlStreamReader::DTD:
            case QXmlStreamReader::EntityReference:
            case QXmlStreamReader::Invalid:
                return false;
            default:
                return true;
        }
    }

    bool beginElement() {
        ++m_depth;
        if (++m_elements > WebDAVMultiStatus::MostElements || m_depth > DeepestNesting ||
            m_isInText || m_reader.attributes().size() > WebDAVMultiStatus::MostAttributes ||
            !declareNamespaces()) {
            return false;
        }
        if (m_depth == 1) {
            return isOfDAV(QLatin1StringView("multistatus"));
        }
        if (m_depth == 2 && isOfDAV(QLatin1StringView("response"))) {
            m_result.resources.append(WebDAVMultiStatus::Resource());
            return m_result.resources.size() <= WebDAVMultiStatus::MostResources &&
                   m_pathLength <= WebDAVMultiStatus::LongestPaths;
        }
        if (!m_result.resources.isEmpty()) {
            const bool isStatus = isOfDAV(QLatin1StringView("status")) && m_depth <= 4;
            m_isInText = isStatus || (m_depth == 3 && isOfDAV(QLatin1StringView("href"))) ||
                         (m_depth == 5 && isOfDAV(QLatin1StringView("getcontentlength")));
            m_hasType |= isOfDAV(QLatin1StringView("resourcetype"));
            m_result.resources.last().isFolder |= isOfDAV(QLatin1StringView("collection"));
        }
        return true;
    }

    bool declareNamespaces() {
        const qsizetype declared = m_reader.namespaceDeclarations().size();
        m_namespaces.append(m_namespaces.value(m_namespaces.size() - 1) + declared);
        return declared <= WebDAVMultiStatus::MostAttributes &&
               m_namespaces.last() <= WebDAVMultiStatus::MostNamespaces;
    }

    void endElement() {
        if (m_isInText) {
            m_isInText = false;
            takeText(m_result.resources.last());
            m_text.clear();
        } else if (m_depth == 3) {
            m_hasType = false;
        }
        m_namespaces.removeLast();
        --m_depth;
    }

    void takeText(WebDAVMultiStatus::Resource &resource) {
        if (m_reader.name() == QLatin1StringView("href")) {
            resource.href = QStringView(m_text).trimmed().toUtf8();
            // Each has room for three times as much.
            resource.href.squeeze();
            m_pathLength += resource.href.size();
        } else if (m_reader.name() == QLatin1StringView("getcontentlength")) {
            resource.size = std::clamp<qint64>(m_text.trimmed().toLongLong(), 0,
                                               WebDAVMultiStatus::LargestSize);
        } else if (m_depth == 3 || m_hasType) {
            // The status of other properties does not matter.
            static const QRegularExpression success(QStringLiteral("^\\s*HTTP/\\S+ 2\\d\\d\\b"));
            resource.isFailed |= !success.match(m_text).hasMatch();
        }
    }

    bool isOfDAV(QLatin1StringView name) const {
        return m_reader.namespaceUri() == QLatin1StringView("DAV:") && m_reader.name() == name;
    }

    const QByteArray &m_document;
    const EngineFuture &m_future;
    QXmlStreamReader m_reader;
    WebDAVMultiStatus m_result;
    /// Why the document is not read to its end.
    Failure m_failure = Failure::Invalid;
    qsizetype m_position = 0;
    qsizetype m_tokenLength = 0;
    qsizetype m_pathLength = 0;
    int m_elements = 0;
    int m_depth = 0;
    /// The number of namespace declarations in scope at each open element.
    QList<qsizetype> m_namespaces;
    /// Whether the text of the current element is used, which is collected in m_text.
    bool m_isInText = false;
    QString m_text;
    /// Whether the current "propstat" contains the resource type.
    bool m_hasType = false;
};

}  // namespace

tl::expected<WebDAVMultiStatus, Failure> WebDAVMultiStatus::parse(const QByteArray &document,
                                                                  const EngineFuture &future) {
    return MultiStatusReader(document, future).read();
}
