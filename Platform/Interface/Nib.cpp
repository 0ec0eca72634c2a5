#include "Platform/Interface/Nib.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtGui/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>
#include <memory>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/BindableView.h"
#include "Platform/Interface/CollectionViewItem.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/Interface/Control.h"
#include "Platform/Interface/MessageBox.h"
#include "Platform/Interface/NibConnections.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/ValueTransformer.h"

namespace {

/// Converts a text to the part of it that widgets show.
class ShownText : public ValueTransformer {
public:
    /// Returns its name as a transformer.
    static QString name() {
        static const QString name = [] {
            QString registered = QStringLiteral("ShownText");
            setTransformerForName(std::make_unique<ShownText>(), registered);
            return registered;
        }();
        return name;
    }

    QMetaType transformedValueClass() const override { return QMetaType::fromType<QString>(); }
    QVariant transformedValue(const QVariant &value) const override {
        return value.metaType() == transformedValueClass() ? PlainText::message(value.toString())
                                                           : value;
    }
};

/// Returns whether a widget only shows the text of `binding`, whose target is `key` of `target`.
bool showsText(const QObject *target, const QByteArray &key, const NibBinding &binding) {
    const QMetaObject *meta = target->metaObject();
    return target->isWidgetType() && binding.direction == KeyValue::Direction::FromModel &&
           meta->property(meta->indexOfProperty(key.constData())).metaType() ==
               QMetaType::fromType<QString>();
}

QHash<QString, Nib::Form> &forms() {
    static QHash<QString, Nib::Form> all;
    return all;
}

QHash<QString, Nib::ObjectFactory> &classes() {
    static QHash<QString, Nib::ObjectFactory> all;
    return all;
}

[[noreturn]] void fail(const QString &message) {
    failAssertion(message, "Nib::load", "Platform/Interface/Nib");
}

/// Returns the parsed binding. Cached, since the rows of a list repeat the same texts.
const NibBinding &parsedBinding(const QString &text) {
    static QHash<QString, NibBinding> parsed;
    auto found = parsed.find(text);
    if (found == parsed.end()) {
        found = parsed.insert(text, NibBinding::parse(text));
    }
    return *found;
}

const NibAction &parsedAction(const QString &text) {
    static QHash<QString, NibAction> parsed;
    auto found = parsed.find(text);
    if (found == parsed.end()) {
        found = parsed.insert(text, NibAction::parse(text));
    }
    return *found;
}

/// Calls the method of `action` when its parent, the sender, is triggered.
class ActionSender : public QObject {
public:
    ActionSender(QObject *sender, const NibAction &action, QObject *target, QObject *argument)
        : QObject(sender), m_action(action), m_target(target), m_argument(argument) {}

    /// Sends the action, after the user has confirmed it if the sender has a question.
    void trigger() {
        const QString question = parent()->property("confirmation").toString();
        auto *button = qobject_cast<QAbstractButton *>(parent());
        if (question.isEmpty() || !button) {
            send();
        } else {
            confirm(question, button);
        }
    }

    void send() { send(argument()); }

private:
    void send(const QVariant &sent) {
        QObject *receiver = m_target;
        if (receiver && !m_action.target.keyPath.isEmpty()) {
            receiver = KeyValue::objectValue(KeyValue::value(receiver, m_action.target.keyPath));
        }
        if (receiver) {
            invoke(receiver, sent);
        }
    }

    /// What is sent is what the question names, also if something else has taken its place
    /// meanwhile.
    void confirm(const QString &question, const QAbstractButton *button) {
        const QVariant sent = argument();
        const QPointer<QObject> object = sent.value<QObject *>();
        auto *box = new MessageBox(QMessageBox::Question, question.arg(sent.toString()),
                                   button->toolTip(), button->window());
        box->addButton(QMessageBox::Cancel);
        box->setAttribute(Qt::WA_DeleteOnClose);
        const QPushButton *accept = box->addButton(button->text(), QMessageBox::AcceptRole);
        box->setDefaultButton(QMessageBox::Cancel);
        connect(box, &QDialog::finished, this,
                [this, box, accept, sent, object, wasObject = !object.isNull()] {
                    const bool isThere = object || !wasObject;
                    if (box->clickedButton() == accept && isThere) {
                        send(sent);
                    }
                });
        box->open();
    }

