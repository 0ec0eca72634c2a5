#include "Platform/Interface/PlainText.h"

#include <QtGui/QTextDocument>

QString PlainText::toolTip(const QString &text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}
