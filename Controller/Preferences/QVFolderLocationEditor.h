#pragma once

#include "Controller/Preferences/QVSyncLocationEditor.h"

/// Edits a folder location: a sync-store package, which is a folder with the extension
/// "qvSyncStore" that holds the folders "databases" and "transactions". Save and open panels do
/// the choosing; the sheet only shows what was chosen.
class QVFolderLocationEditor : public QVSyncLocationEditor {
    Q_OBJECT
    /// Empty while no package was chosen.
    Q_PROPERTY(QString packagePath READ packagePath NOTIFY packagePathChanged)
    Q_PROPERTY(bool hasPackage READ hasPackage NOTIFY hasPackageChanged)
public:
    static std::shared_ptr<QVFolderLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);

    /// Makes a new, empty package where the person says. The result is 1 whenever they have
    /// confirmed, whether or not the package could be made; an error is presented. `handler` is not
    /// called when they cancel.
    void createFolderWithCompletionHandler(const CompletionHandler &handler);
    /// Lets the person choose an existing package; what is in it is not looked at. `handler` is not
    /// called when they cancel.
    void selectFolderWithCompletionHandler(const CompletionHandler &handler);

    QString packagePath() const { return location()->URL().path(); }
    bool hasPackage() const { return !location()->URL().isNil(); }

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingPackagePath() {
        return {"location.URL"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHasPackage() {
        return {"location.URL"};
    }

public Q_SLOTS:
    void createFolder(QObject *sender);
    void selectFolder(QObject *sender);

Q_SIGNALS:
    void packagePathChanged();
    void hasPackageChanged();

private:
    explicit QVFolderLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    void setPackage(const Url &URL);
};
