// Any challenge is refused, or answered by a single header line of the scheme that it names.

#include <algorithm>

#include "Engine/Stores/Http/HttpAuthentication.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    auto authentication = HttpAuthentication::fromChallenges(expanded(bytes(data, size)));
    if (!authentication) {
        return 0;
    }
    const UrlCredential credential{QStringLiteral("kim \"quoted\\"), QStringLiteral("p4ss")};
    const auto answer = authentication->authorization(credential, "PROPFIND", "/a?b", "nonce");
    if (answer) {
        const QByteArray line = answer->toByteArray();
        const bool isBasic = authentication->scheme() == HttpAuthentication::Scheme::Basic;
        require(line.startsWith(isBasic ? "Basic " : "Digest "), "the scheme is the chosen one");
        require(std::none_of(line.begin(), line.end(),
                             [](char c) { return c == '\r' || c == '\n' || c == '\0'; }),
                "the answer is one line");
        require(isBasic || !line.contains("p4ss"), "the password is not sent with Digest");
    }
    return 0;
}
