#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QtPlugin>
#include <QtWidgets/QWidget>
#include <memory>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// A pane of the application's preferences. The application creates and owns it, calls
/// loadMainView() once, shows the view, and notifies the pane each time it is shown and left. Must
/// be used on the main thread.
class PLATFORM_EXPORT PreferencePane : public QObject {
    Q_OBJECT
public:
    /// `info` is the information dictionary (metadata) of the plug-in that contains the pane.
    explicit PreferencePane(QJsonObject info);
    /// Deletes the view unless its window has done so.
    ~PreferencePane() override;

    /// Returns the name of the pane's form, which must be registered with Nib.
    virtual QString mainNibName() const = 0;
    /// Called by loadMainView() when the form is loaded and the outlets are set.
    virtual void awakeFromNib() {}
    /// Called each time before the pane is shown. Must not block. The view is loaded by then.
    virtual void willSelect() {}
    /// Called each time before the pane is left. Not called if the pane is destroyed without being
    /// left.
    virtual void willDeselect() {}

    /// Loads the form named by mainNibName() and calls awakeFromNib(). Must be called once. Raises
    /// an AssertionFailure if the form cannot be loaded.
    void loadMainView();
    /// Returns the view; null until it is loaded and after it was deleted. The pane owns it, also
    /// while a window is its parent.
    QWidget *mainView() const { return m_mainView; }
    /// Returns what the constructor received. Valid as long as the pane.
    const QJsonObject &info() const { return m_info; }

protected:
    /// Deletes the view. Destructors of panes call it while their own members, to which the view is
    /// bound, still exist. Idempotent.
    void discardMainView();

private:
    const QJsonObject m_info;
    QPointer<QWidget> m_mainView;
};

/// The root object of a plug-in that contains a pane. Owned by the plug-in loader; must be used on
/// the main thread.
class PreferencePanePlugIn {
public:
    virtual ~PreferencePanePlugIn() = default;

    /// Returns a new pane, never null, which must be destroyed before the plug-in is unloaded, or
    /// an error if something it needs is missing.
    virtual Expected<std::unique_ptr<PreferencePane>> makePreferencePane(
        const QJsonObject &info) = 0;
};

/// Identifies the interface of such a plug-in, for Q_PLUGIN_METADATA.
#define PreferencePanePlugIn_iid "PreferencePanePlugIn/1"
Q_DECLARE_INTERFACE(PreferencePanePlugIn, PreferencePanePlugIn_iid)
