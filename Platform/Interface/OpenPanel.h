#pragma once

#include <QtWidgets/QFileDialog>

#include "Platform/Foundation/Url.h"
#include "Platform/PlatformExport.h"

/// A panel in which the user chooses one existing file or folder. exec() runs a nested event loop
/// and returns 1 if the user has chosen, 0 if the panel was cancelled. Must be used on the main
/// thread.
class PLATFORM_EXPORT OpenPanel : public QFileDialog {
    Q_OBJECT
public:
    /// `message` is the title and says what to choose. `parent` owns the panel; it may be null.
    /// Files cannot be deleted or renamed in the panel.
    OpenPanel(const QString &message, QWidget *parent);

    /// Returns the file URL of the item chosen. If none is, that of the folder shown. The item
    /// existed when it was chosen, but may have been removed since.
    Url URL() const;

protected:
    /// Accepts a folder instead of entering it, as QFileDialog would do. Ignored for an item that
    /// does not exist.
    void accept() override;

private:
    QString chosenPath() const;
};
