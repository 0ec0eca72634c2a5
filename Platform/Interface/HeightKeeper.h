#pragma once

#include <QtCore/QObject>

#include "Platform/PlatformExport.h"

class QWidget;

/// Keeps a window at least as high as its layout needs at its present width. Qt by itself neither
/// enlarges a window if a wrapped text gets more lines, nor prevents the user from making it too
/// low for that text, so that widgets overlap. Must be used on the main thread.
class PLATFORM_EXPORT HeightKeeper : public QObject {
    Q_OBJECT
public:
    /// `window`, which must not be null, owns this object.
    explicit HeightKeeper(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *const m_window;
};
