#include "Platform/Foundation/TerminalText.h"

#include <QtCore/QList>
#include <cerrno>
#include <cstdio>

#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/SystemError.h"

namespace {

constexpr char32_t FirstStrongIsolate = U'\x2068';
constexpr char32_t PopDirectionalIsolate = U'\x2069';

bool isShownAsItIs(char32_t character) {
    // Texts in languages from right to left have them around names, whose order they keep.
    if (character == FirstStrongIsolate || character == PopDirectionalIsolate) {
        return true;
    }
    switch (QChar::category(character)) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return false;
        default:
            return true;
    }
}

QString escaped(char32_t character) {
    QString result;
    for (const char16_t unit : QChar::fromUcs4(character)) {
        result += QStringLiteral("\\u%1").arg(QString::number(unit, 16).toUpper(), 4, u'0');
    }
    return result;
}

QString escapedText(const QString &text, bool keepsLineFeeds) {
    QString result;
    for (const char32_t character : text.toUcs4()) {
        const bool isKept = isShownAsItIs(character) || (keepsLineFeeds && character == U'\n');
        result += isKept ? QString::fromUcs4(&character, 1) : escaped(character);
    }
    return result;
}

}  // namespace

QString TerminalText::line(const QString &text) {
    return escapedText(text, false);
}

QString TerminalText::lines(const QString &text) {
    return escapedText(text, true);
}

Expected<void> TerminalText::print(const QString &text) {
    if (std::fputs(lines(text).toUtf8().constData(), stdout) >= 0 && std::fflush(stdout) == 0) {
        return {};
    }
    const int number = errno;
    return failure(systemError(
        number, localizedString(PlatformTable,
                                "The output could not be written. Check the disk or the program "
                                "that receives it, then try again.")));
}

void TerminalText::printError(const QString &text) {
    std::fprintf(stderr, "%s\n", qPrintable(line(text)));
}
