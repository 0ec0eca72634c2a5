#pragma once

#include <QtWidgets/QWidget>
#include <memory>

class PreferencePane;

/// A window with a preference pane, from its opening to its closing; then it deletes itself.
class PreferencesWindow : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesWindow(std::unique_ptr<PreferencePane> pane, QWidget *parent = nullptr);
    ~PreferencesWindow() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    const std::unique_ptr<PreferencePane> m_pane;
};
