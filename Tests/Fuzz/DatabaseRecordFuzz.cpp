// Any record of a database is refused, or has a name that encodes to the same record again.

#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/Operation.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QString UUID = QStringLiteral("c0ffee00-0000-4000-8000-000000000001");
    const Expected<QString> name =
        DatabaseRecord::name(expanded(bytes(data, size)), UUID, QStringLiteral("record"));
    if (name) {
        require(Operation::isName(*name), "a name is not blank and not too long");
        require(DatabaseRecord::name(DatabaseRecord::encoded(UUID, *name), UUID, {}) == *name,
                "encoding undoes decoding");
    }
    return 0;
}
