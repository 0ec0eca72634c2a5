// Any request to the redirect address is ignored unless it has the state of the sign-in.

#include "Engine/Stores/Dropbox/DropboxRedirect.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QString state = QStringLiteral("s3cret");
    const QByteArray request = expanded(bytes(data, size));
    const Expected<DropboxRedirect> redirect = DropboxRedirect::parse(request);
    require(!redirect || request.startsWith("GET "), "only GET is a redirect");
    const std::optional<Expected<QString>> result =
        redirect ? redirect->result(state) : std::nullopt;
    if (result) {
        require(!redirect->result(state + u'x'), "another state is ignored");
        require(!*result || !result->value().isEmpty(), "a code is not empty");
    }
    return 0;
}
