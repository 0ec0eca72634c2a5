// Any response of the token endpoint is refused, or gives tokens that can be sent in a header.

#include <algorithm>

#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QUrl server(QStringLiteral("https://server.example"));
    const auto tokens = DropboxTokens::fromResponse(expanded(bytes(data, size)), server);
    if (tokens) {
        const QByteArray all = tokens->access.toByteArray() + tokens->refresh.toByteArray();
        require(!tokens->access.isEmpty(), "there is a token");
        require(std::all_of(all.begin(), all.end(), [](char c) { return c > ' ' && c < '\x7f'; }),
                "tokens are visible ASCII");
        require(!tokens->expiry.isValid() ||
                    tokens->expiry > QDateTime::currentDateTimeUtc().addSecs(-60),
                "tokens expire in the future");
    } else {
        require(!tokens.error().details.isEmpty(), "an error says what is wrong");
    }
    return 0;
}
