#include "Application/CloseKeys.h"

#include <QtGui/QAction>
#include <QtWidgets/QWidget>

void CloseKeys::add(QWidget &window) {
    auto *action = new QAction(&window);
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Close);
    keys.append(QKeySequence(Qt::Key_Escape));
    action->setShortcuts(keys);
    QObject::connect(action, &QAction::triggered, &window, &QWidget::close);
    window.addAction(action);
}
