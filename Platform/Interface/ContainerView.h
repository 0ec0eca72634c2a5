#pragma once

#include <QtWidgets/QWidget>

#include "Platform/PlatformExport.h"

/// A place for a view that comes from elsewhere: it asks for as much room as that view, and makes
/// it follow its own size.
class PLATFORM_EXPORT ContainerView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
