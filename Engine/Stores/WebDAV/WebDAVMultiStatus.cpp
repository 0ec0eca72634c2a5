#include "Engine/Stores/WebDAV/WebDAVMultiStatus.h"

#include <QtCore/QXmlStreamReader>

namespace {

constexpr int DeepestNesting = 32;

bool isOfDAV(const QXmlStreamReader &reader, QLatin1StringView name) {
    return reader.namespaceUri() == QLatin1StringView("DAV:") && reader.name() == name;
}

}  // namespace

std::optional<WebDAVMultiStatus> WebDAVMultiStatus::parse(const QByteArray &document) {
    QXmlStreamReader reader(document);
    WebDAVMultiStatus result;
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        const bool isHostile = token == QXmlStreamReader::DTD ||
                               token == QXmlStreamReader::EntityReference || depth > DeepestNesting;
        if (isHostile) {
            return {};
        }
        if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
        if (token != QXmlStreamReader::StartElement) {
            continue;
        }
        ++depth;
        if (depth == 1 && !isOfDAV(reader, QLatin1StringView("multistatus"))) {
            return {};
        }
        if (depth == 2 && isOfDAV(reader, QLatin1StringView("response"))) {
            result.resources.append(Resource());
        } else if (result.resources.isEmpty()) {
            continue;
        } else if (depth == 3 && isOfDAV(reader, QLatin1StringView("href"))) {
            result.resources.last().href = reader.readElementText().trimmed();
            --depth;
        } else if (isOfDAV(reader, QLatin1StringView("collection"))) {
            result.resources.last().isFolder = true;
        }
    }
    return reader.hasError() || depth != 0 ? std::nullopt : std::optional(result);
}
