#pragma once

#include <QtWidgets/QFileDialog>

#include "Platform/Foundation/Url.h"
#include "Platform/PlatformExport.h"

/// A save or open panel for packages: folders with a given extension that are shown to the user as
/// files. exec() runs a nested event loop and returns 1 if the user has chosen, 0 if the panel was
/// cancelled. Its parent is the active window. Must be used on the main thread.
class PLATFORM_EXPORT PackagePanel : public QFileDialog {
    Q_OBJECT
public:
    /// What the panel asks for.
    enum class Purpose {
        /// The name of a new package; the panel appends the extension. It also accepts the name of
        /// an existing package, so saving must not overwrite one unasked.
        Save,
        /// An existing package. Other folders are entered, not chosen.
        Open
    };

    /// `extension` is without the point and compared with case.
    PackagePanel(Purpose purpose, const QString &extension);

    /// Returns the file URL of the chosen package, including the extension. Another process may
    /// have created or removed the package in the meantime.
    Url URL() const;

protected:
    /// Ends the panel if a package is chosen; otherwise enters the folder.
    void accept() override;

private:
    /// Lets the user neither delete nor, in an open panel, rename files: the dialog's own question
    /// shows the name of a file as rich text.
    void preventDeletion();
    QString chosenPath() const;
    /// Returns whether the name field contains the last component of `path`. A name that ends in a
    /// slash, and "..", enter a folder instead.
    bool isTyped(const QString &path) const;

    const Purpose m_purpose;
    const QString m_ending;
};
