#pragma once

#include <QtWidgets/QWidget>
#include <memory>

class PreferencePane;

/// A window that shows a preference pane. It deletes itself when it is closed. Must be used on the
/// main thread.
class PreferencesWindow : public QWidget {
    Q_OBJECT
public:
    /// Takes ownership of `pane`, which must not be null, loads its view and selects it. The window
    /// is not shown yet. Raises an AssertionFailure if the form of the pane cannot be loaded.
    explicit PreferencesWindow(std::unique_ptr<PreferencePane> pane, QWidget *parent = nullptr);
    /// Destroys the pane. Does not deselect it, so a window that was not closed has not saved
    /// everything.
    ~PreferencesWindow() override;

protected:
    /// Deselects the pane, which saves its settings and may present an error; the window closes in
    /// any case.
    void closeEvent(QCloseEvent *event) override;

private:
    const std::unique_ptr<PreferencePane> m_pane;
};
