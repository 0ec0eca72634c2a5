#pragma once

#include <QtCore/QObject>
#include <functional>

#include "Platform/Foundation/Url.h"

class QMimeData;
class QWidget;

/// Lets the user drop sync stores of a file manager onto a widget, which then accepts drops. Must
/// be used on the main thread.
class PackageDrop : public QObject {
    Q_OBJECT
public:
    /// Called with the file URL of each sync store, in their order, when they are dropped. It may
    /// show a sheet, and must not destroy the widget.
    using Handler = std::function<void(const Url &)>;

    /// `target` owns this object and must not be null. Anything but folders that have the extension
    /// of sync stores is refused; whether they can be used is for `handler` to find out, which must
    /// not be empty.
    PackageDrop(QWidget *target, Handler handler);

    /// Handles the drag and drop events of the widget, and no others. Blocks for the file system.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Returns the file URLs of the sync stores in `data`, without anything else that is in it.
    static QList<Url> packagesIn(const QMimeData &data);

    const Handler m_handler;
};
