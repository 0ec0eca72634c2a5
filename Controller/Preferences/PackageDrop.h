#pragma once

#include <QtCore/QObject>
#include <functional>

#include "Platform/Foundation/Url.h"

class QMimeData;
class QWidget;

/// Lets the user drop sync stores of a file manager onto a widget. Must be used on the main thread.
class PackageDrop : public QObject {
    Q_OBJECT
public:
    /// Called with the file URL of each sync store, in their order.
    using Handler = std::function<void(const Url &)>;

    /// `target` owns this object and must not be null. Anything but folders that have the extension
    /// of sync stores is refused.
    PackageDrop(QWidget *target, Handler handler);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QList<Url> packagesIn(const QMimeData &data);

    const Handler m_handler;
};
