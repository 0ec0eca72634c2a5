#include "Platform/Interface/Control.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include "Platform/Interface/ListPalette.h"

namespace {
constexpr char backgroundStyleProperty[] = "backgroundStyle";

/// Makes the colors of the views in `control` their own, so that they do not inherit others.
void keepOwnPalettes(const QWidget *control) {
    for (QWidget *view : control->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        QPalette own = view->palette();
        own.setResolveMask(~QPalette::ResolveMask{0});
        view->setPalette(own);
    }
}
}  // namespace

bool Control::isControl(const QWidget *view) {
    return qobject_cast<const Control *>(view) || qobject_cast<const QLabel *>(view) ||
           qobject_cast<const QAbstractButton *>(view) || qobject_cast<const QLineEdit *>(view) ||
           qobject_cast<const QAbstractSpinBox *>(view) || qobject_cast<const QComboBox *>(view);
}

void Control::setBackgroundStyle(QWidget *control, BackgroundStyle style) {
    keepOwnPalettes(control);
    control->setProperty(backgroundStyleProperty, static_cast<int>(style));
    control->setPalette(style == BackgroundStyle::Dark ? ListPalette::selected()
                                                       : ListPalette::normal());
}

Control::BackgroundStyle Control::backgroundStyle(const QWidget *control) {
    return static_cast<BackgroundStyle>(control->property(backgroundStyleProperty).toInt());
}
