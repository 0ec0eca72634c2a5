// Any certificate gives a question of bounded length whose lines it cannot forge.

#include <QtCore/QStringList>
#include <QtNetwork/QSslCertificate>

#include "Engine/Stores/Http/CertificateQuestion.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray input = expanded(bytes(data, size));
    QSslCertificate certificate(input, QSsl::Der);
    if (certificate.isNull()) {
        certificate = QSslCertificate(input, QSsl::Pem);
    }
    const Question question = CertificateQuestion::make(QStringLiteral("server"), certificate,
                                                        {QStringLiteral("It is self-signed.")});
    require(question.text.contains(u"server") && question.text.size() < 200,
            "the question names the server");
    const QStringList lines = question.details.split(u'\n');
    require(lines.size() == 6, "the details have as many lines as they have facts");
    for (const QString &line : lines) {
        require(line.size() < 200, "a line is bounded");
        for (const QChar character : line) {
            require(character.isPrint(), "every character is visible");
        }
    }
    return 0;
}
