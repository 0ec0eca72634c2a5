#pragma once

#include <QtWidgets/QFileDialog>

#include "Platform/Foundation/Url.h"
#include "Platform/PlatformExport.h"

/// A save or open panel for packages: folders that the person takes for files, told by their
/// extension. Run it with `exec`, which answers 1 where the person has chosen. Main thread.
class PLATFORM_EXPORT PackagePanel : public QFileDialog {
    Q_OBJECT
public:
    enum class Purpose {
        Save,  ///< asks for the name of a new package and appends the extension itself
        Open   ///< asks for an existing package and takes nothing else
    };

    /// `extension` without a point.
    PackagePanel(Purpose purpose, const QString &extension);

    /// The file URL of the package chosen.
    Url URL() const;

protected:
    void accept() override;

private:
    QString chosenPath() const;
    /// Whether the name field holds the name at the end of `path`. A name that ends in a slash, or
    /// "..", enters a folder.
    bool isTyped(const QString &path) const;

    const Purpose m_purpose;
    const QString m_ending;
};
