#pragma once

#include <QtWidgets/QMessageBox>

#include "Platform/PlatformExport.h"

class QDialogButtonBox;

/// A message box that shows its texts as they are, without looking for markup in them, and puts its
/// buttons one below the other if they do not fit side by side. Its buttons get mnemonics. Must be
/// used on the main thread.
class PLATFORM_EXPORT MessageBox : public QMessageBox {
    Q_OBJECT
public:
    /// A box without buttons that has the title of the application. `details` may be empty, and
    /// `parent` null.
    MessageBox(Icon icon, const QString &text, const QString &details, QWidget *parent = nullptr);

    /// Adds a text that the user can unfold, with room for several lines of it.
    void setUnfoldableText(const QString &text);

protected:
    /// Returns the row of buttons, which QMessageBox owns and has no function for.
    QDialogButtonBox &buttonBox() const;
    void showEvent(QShowEvent *event) override;
    bool focusNextPrevChild(bool next) override;
};
