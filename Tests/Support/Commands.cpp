#include "Support/Commands.h"

#include <unistd.h>

QString nextCommand() {
    QByteArray line;
    char character = 0;
    while (read(STDIN_FILENO, &character, 1) == 1) {
        if (character == '\n') {
            return QString::fromUtf8(line);
        }
        line.append(character);
    }
    return QStringLiteral("end");
}
