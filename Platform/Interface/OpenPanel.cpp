#include "Platform/Interface/OpenPanel.h"

#include <QtCore/QDir>
#include <QtWidgets/QLineEdit>

#include "Platform/Interface/FileDialogParts.h"

OpenPanel::OpenPanel(const QString &message, QWidget *parent) : QFileDialog(parent, message) {
    // Native panels choose either files or folders.
    setOption(DontUseNativeDialog);
    setFileMode(ExistingFile);
    // The dialog's own question before it deletes a file would show the name as rich text.
    setOption(ReadOnly);
    connect(this, &QFileDialog::currentChanged, this, [this](const QString &path) {
        // The dialog itself fills in names of files only.
        if (QFileInfo(path).isDir()) {
            FileDialogParts::nameField(*this).setText(QFileInfo(path).fileName());
        }
    });
}

Url OpenPanel::URL() const {
    return Url::fileURL(chosenPath());
}

// QFileDialog would enter a folder. A double click still does.
void OpenPanel::accept() {
    if (QFileInfo::exists(chosenPath())) {
        done(Accepted);
    }
}

QString OpenPanel::chosenPath() const {
    return QDir::cleanPath(selectedFiles().value(0, directory().path()));
}
