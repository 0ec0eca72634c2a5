#include "Platform/Interface/OpenPanel.h"

#include <QtCore/QDir>
#include <QtWidgets/QLineEdit>

#include "Platform/Interface/RequiredChild.h"

OpenPanel::OpenPanel(const QString &message, QWidget *parent) : QFileDialog(parent, message) {
    // The desktop's own panels choose either files or folders.
    setOption(DontUseNativeDialog);
    setFileMode(ExistingFile);
    connect(this, &QFileDialog::currentChanged, this, [this](const QString &path) {
        // The dialog names only files by itself.
        if (QFileInfo(path).isDir()) {
            requiredChild<QLineEdit>(*this, QStringLiteral("fileNameEdit"))
                .setText(QFileInfo(path).fileName());
        }
    });
}

Url OpenPanel::URL() const {
    return Url::fileURL(chosenPath());
}

// A folder would be entered by the dialog; that is what a double click is for.
void OpenPanel::accept() {
    if (QFileInfo::exists(chosenPath())) {
        done(Accepted);
    }
}

QString OpenPanel::chosenPath() const {
    return QDir::cleanPath(selectedFiles().value(0, directory().path()));
}
