#pragma once

#include <QtWidgets/QDialog>

#include "Platform/PlatformExport.h"

/// The window of a sheet. It does not close by itself: Escape and the window manager's close
/// button only announce that the person wants to leave it.
class PLATFORM_EXPORT SheetWindow : public QDialog {
    Q_OBJECT
public:
    using QDialog::QDialog;

    void reject() override;

Q_SIGNALS:
    void leaving();

protected:
    void closeEvent(QCloseEvent *event) override;
};
