#include "Platform/Interface/MessageBox.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QTextEdit>

#include "Platform/Interface/Mnemonics.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/RequiredChild.h"

MessageBox::MessageBox(Icon icon, const QString &text, const QString &details, QWidget *parent)
    : QMessageBox(icon, QGuiApplication::applicationDisplayName(), {}, NoButton, parent) {
    // Creates the second label, whose format setTextFormat() does not set.
    setInformativeText(QStringLiteral(" "));
    for (QLabel *label : findChildren<QLabel *>()) {
        label->setTextFormat(Qt::PlainText);
    }
    setTextFormat(Qt::PlainText);
    setText(PlainText::message(text));
    setInformativeText(PlainText::message(details));
}

void MessageBox::setUnfoldableText(const QString &text) {
    setDetailedText(PlainText::page(text));
    // Qt's height has room for few lines of a large font.
    constexpr int Lines = 6;
    auto &view = requiredChild<QTextEdit>(*this, QString());
    view.setMinimumHeight(qMax(view.sizeHint().height(), Lines * view.fontMetrics().lineSpacing()));
}

QDialogButtonBox &MessageBox::buttonBox() const {
    return requiredChild<QDialogButtonBox>(*this, QString());
}

void MessageBox::showEvent(QShowEvent *event) {
    Mnemonics::assign(*this);
    QMessageBox::showEvent(event);
    if (layout()->minimumSize().width() > width()) {
        buttonBox().setOrientation(Qt::Vertical);
        buttonBox().setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        for (QAbstractButton *button : buttons()) {
            button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        }
        // The box fits its fixed size to the layout on this event only.
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(this, &request);
    }
}

// Whenever Qt arranges the row of buttons, it makes the first button the focus proxy of the row,
// which is somewhere between the buttons in the focus chain. Tab would go from there to the first
// button again, so that it never reached the ones behind.
bool MessageBox::focusNextPrevChild(bool next) {
    buttonBox().setFocusProxy(nullptr);
    return QMessageBox::focusNextPrevChild(next);
}
