#pragma once

#include "Controller/Preferences/QVSyncLocationEditor.h"

/// Edits a folder location: a sync store package, a folder with the extension "qvSyncStore" that
/// contains the folders "databases" and "transactions". The user chooses packages in save and open
/// panels; the sheet only shows the choice. Must be used on the main thread.
class QVFolderLocationEditor : public QVSyncLocationEditor {
    Q_OBJECT
    /// The path of the chosen package; empty if there is none.
    Q_PROPERTY(QString packagePath READ packagePath NOTIFY packagePathChanged)
    /// Whether the location has a URL.
    Q_PROPERTY(bool hasPackage READ hasPackage NOTIFY hasPackageChanged)
public:
    /// Returns a new editor of `location`, which must not be null. Never null. Loads no window yet.
    static std::shared_ptr<QVFolderLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);

    /// Runs a save panel and creates an empty package at the path chosen. Blocks in a nested event
    /// loop until the panel closes, and then for a few disk writes. If the package cannot be
    /// created, presents the error and does not change the location. `handler`, which may be empty,
    /// is called with 1 before this returns, also after such an error; it is not called if the user
    /// cancels. Creating it fails if anything of that name exists.
    void createFolderWithCompletionHandler(const CompletionHandler &handler);
    /// Runs an open panel and sets the location's URL to the package chosen. The package's contents
    /// are not checked. `handler` is called as by createFolderWithCompletionHandler(). Only names
    /// with the extension can be chosen.
    void selectFolderWithCompletionHandler(const CompletionHandler &handler);

    /// The path without percent encoding; that of the location's URL, regardless of its scheme.
    QString packagePath() const { return location()->URL().path(); }
    bool hasPackage() const { return !location()->URL().isNil(); }

    /// Dependencies of the derived keys, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingPackagePath() {
        return {"location.URL"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHasPackage() {
        return {"location.URL"};
    }

public Q_SLOTS:
    /// Actions of the sheet's buttons: the functions above without a handler. The sheet stays open
    /// and shows the new path. `sender` is not used.
    void createFolder(QObject *sender);
    void selectFolder(QObject *sender);

Q_SIGNALS:
    /// Emitted when the location's URL is announced.
    void packagePathChanged();
    void hasPackageChanged();

private:
    explicit QVFolderLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    /// Sets the location's URL and asks the host to keep access to the package; the host presents
    /// an error of that.
    void setPackage(const Url &URL);
};
