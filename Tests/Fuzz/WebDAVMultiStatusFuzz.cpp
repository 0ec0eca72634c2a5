// Any body of a response to PROPFIND is refused, or gives no more resources than its bytes can
// hold.

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/WebDAV/WebDAVMultiStatus.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray document = expanded(bytes(data, size));
    EngineFuture future;
    const auto listing = WebDAVMultiStatus::parse(document, future);
    if (listing) {
        qsizetype length = 0;
        for (const WebDAVMultiStatus::Resource &resource : listing->resources) {
            const qsizetype characters = QString::fromUtf8(resource.href).size();
            length += characters + 1;
            require(characters <= WebDAVMultiStatus::LongestToken, "a name is bounded");
        }
        require(length <= document.size(), "names are part of the document");
    }
    future.cancel();
    require(document.size() < (4 << 10) || !WebDAVMultiStatus::parse(document, future),
            "a cancelled document has no result");
    return 0;
}