    QVariant argument() const {
        if (m_action.argument.object.isEmpty()) {
            return QVariant::fromValue(parent());
        }
        if (m_action.argument.keyPath.isEmpty()) {
            return QVariant::fromValue(m_argument.data());
        }
        return m_argument ? KeyValue::value(m_argument, m_action.argument.keyPath) : QVariant();
    }

    void invoke(QObject *receiver, const QVariant &sent) const {
        const QMetaObject *meta = receiver->metaObject();
        for (int i = meta->methodCount() - 1; i >= 0; --i) {
            const QMetaMethod method = meta->method(i);
            if (method.name() != m_action.method || method.parameterCount() > 1) {
                continue;
            }
            if (method.parameterCount() == 0) {
                method.invoke(receiver, Qt::DirectConnection);
                return;
            }
            QVariant value = sent;
            if (value.metaType() != method.parameterMetaType(0) &&
                !value.convert(method.parameterMetaType(0))) {
                break;
            }
            // As the method declares it, which may be by an alias of the type.
            const QByteArray typeName = method.parameterTypeName(0);
            if (!method.invoke(receiver, Qt::DirectConnection,
                               QGenericArgument(typeName.constData(), value.constData()))) {
                break;
            }
            return;
        }
        fail(QStringLiteral("%1 has no operation \"%2\" for what a form sends")
                 .arg(QLatin1StringView(meta->className()), QString::fromUtf8(m_action.method)));
    }

    const NibAction m_action;
    const QPointer<QObject> m_target;
    const QPointer<QObject> m_argument;
};

void makeObjects(QWidget *form) {
    const QStringList declarations = form->property("objects").toStringList();
    for (const QString &declaration : declarations) {
        const QString className = declaration.section(u' ', 1);
        const auto makeObject = classes().value(className);
        if (!makeObject) {
            fail(
                QStringLiteral("No class \"%1\" is registered for a form's object").arg(className));
        }
        makeObject(form)->setObjectName(declaration.section(u' ', 0, 0));
    }
}

/// Connects one newly created form.
class Connector {
public:
    Connector(QWidget *form, QObject *owner, const Nib::Objects &named)
        : m_form(form), m_objects(named) {
        m_objects.insert(QStringLiteral("owner"), owner);
        m_parts = m_form->findChildren<QObject *>();
        m_parts.prepend(m_form);
        for (QObject *part : std::as_const(m_parts)) {
            if (!part->objectName().isEmpty()) {
                m_objects.insert(part->objectName(), part);
            }
        }
    }

    void connect() {
        QObject *owner = m_objects.value(QStringLiteral("owner"));
        for (QObject *part : std::as_const(m_parts)) {
            require(part == m_form || part->property("objects").isNull(), part,
                    "objects, but is not the form");
            setOutlet(owner, part);
            setItemPrototype(owner, part);
            setMenu(part);
            setTableDelegate(part);
        }
        for (QObject *part : std::as_const(m_parts)) {
            const QStringList bindings = part->property("bindings").toStringList();
            for (const QString &binding : bindings) {
                bind(part, parsedBinding(binding));
            }
        }
        for (QObject *part : std::as_const(m_parts)) {
            if (const QString action = part->property("action").toString(); !action.isEmpty()) {
                connectAction(part, parsedAction(action));
            }
            checkConfirmation(part);
            connectTextChanges(part);
            connectValidation(part);
        }
        awakeObjects();
    }

private:
    void awakeObjects() const {
        const QStringList declarations = m_form->property("objects").toStringList();
        for (const QString &declaration : declarations) {
            QObject *made = object(declaration.section(u' ', 0, 0));
            const int index = made->metaObject()->indexOfMethod("awakeFromNib()");
            made->metaObject()->method(index).invoke(made, Qt::DirectConnection);
        }
    }

