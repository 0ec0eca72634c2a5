// Any page of a listing is refused, or names its successor if there is one.

#include "Engine/Stores/Dropbox/DropboxListingPage.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QUrl server(QStringLiteral("https://server.example"));
    const auto page = DropboxListingPage::parse(expanded(bytes(data, size)), server);
    if (page) {
        require(!page->hasMore || !page->cursor.isEmpty(), "there is a cursor if there is more");
        require(page->memory() >= page->names.size(), "names take memory");
    } else {
        require(!page.error().details.isEmpty(), "an error says what is wrong");
    }
    return 0;
}
