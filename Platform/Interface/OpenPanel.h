#pragma once

#include <QtWidgets/QFileDialog>

#include "Platform/Foundation/Url.h"
#include "Platform/PlatformExport.h"

/// Asks for one thing that exists, a file or a folder. Its result is 1 where the person has chosen.
/// Main thread.
class PLATFORM_EXPORT OpenPanel : public QFileDialog {
    Q_OBJECT
public:
    /// `message` says what for.
    OpenPanel(const QString &message, QWidget *parent);

    /// The file URL of what was chosen.
    Url URL() const;

protected:
    void accept() override;

private:
    QString chosenPath() const;
};
