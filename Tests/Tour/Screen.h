#pragma once

#include <QtCore/QStringList>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

/// What a person sees of this process. A widget is named by its object name, its accessible name
/// or, without the mnemonic, its text. Main thread.
namespace Screen {

/// The windows, the one in front last.
QList<QWidget *> windows();

/// nullptr where none has that title.
QWidget *window(const QString &title);
/// Brings a window, with what belongs to it, to the front.
void turnTo(QWidget *window);

/// In `parent` or, unless it is set, in the modal window, or in the window nearest to the front
/// that has one. nullptr where there is none, and where there are several in that window.
QWidget *widget(const QString &name, QWidget *parent = nullptr);
/// The same as `Type`; nullptr also where it is none.
template <class Type>
Type *as(const QString &name, QWidget *parent = nullptr) {
    return qobject_cast<Type *>(widget(name, parent));
}

/// What the rows of a list of the panel show as their names, from top to bottom.
QStringList rows(const QString &list);
/// nullptr where there is none; the first where there are several.
QWidget *row(const QString &list, const QString &name);

/// Every text that can be read.
QStringList texts();
/// All windows as they lie over each other, on a plain desktop.
QImage picture();

QString withoutMnemonic(QString text);

}  // namespace Screen
