#include "Controller/Preferences/PackageDrop.h"

#include <QtCore/QDir>
#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtWidgets/QWidget>

#include "Host/SyncStoreLayout.h"

PackageDrop::PackageDrop(QWidget *target, Handler handler)
    : QObject(target), m_handler(std::move(handler)) {
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

bool PackageDrop::eventFilter(QObject *watched, QEvent *event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) {
        return QObject::eventFilter(watched, event);
    }
    auto *drop = static_cast<QDropEvent *>(event);
    const QList<Url> packages = packagesIn(*drop->mimeData());
    if (packages.isEmpty()) {
        drop->ignore();
        return true;
    }
    // The file manager must not remove what it has "moved".
    drop->setDropAction(drop->possibleActions().testFlag(Qt::LinkAction) ? Qt::LinkAction
                                                                         : Qt::CopyAction);
    drop->accept();
    if (type == QEvent::Drop) {
        for (const Url &package : packages) {
            m_handler(package);
        }
    }
    return true;
}

QList<Url> PackageDrop::packagesIn(const QMimeData &data) {
    QList<Url> packages;
    const QList<QUrl> dropped = data.urls();
    for (const QUrl &URL : dropped) {
        const QFileInfo file(QDir::cleanPath(URL.toLocalFile()));
        if (URL.isLocalFile() && file.isDir() && file.suffix() == SyncStoreLayout::Extension) {
            packages.append(Url::fileURL(file.filePath()));
        }
    }
    return packages;
}