    static void setOutlet(QObject *owner, QObject *part) {
        const QByteArray name = part->objectName().toUtf8();
        const int index =
            name.isEmpty() ? -1 : owner->metaObject()->indexOfProperty(name.constData());
        if (index >= 0 && owner->metaObject()->property(index).isWritable()) {
            KeyValue::setValue(owner, name, QVariant::fromValue(part));
        }
    }

    static void setItemPrototype(QObject *owner, QObject *part) {
        const QString nibName = part->property("itemNib").toString();
        const QString nameKeyPath = part->property("itemName").toString();
        if (nibName.isEmpty()) {
            require(nameKeyPath.isEmpty(), part, "a name for items, but no form of them");
            return;
        }
        const auto prototype =
            std::make_shared<CollectionViewItem>([nibName, owner](CollectionViewItem *item) {
                return Nib::load(nibName, owner, {{QStringLiteral("item"), item}});
            });
        prototype->setNameKeyPath(nameKeyPath.toUtf8());
        KeyValue::setValue(part, "itemPrototype", QVariant::fromValue(prototype));
    }

    void setMenu(QObject *part) const {
        const QString name = part->property("menu").toString();
        if (name.isEmpty()) {
            return;
        }
        auto *menu = qobject_cast<QMenu *>(object(name));
        auto *view = qobject_cast<QWidget *>(part);
        require(menu && view, part, "a menu that is none, or that it cannot open");
        if (auto *button = qobject_cast<QPushButton *>(part)) {
            button->setMenu(menu);
        } else if (auto *toolButton = qobject_cast<QToolButton *>(part)) {
            toolButton->setMenu(menu);
        } else {
            ContextMenu::setMenu(view, menu);
        }
    }

    void setTableDelegate(QObject *part) const {
        const QString name = part->property("tableDelegate").toString();
        if (name.isEmpty()) {
            return;
        }
        auto *table = qobject_cast<TableView *>(part);
        auto *delegate = dynamic_cast<TableViewDelegate *>(object(name));
        require(table && delegate, part, "a delegate of tables that is none, or is no table");
        table->setTableDelegate(delegate);
    }

    QObject *object(const QString &name) const {
        const auto found = m_objects.constFind(name);
        if (found == m_objects.constEnd()) {
            fail(QStringLiteral("A form names an object \"%1\" that is not there").arg(name));
        }
        return *found;
    }

    void bind(QObject *part, const NibBinding &binding) const {
        QObject *target = part;
        QByteArray key = binding.key;
        if (const auto point = key.indexOf('.'); point >= 0) {
            target = object(QString::fromUtf8(key.left(point)));
            key = key.mid(point + 1);
        }
        QVariantMap options;
        const QString transformer = binding.transformer.isEmpty() && showsText(target, key, binding)
                                        ? ShownText::name()
                                        : binding.transformer;
        if (!transformer.isEmpty()) {
            options.insert(QLatin1StringView(KeyValue::valueTransformerNameOption), transformer);
        }
        QObject *observed = object(binding.path.object);
        if (auto *view = dynamic_cast<BindableView *>(target)) {
            view->bind(key, observed, binding.path.keyPath, options);
        } else {
            KeyValue::bind(target, key, observed, binding.path.keyPath, options, binding.direction);
        }
    }

    ActionSender *makeSender(QObject *part, const NibAction &action) const {
        QObject *argument =
            action.argument.object.isEmpty() ? nullptr : object(action.argument.object);
        return new ActionSender(part, action, object(action.target.object), argument);
    }

