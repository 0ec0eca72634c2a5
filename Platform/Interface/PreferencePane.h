#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QtPlugin>
#include <QtWidgets/QWidget>
#include <memory>
#include <optional>

#include "Platform/Foundation/Error.h"
#include "Platform/PlatformExport.h"

/// A pane of the application's preferences. The application makes it, calls `loadMainView` once,
/// shows the view, and tells the pane each time it is shown and left. Main thread.
class PLATFORM_EXPORT PreferencePane : public QObject {
    Q_OBJECT
public:
    /// `info`: the information dictionary of the plug-in that the pane comes from.
    explicit PreferencePane(QJsonObject info);
    ~PreferencePane() override;

    virtual QString mainNibName() const = 0;
    /// The interface has just been loaded and the outlets are set.
    virtual void awakeFromNib() {}
    /// Called each time before the pane is shown, and before it is left.
    virtual void willSelect() {}
    virtual void willDeselect() {}

    /// Loads the nib named by `mainNibName` and awakes the pane.
    void loadMainView();
    /// nullptr until it is loaded. It belongs to the pane, also while a window shows it.
    QWidget *mainView() const { return m_mainView; }
    const QJsonObject &info() const { return m_info; }

protected:
    /// For the destructors of panes: deletes the view while the pane is still whole.
    void discardMainView();

private:
    const QJsonObject m_info;
    QPointer<QWidget> m_mainView;
};

/// The root object of a plug-in that holds a pane.
class PreferencePanePlugIn {
public:
    virtual ~PreferencePanePlugIn() = default;

    /// A new pane. nullptr where something it needs is missing; `error` then says what.
    virtual std::unique_ptr<PreferencePane> makePreferencePane(const QJsonObject &info,
                                                               std::optional<Error> *error) = 0;
};

#define PreferencePanePlugIn_iid "PreferencePanePlugIn/1"
Q_DECLARE_INTERFACE(PreferencePanePlugIn, PreferencePanePlugIn_iid)
