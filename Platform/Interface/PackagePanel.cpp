#include "Platform/Interface/PackagePanel.h"

#include <QtCore/QDir>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

PackagePanel::PackagePanel(Purpose purpose, const QString &extension)
    : QFileDialog(QApplication::activeWindow()), m_purpose(purpose), m_ending(u'.' + extension) {
    // The desktop's own panels would enter a package like any other folder.
    setOption(DontUseNativeDialog);
    setAcceptMode(purpose == Purpose::Save ? AcceptSave : AcceptOpen);
    setFileMode(purpose == Purpose::Save ? AnyFile : Directory);
    setOption(ShowDirsOnly, purpose == Purpose::Open);
}

Url PackagePanel::URL() const {
    return Url::fileURL(chosenPath());
}

// A name of an existing folder would be entered by the dialog; a package is chosen instead, also
// where it is in the way of a new one, so that saving over it fails in words.
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
    const auto *nameField = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    const QString typedName = nameField ? nameField->text().section(u'/', -1) : QString();
    return !typedName.isEmpty() && typedName == path.section(u'/', -1);
}
