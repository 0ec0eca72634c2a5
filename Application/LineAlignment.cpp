#include "Application/LineAlignment.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>
#include <QtGui/QTextOption>
#include <QtWidgets/QPlainTextEdit>

void alignLines(QPlainTextEdit &view) {
    QTextOption option = view.document()->defaultTextOption();
    option.setAlignment(QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    view.document()->setDefaultTextOption(option);
}
