#include "Platform/Interface/HelpButton.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

#include "Platform/Foundation/Localization.h"

namespace {

/// Invalid if the application has none.
QMetaMethod showFunction() {
    const QMetaObject *application = QCoreApplication::instance()->metaObject();
    return application->method(application->indexOfMethod(HelpButton::ShowFunction));
}

}  // namespace

HelpButton::HelpButton(QWidget *parent) : QToolButton(parent) {
    setText(QStringLiteral("?"));
    setShortcut(QKeySequence::HelpContents);
    // A screen reader's user can also say the text that is shown.
    setAccessibleName(localizedString(PlatformTable, "Help (?)"));
    setToolTip(localizedString(PlatformTable, "Open the guide (%1)")
                   .arg(shortcut().toString(QKeySequence::NativeText)));
    connect(this, &QAbstractButton::clicked, this, &HelpButton::showPage);
    if (!showFunction().isValid()) {
        hide();
    }
}

QSize HelpButton::sizeHint() const {
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = text();
    const QSize contents = fontMetrics().size(Qt::TextShowMnemonic, text());
    const int side = style()->sizeFromContents(QStyle::CT_PushButton, &option, contents).height();
    return QToolButton::sizeHint().expandedTo(QSize(side, side));
}

void HelpButton::showPage() const {
    showFunction().invoke(QCoreApplication::instance(), Q_ARG(QString, m_page));
}
