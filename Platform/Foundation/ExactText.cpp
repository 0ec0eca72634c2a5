#include "Platform/Foundation/ExactText.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QStringDecoder>

namespace {

const QByteArray Mark = QByteArrayLiteral("\xEF\xBB\xBF");
const QByteArray EscapedMark = QByteArrayLiteral("\\ufeff");

}  // namespace

QString ExactText::fromUtf8(const QByteArray &UTF8) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(UTF8);
}

QByteArray ExactText::json(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).replace(Mark, EscapedMark);
}

QJsonObject ExactText::objectIn(QByteArray json) {
    // Replacing copies.
    return QJsonDocument::fromJson(json.contains(Mark) ? json.replace(Mark, EscapedMark) : json)
        .object();
}
