#include "Platform/Interface/PackagePanel.h"

#include <QtCore/QDir>
#include <QtGui/QAction>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "Platform/Interface/FileDialogParts.h"

PackagePanel::PackagePanel(Purpose purpose, const QString &extension)
    : QFileDialog(QApplication::activeWindow()), m_purpose(purpose), m_ending(u'.' + extension) {
    // Native panels would enter a package like any other folder.
    setOption(DontUseNativeDialog);
    setAcceptMode(purpose == Purpose::Save ? AcceptSave : AcceptOpen);
    setFileMode(purpose == Purpose::Save ? AnyFile : Directory);
    setOption(ShowDirsOnly, purpose == Purpose::Open);
    preventDeletion();
}

void PackagePanel::preventDeletion() {
    if (m_purpose == Purpose::Open) {
        setOption(ReadOnly);
        return;
    }
    // New folders can be created here.
    FileDialogParts::deleteAction(*this).setVisible(false);
    for (QShortcut *shortcut : findChildren<QShortcut *>()) {
        if (shortcut->key() == QKeySequence(Qt::Key_Delete)) {
            shortcut->setEnabled(false);
        }
    }
}

Url PackagePanel::URL() const {
    return Url::fileURL(chosenPath());
}

// QFileDialog would enter an existing folder; a package is chosen instead. This also applies to
// saving, where creating a package of an existing name then fails with an error message.
void PackagePanel::accept() {
    const QString path = chosenPath();
    if (path.endsWith(m_ending) && (m_purpose == Purpose::Save || QDir(path).exists())) {
        done(Accepted);
    } else {
        setDirectory(path);
    }
}

QString PackagePanel::chosenPath() const {
    const QString path = QDir::cleanPath(selectedFiles().value(0, directory().path()));
    const bool needsEnding = m_purpose == Purpose::Save && !path.endsWith(m_ending) &&
                             (!QDir(path).exists() || isTyped(path));
    return needsEnding ? path + m_ending : path;
}

bool PackagePanel::isTyped(const QString &path) const {
    const QString typedName = FileDialogParts::nameField(*this).text().section(u'/', -1);
    return !typedName.isEmpty() && typedName == path.section(u'/', -1);
}
