// Whatever is typed into the WebDAV sheet gives no URL or one that shows the same again.

#include <QtCore/QList>
#include <QtCore/QRegularExpression>

#include "Controller/Preferences/QVWebDAVLocationEditor.h"
#include "Fuzz/FuzzInput.h"

namespace {

const QRegularExpression NotInBareHost(QStringLiteral("[/?#:@\\[\\]%]"));

using Fields = QVWebDAVLocationEditor::Fields;

void require(bool isTrue, const char *what, const Url &URL) {
    if (!isTrue) {
        std::fprintf(stderr, "%s: %s\n", what, qPrintable(URL.absoluteString()));
        std::abort();
    }
}

/// The input is one byte for the check box, then the texts of the fields, each ended by a NUL.
Fields fieldsOf(const QByteArray &input) {
    const QList<QByteArray> texts = input.mid(1).split('\0');
    const auto text = [&](int index) { return QString::fromUtf8(texts.value(index)); };
    return {.isHTTPS = !input.isEmpty() && input.front() % 2 != 0,
            .server = text(0),
            .user = text(1),
            .path = text(2),
            .store = text(3),
            .port = text(4)};
}

/// Whether every text stays in the part of the URL that it was typed for: "?" ends the path, a host
/// may bring a port or a path of its own along, and "." is no segment.
bool keepsItsParts(const Fields &fields) {
    const QString host = QVWebDAVLocationEditor::sanitizeHost(Url::hostInURL(fields.server));
    const bool isBareHost = !host.isEmpty() && host != u"." && !host.contains(NotInBareHost);
    return isBareHost && !fields.path.contains(u'?') && !fields.store.contains(u'?') &&
           !fields.store.contains(u'/') && !fields.store.isEmpty();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const Fields fields = fieldsOf(FuzzInput::expanded(FuzzInput::bytes(data, size)));
    const Url URL = QVWebDAVLocationEditor::URLWithFields(fields);
    if (URL.isNil()) {
        return 0;
    }
    require(URL.scheme() == (fields.isHTTPS ? u"https" : u"http"), "scheme", URL);
    const Fields shown = QVWebDAVLocationEditor::fieldsOfURL(URL);
    if (keepsItsParts(fields)) {
        require(URL.user() == fields.user, "user", URL);
        require(shown.server == QVWebDAVLocationEditor::sanitizeHost(Url::hostInURL(fields.server)),
                "host", URL);
        require(shown.store == fields.store, "store", URL);
    }
    // What is shown gives the same URL again, as long as nothing is lost behind a "?".
    Fields again = shown;
    again.user = URL.user();
    if (!URL.absoluteString().contains(u'?') && !URL.absoluteString().contains(u'#') &&
        keepsItsParts(again) && keepsItsParts(fields)) {
        require(QVWebDAVLocationEditor::URLWithFields(again) == URL, "shown again", URL);
    }
    return 0;
}
