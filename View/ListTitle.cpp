#include "View/ListTitle.h"

#include <QtGui/QKeySequence>

ListTitle::ListTitle(QWidget *parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void ListTitle::setTitle(const QString &title) {
    m_title = title;
    const QKeySequence mnemonic = QKeySequence::mnemonic(text());
    QString shown = QString(title).replace(u'&', QStringLiteral("&&"));
    if (!mnemonic.isEmpty()) {
        const auto letter = QChar(static_cast<char16_t>(mnemonic[0].key()));
        const qsizetype place = shown.indexOf(letter, 0, Qt::CaseInsensitive);
        shown =
            place < 0 ? shown + QStringLiteral(" (&%1)").arg(letter) : shown.insert(place, u'&');
    }
    setText(shown);
}
