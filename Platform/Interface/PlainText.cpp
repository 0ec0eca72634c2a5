#include "Platform/Interface/PlainText.h"

#include <QtGui/QTextDocument>
#include <QtWidgets/QLabel>
#include <algorithm>

namespace {

const QChar Ellipsis(0x2026);

QString shortened(QStringView text, qsizetype longest) {
    return text.size() <= longest ? text.toString() : text.first(longest).toString() + Ellipsis;
}

bool endsLine(QChar character) {
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator;
}

}  // namespace

QString PlainText::message(const QString &text) {
    return text.size() <= LongestMessage ? text : shortened(text, LongestMessage);
}

QString PlainText::toolTip(const QString &text) {
    const QString shown = message(text);
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal)
                                      : shown;
}

QString PlainText::page(const QString &text) {
    const QStringView whole(text);
    QString page;
    qsizetype lines = 0;
    for (qsizetype start = 0; start < whole.size(); ++lines) {
        if (lines == MostLines) {
            page += Ellipsis;
            break;
        }
        const auto *const end = std::find_if(whole.begin() + start, whole.end(),
                                             [](QChar each) { return endsLine(each); });
        const qsizetype length = end - (whole.begin() + start);
        page += shortened(whole.sliced(start, length), LongestLine);
        start += length;
        if (start < whole.size()) {
            page += whole[start++];
        }
    }
    return page;
}

QLabel *PlainText::label(const QString &text) {
    auto *label = new QLabel(message(text));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // A word of any length must not make the window wider.
    label->setMinimumWidth(1);
    return label;
}
