#pragma once

class QAction;
class QFileDialog;
class QLineEdit;

/// The parts of a QFileDialog of Qt's own design (DontUseNativeDialog) for which it has no
/// functions. Their object names are private to Qt: a part that a version of Qt does not have
/// raises an AssertionFailure. The dialog owns the parts. Must be used on the main thread.
namespace FileDialogParts {

/// Returns the field in which the user types a name.
QLineEdit &nameField(const QFileDialog &dialog);
/// Returns the command that deletes the selected files, in the context menu.
QAction &deleteAction(const QFileDialog &dialog);

}  // namespace FileDialogParts
