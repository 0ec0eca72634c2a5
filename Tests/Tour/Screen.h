#pragma once

#include <QtCore/QStringList>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

/// What a user sees of this process. A widget is named by its object name, its accessible name or,
/// without the mnemonic, its text. Must be used on the main thread.
namespace Screen {

/// Returns the windows, the frontmost last.
QList<QWidget *> windows();

/// Returns the window with this title; null if there is none.
QWidget *window(const QString &title);
/// Raises a window and its child windows.
void turnTo(QWidget *window);

/// Returns the widget of this name in `parent`. If that is null, searches the modal window, or the
/// frontmost window that contains the name. Returns null if there is none, or if there are several
/// in that window.
QWidget *widget(const QString &name, QWidget *parent = nullptr);
/// Returns the same as `Type`; null also if the widget has another class.
template <class Type>
Type *as(const QString &name, QWidget *parent = nullptr) {
    return qobject_cast<Type *>(widget(name, parent));
}

/// Returns the names shown by the rows of a list of the panel, from top to bottom.
QStringList rows(const QString &list);
/// Returns the first row with this name; null if there is none.
QWidget *row(const QString &list, const QString &name);

/// Returns all visible texts.
QStringList texts();
/// Returns an image of `stack`, the frontmost window last, on a plain desktop.
QImage picture(const QList<QWidget *> &stack = windows());

QString withoutMnemonic(QString text);

}  // namespace Screen
