#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <functional>

#include "Platform/PlatformExport.h"

class QObject;
class QWidget;

/// Interface files: Designer forms that carry, besides their widgets, how these are connected.
///
/// A form's dynamic properties say so:
/// - `objects` (string list, on the form itself): further objects that the form makes, as "name
///   class". One that has an operation "awakeFromNib" is sent it when all is connected.
/// - `bindings` (string list, on any widget or action): "key <- path" makes the key follow the
///   path, "key <-> path" also writes back what the person changes; "| name" at the end names a
///   ValueTransformer. On the form itself "object.key" binds a key of one of its `objects`.
/// - `itemNib` (string, on a list): the form of its rows. The list's "itemPrototype" becomes an
///   item whose views are made from it, with the same owner, and in which "item" names the model
///   of the row's CollectionViewItem.
/// - `menu` (string): the form's QMenu that a button opens, or a secondary click on any other
///   widget.
/// - `validation` (string, on an action of a menu): the path whose value enables the action. It is
///   read each time the menu is about to open.
/// - `action` (string): what a button, action or control sends: "path.method" gives the method the
///   sender, if it wants an argument; "path.method(path)" gives it the value at a path.
/// - `tableDelegate` (string, on a table view): the object that is its delegate.
/// - `textDidChange` (string, on a text field): what the field sends, written like an `action`,
///   each time the person has changed its text.
/// A path begins with the name of an object: "owner", one of the form's objects or widgets, or one
/// that the caller of `load` names.
///
/// An outlet is a writable property of the owner with the name of a widget or object of the form.
/// A name that does not exist raises an AssertionFailure while the form is loaded. Main thread.
namespace Nib {

using Objects = QHash<QString, QObject *>;

/// Makes the form's widgets, without a parent.
using Form = std::function<QWidget *()>;
PLATFORM_EXPORT void registerForm(const QString &nibName, const Form &makeForm);

/// Makes an object of a class that forms name in `objects`; it gets the form as its parent.
using ObjectFactory = std::function<QObject *(QObject *parent)>;
PLATFORM_EXPORT void registerClass(const QString &className, const ObjectFactory &makeObject);

/// Makes the widgets and the `objects` of the form of that name, without connecting them. The
/// caller owns the form, which has no parent.
PLATFORM_EXPORT QWidget *makeForm(const QString &nibName);

/// Makes the form of that name and connects it: outlets and prototypes first, then bindings, then
/// actions. The
/// caller owns what it gets. The owner is not awakened; that is for the caller to do.
PLATFORM_EXPORT QWidget *load(const QString &nibName, QObject *owner, const Objects &named = {});

/// Registers a form that uic has made for a `FormWidget`.
template <class UiForm, class FormWidget>
void registerUiForm(const QString &nibName) {
    registerForm(nibName, [] {
        auto *widget = new FormWidget;
        UiForm().setupUi(widget);
        return widget;
    });
}

}  // namespace Nib
