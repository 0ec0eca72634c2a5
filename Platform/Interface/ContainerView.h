#pragma once

#include <QtWidgets/QWidget>

#include "Platform/PlatformExport.h"

/// Placeholder in a form for a view from elsewhere. Its size hints are those of the largest child,
/// and every child gets the container's whole rectangle. Children that are added or change their
/// size hint update the geometry of the container. Must not be given a layout. Must be used on the
/// main thread.
class PLATFORM_EXPORT ContainerView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// These are (0, 0) without children. Hidden children count.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Wrapped texts of a child may need more height if it is narrow. Both consider the layouts of
    /// the children; hidden children count.
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
