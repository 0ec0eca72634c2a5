// Any text is no URL, or one whose parts come from it and whose password is not shown.

#include "Fuzz/FuzzInput.h"
#include "Platform/Foundation/Url.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QString text = QString::fromUtf8(expanded(bytes(data, size)));
    const Url URL = Url::fromString(text);
    if (URL.isNil()) {
        require(URL.host().isEmpty() && URL.user().isEmpty() && URL.path().isEmpty() &&
                    !URL.port() && URL.stringWithoutPassword().isEmpty(),
                "all parts of a nil URL are empty");
        return 0;
    }
    require(URL.absoluteString() == text, "a URL keeps its text");
    require(text.startsWith(URL.scheme() + u':'), "the scheme is what precedes the colon");
    require(URL.path() == u"/" || !URL.path().endsWith(u'/'), "a path does not end with a slash");
    const QString shown = URL.stringWithoutPassword();
    const Url shownURL = Url::fromString(shown);
    require(shown.size() <= text.size() && !shownURL.isNil(), "what is shown is a URL");
    require(shownURL.host() == URL.host() && shownURL.user() == URL.user() &&
                shownURL.port() == URL.port() && shownURL.path() == URL.path(),
            "only the password is not shown");
    require(shownURL.stringWithoutPassword() == shown, "nothing is left to hide");
    return 0;
}
