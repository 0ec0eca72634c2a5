#include "Platform/Interface/FileDialogParts.h"

#include <QtGui/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>

#include "Platform/Interface/RequiredChild.h"

QLineEdit &FileDialogParts::nameField(const QFileDialog &dialog) {
    return requiredChild<QLineEdit>(dialog, QStringLiteral("fileNameEdit"));
}

QAction &FileDialogParts::deleteAction(const QFileDialog &dialog) {
    return requiredChild<QAction>(dialog, QStringLiteral("qt_delete_action"));
}
