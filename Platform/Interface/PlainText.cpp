#include "Platform/Interface/PlainText.h"

#include <QtGui/QTextDocument>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>

QString PlainText::toolTip(const QString &text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

void PlainText::setTexts(QMessageBox *box, const QString &text, const QString &informativeText) {
    // The box makes its second label with the text, and sets the format of the first one only.
    box->setInformativeText(QStringLiteral(" "));
    for (QLabel *label : box->findChildren<QLabel *>()) {
        label->setTextFormat(Qt::PlainText);
    }
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setInformativeText(informativeText);
}
