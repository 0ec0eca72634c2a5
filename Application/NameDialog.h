#pragma once

#include <QtWidgets/QInputDialog>
#include <optional>

/// Asks for a name. Must be used on the main thread.
class NameDialog : public QInputDialog {
    Q_OBJECT
public:
    /// `label` is the text above the field, which contains `name` at first.
    NameDialog(const QString &title, const QString &label, const QString &name, QWidget *parent);

    /// Runs a nested event loop until the user decides. Returns no name if the user cancels.
    std::optional<QString> ask();

protected:
    /// Gives the buttons mnemonics.
    void showEvent(QShowEvent *event) override;
};
