// Any message of a direct connection is refused, or is a map within the limits, which encodes to a
// message with the same meaning.

#include <QtCore/QCborArray>

#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Fuzz/FuzzInput.h"

using namespace DirectConnectionMessage;
using namespace FuzzInput;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray body = expanded(bytes(data, size));
    const Expected<Received> message = decode(body, ResponseMemory);
    if (!message) {
        require(!message.error().localizedDescription.isEmpty(), "an error says what is wrong");
        return 0;
    }
    require(encode(message->values).size() <= ResponseMemory + MostMembers * LongestKey,
            "the memory for values is bounded");
    require(message->contents.value_or(QByteArray()).size() <= body.size(),
            "contents are part of the message");
    // What the stores and sessions read of it.
    QStringList names;
    const QCborArray found = message->values[Names].toArray();
    for (const QCborValue name : found) {
        names.append(name.toString());
    }
    QCborMap values = message->values;
    if (message->contents) {
        values[Contents] = *message->contents;
    }
    const QByteArray bytes = encode(values);
    require(length(bytes) == bytes.size() - LengthSize, "the length is that of the body");
    const Expected<Received> again = decode(bytes.mid(LengthSize), ResponseMemory);
    require(again && again->contents == message->contents, "encoding undoes decoding");
    return 0;
}