    void connectTextChanges(QObject *part) const {
        const QString action = part->property("textDidChange").toString();
        if (action.isEmpty()) {
            return;
        }
        auto *field = qobject_cast<QLineEdit *>(part);
        require(field, part, "a call for changes of its text, but is no text field");
        auto *sender = makeSender(field, parsedAction(action));
        QObject::connect(field, &QLineEdit::textEdited, sender, [sender] { sender->send(); });
    }

    void connectValidation(QObject *part) const {
        const QString text = part->property("validation").toString();
        if (text.isEmpty()) {
            return;
        }
        auto *menuItem = qobject_cast<QAction *>(part);
        QList<QMenu *> menus = m_form->findChildren<QMenu *>();
        menus.removeIf([=](const QMenu *menu) { return !menu->actions().contains(menuItem); });
        require(!menus.isEmpty(), part, "a validation, but is in no menu");
        const NibPath path = NibPath::parse(text);
        const QPointer<QObject> observed = object(path.object);
        for (const QMenu *menu : std::as_const(menus)) {
            QObject::connect(menu, &QMenu::aboutToShow, menuItem, [=] {
                menuItem->setEnabled(observed && isTrue(KeyValue::value(observed, path.keyPath)));
            });
        }
    }

    static void checkConfirmation(const QObject *part) {
        const bool canAsk = qobject_cast<const QAbstractButton *>(part) &&
                            !part->property("action").toString().isEmpty();
        require(canAsk || part->property("confirmation").toString().isEmpty(), part,
                "a confirmation, but is no button with an action");
    }

    /// Fails with what `part` has, unless it may have that.
    static void require(bool isPossible, const QObject *part, const char *what) {
        if (!isPossible) {
            fail(QStringLiteral("\"%1\" has %2").arg(part->objectName(), QLatin1StringView(what)));
        }
    }

    static bool isTrue(const QVariant &value) {
        return value.metaType() == QMetaType::fromType<bool>() ? value.toBool()
                                                               : !KeyValue::isAbsent(value);
    }

    void connectAction(QObject *part, const NibAction &action) const {
        auto *sender = makeSender(part, action);
        const auto send = [sender] { sender->send(); };
        if (auto *button = qobject_cast<QAbstractButton *>(part)) {
            QObject::connect(button, &QAbstractButton::clicked, sender,
                             [sender] { sender->trigger(); });
        } else if (auto *menuItem = qobject_cast<QAction *>(part)) {
            QObject::connect(menuItem, &QAction::triggered, sender, send);
        } else if (auto *control = qobject_cast<Control *>(part)) {
            QObject::connect(control, &Control::action, sender, send);
        } else if (auto *table = qobject_cast<TableView *>(part)) {
            QObject::connect(table, &TableView::action, sender, send);
        } else {
            require(false, part, "an action, but is no control");
        }
    }

    QWidget *const m_form;
    Nib::Objects m_objects;
    QObjectList m_parts;
};

}  // namespace

void Nib::registerForm(const QString &nibName, const Form &makeForm) {
    forms().insert(nibName, makeForm);
}

void Nib::registerClass(const QString &className, const ObjectFactory &makeObject) {
    classes().insert(className, makeObject);
}

QWidget *Nib::makeForm(const QString &nibName) {
    const Form makeWidgets = forms().value(nibName);
    if (!makeWidgets) {
        fail(QStringLiteral("No form is named \"%1\"").arg(nibName));
    }
    auto form = std::unique_ptr<QWidget>(makeWidgets());
    for (QLabel *label : form->findChildren<QLabel *>()) {
        if (label->textFormat() == Qt::AutoText) {
            // A text that comes from outside might look like markup.
            label->setTextFormat(Qt::PlainText);
        }
    }
    makeObjects(form.get());
    return form.release();
}

QWidget *Nib::load(const QString &nibName, QObject *owner, const Objects &named) {
    std::unique_ptr<QWidget> form(makeForm(nibName));
    Connector(form.get(), owner, named).connect();
    return form.release();
}
