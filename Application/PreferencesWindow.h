#pragma once

#include <QtWidgets/QWidget>
#include <memory>

class PreferencePane;

/// A window that shows a preference pane. It deletes itself when it is closed. Must be used on the
/// main thread.
class PreferencesWindow : public QWidget {
    Q_OBJECT
public:
    /// Takes ownership of `pane`, which must not be null, loads its view and selects it.
    explicit PreferencesWindow(std::unique_ptr<PreferencePane> pane, QWidget *parent = nullptr);
    ~PreferencesWindow() override;

protected:
    /// Deselects the pane, which saves its settings.
    void closeEvent(QCloseEvent *event) override;

private:
    const std::unique_ptr<PreferencePane> m_pane;
};
