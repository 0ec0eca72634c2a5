#include "Platform/Interface/Nib.h"

#include <QtCore/QPointer>
#include <QtGui/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/CollectionViewItem.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/Interface/Control.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/ArrayController.h"
#include "Support/TestMain.h"

namespace {

using Numbers = QList<int>;

/// What a form's owner may offer.
class Owner : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY textChanged)
    Q_PROPERTY(bool flag READ flag WRITE setFlag NOTIFY flagChanged)
    Q_PROPERTY(QLabel *titleLabel MEMBER m_titleLabel)
    Q_PROPERTY(ArrayController *rows MEMBER m_rows)
    Q_PROPERTY(QVariantList content MEMBER m_content NOTIFY contentChanged)
    Q_PROPERTY(QObject *other MEMBER m_other)
    Q_PROPERTY(Numbers numbers MEMBER m_numbers)
public:
    bool flag() const { return m_flag; }
    void setFlag(bool flag) {
        m_flag = flag && !m_refusesFlag;
        KeyValue::announce<&Owner::flagChanged>(this);
    }
    Q_SLOT void press() { m_calls.append(QStringLiteral("press")); }
    Q_SLOT void pressBy(QObject *sender) { m_calls.append(sender->objectName()); }
    Q_SLOT void name(QObject *object) { m_calls.append(object->objectName()); }
    Q_SLOT void say(const QString &text) { m_calls.append(text); }
    Q_SLOT void count(const Numbers &numbers) { m_calls.append(QString::number(numbers.size())); }

    QString m_text = QStringLiteral("first");
    bool m_flag = false;
    bool m_refusesFlag = false;
    QLabel *m_titleLabel = nullptr;
    ArrayController *m_rows = nullptr;
    QVariantList m_content{1, 2};
    QObject *m_other = nullptr;
    Numbers m_numbers{3, 4, 5};
    QStringList m_calls;

Q_SIGNALS:
    void textChanged();
    void flagChanged();
    void contentChanged();
};

/// A list as far as a form knows lists.
class List : public QWidget {
    Q_OBJECT
    Q_PROPERTY(std::shared_ptr<CollectionViewItem> itemPrototype MEMBER m_itemPrototype)
public:
    using QWidget::QWidget;
    std::shared_ptr<CollectionViewItem> m_itemPrototype;
};

/// An object that a form makes; it remembers what it was when it was awakened.
class Helper : public QObject, public TableViewDelegate {
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY textChanged)
public:
    using QObject::QObject;
    Q_INVOKABLE void awakeFromNib() { m_textsWhenAwakened.append(m_text); }
    int numberOfRowsInTableView(TableView * /*tableView*/) override { return 0; }
    QWidget *tableViewViewForTableColumnRow(TableView * /*tableView*/, const QString & /*column*/,
                                            int /*row*/) override {
        return nullptr;
    }
    void tableViewSelectionDidChange(TableView * /*tableView*/) override {}

    QString m_text;
    QStringList m_textsWhenAwakened;

Q_SIGNALS:
    void textChanged();
};

template <class Part>
Part *addPart(QWidget *form, const char *name, const QStringList &bindings = {},
              const QString &action = {}) {
    auto *part = new Part(form);
    part->setObjectName(QLatin1StringView(name));
    part->setProperty("bindings", bindings);
    part->setProperty("action", action);
    return part;
}

/// A form with a part of each kind that properties distinguish.
QWidget *makeFormOfEveryPart() {
    const QString press = QStringLiteral("owner.press");
    auto *form = new QWidget;
    form->setProperty("objects", QStringList{QStringLiteral("helper Helper")});
    addPart<QPushButton>(form, "button", {}, press);
    addPart<QPushButton>(form, "idleButton");
    addPart<Control>(form, "control", {}, press);
    addPart<TableView>(form, "table");
    addPart<QLineEdit>(form, "field");
    auto *menu = addPart<QMenu>(form, "menu");
    menu->addAction(addPart<QAction>(form, "menuItem", {}, press));
    addPart<QAction>(form, "looseItem", {}, press);
    return form;
}

QString uniqueName() {
    static int count = 0;
    return QStringLiteral("Form%1").arg(++count);
}

}  // namespace

class NibTest : public QObject {
    Q_OBJECT

    /// Loads a form of one button that asks "Really %1?" before it sends `action`.
    static std::unique_ptr<QWidget> loadConfirmed(Owner *owner, const QString &action) {
        const QString name = uniqueName();
        Nib::registerForm(name, [=] {
            auto *form = new QWidget;
            addPart<QPushButton>(form, "button", {}, action)
                ->setProperty("confirmation", QStringLiteral("Really %1?"));
            return form;
        });
        return std::unique_ptr<QWidget>(Nib::load(name, owner));
    }

    static void click(const QWidget *form) {
        form->findChild<QPushButton *>(QStringLiteral("button"))->click();
    }

    /// Clicks the button of that role in the question of `form`, and waits until it is gone.
    static void answer(const QWidget *form, QMessageBox::ButtonRole role) {
        const QPointer box = form->findChild<QMessageBox *>();
        QVERIFY(box);
        const auto buttons = box->buttons();
        const auto found = std::find_if(buttons.begin(), buttons.end(), [&](auto *button) {
            return box->buttonRole(button) == role;
        });
        QVERIFY(found != buttons.end());
        (*found)->click();
        QTRY_VERIFY(!box);
    }

    /// Loads a form of one button with that binding or action.
    static std::unique_ptr<QWidget> loadButton(Owner *owner, const QStringList &bindings,
                                               const QString &action = {}) {
        const QString name = uniqueName();
        Nib::registerForm(name, [=] {
            auto *form = new QWidget;
            addPart<QCheckBox>(form, "button", bindings, action);
            return form;
        });
        return std::unique_ptr<QWidget>(Nib::load(name, owner));
    }

private Q_SLOTS:
    void initTestCase() {
        Nib::registerClass(QStringLiteral("ArrayController"),
                           [](QObject *parent) { return new ArrayController(parent); });
        Nib::registerClass(QStringLiteral("Helper"),
                           [](QObject *parent) { return new Helper(parent); });
    }

    void anUnknownFormIsAProgrammingError() {
        Owner owner;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 Nib::load(QStringLiteral("No such form"), &owner));
    }

    void aWidgetOfAnOutletsNameIsSetInTheOwner() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<QLabel>(form, "titleLabel");
            addPart<QLabel>(form, "unknownLabel");
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        QCOMPARE(owner.m_titleLabel, form->findChild<QLabel *>(QStringLiteral("titleLabel")));
        QVERIFY(owner.dynamicPropertyNames().isEmpty());
    }

    void objectsOfTheFormAreMadeAndCanBeBoundAndNamed() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            form->setProperty("objects", QStringList{QStringLiteral("rows ArrayController")});
            form->setProperty("bindings",
                              QStringList{QStringLiteral("rows.content <- owner.content")});
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        QVERIFY(owner.m_rows);
        QCOMPARE(owner.m_rows->parent(), form.get());
        QCOMPARE(owner.m_rows->arrangedObjects(), owner.m_content);
    }

    void aBindingFollowsItsPath() {
        Owner owner;
        const auto form = loadButton(&owner, {QStringLiteral("text <- owner.text")});
        auto *button = form->findChild<QCheckBox *>();
        QCOMPARE(button->text(), QStringLiteral("first"));
        owner.m_text = QStringLiteral("second");
        Q_EMIT owner.textChanged();
        QCOMPARE(button->text(), QStringLiteral("second"));
    }

    void ofAHugeTextAPartIsShown() {
        Owner owner;
        owner.m_text = QString(PlainText::LongestMessage + 2, u'x');
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<QLabel>(form, "label",
                            {QStringLiteral("text <- owner.text"),
                             QStringLiteral("accessibleName <- owner.text")});
            addPart<QLineEdit>(form, "field", {QStringLiteral("text <-> owner.text")});
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        const auto *label = form->findChild<QLabel *>();
        QCOMPARE(label->text(), PlainText::message(owner.m_text));
        QCOMPARE(label->accessibleName(), label->text());
        // What is written back must be complete.
        QCOMPARE(form->findChild<QLineEdit *>()->text(), owner.m_text);
    }

    void aOneWayBindingWritesNothingBack() {
        Owner owner;
        const auto form = loadButton(&owner, {QStringLiteral("checked <- owner.flag")});
        form->findChild<QCheckBox *>()->click();
        QVERIFY(!owner.flag());
    }

    void aTwoWayBindingWritesBackBeforeTheActionIsSent() {
        Owner owner;
        const auto form = loadButton(&owner, {QStringLiteral("checked <-> owner.flag")},
                                     QStringLiteral("owner.press"));
        bool flagAtFirstAnnouncement = false;
        connect(&owner, &Owner::flagChanged, this, [&] {
            flagAtFirstAnnouncement = owner.flag();
            QVERIFY(owner.m_calls.isEmpty());
        });
        form->findChild<QCheckBox *>()->click();
        QVERIFY(flagAtFirstAnnouncement);
        QCOMPARE(owner.m_calls, QStringList{QStringLiteral("press")});
    }

    void aRefusedTickIsShownAsTheModelHasIt() {
        Owner owner;
        owner.m_refusesFlag = true;
        const auto form = loadButton(&owner, {QStringLiteral("checked <-> owner.flag")});
        auto *button = form->findChild<QCheckBox *>();
        button->click();
        QVERIFY(!owner.flag());
        QVERIFY(!button->isChecked());
    }

    void aTransformerStandsBetween() {
        Owner owner;
        const auto form =
            loadButton(&owner, {QStringLiteral("checked <- owner.flag | NSNegateBoolean")});
        QVERIFY(form->findChild<QCheckBox *>()->isChecked());
    }

    void anActionGivesItsSenderToAnOperationThatWantsIt() {
        Owner owner;
        const auto form = loadButton(&owner, {}, QStringLiteral("owner.pressBy"));
        form->findChild<QCheckBox *>()->click();
        QCOMPARE(owner.m_calls, QStringList{QStringLiteral("button")});
    }

    void anActionGivesTheValueAtItsArgumentAsItIsThen() {
        Owner owner;
        const auto form = loadButton(&owner, {}, QStringLiteral("owner.say(owner.text)"));
        owner.m_text = QStringLiteral("later");
        form->findChild<QCheckBox *>()->click();
        QCOMPARE(owner.m_calls, QStringList{QStringLiteral("later")});
    }

    void anActionPassesAnArgumentWhoseTypeIsDeclaredByAnAlias() {
        Owner owner;
        const auto form = loadButton(&owner, {}, QStringLiteral("owner.count(owner.numbers)"));
        form->findChild<QCheckBox *>()->click();
        QCOMPARE(owner.m_calls, QStringList{QStringLiteral("3")});
    }

    void anActionFindsItsTargetAlongAPath() {
        Owner owner;
        Owner other;
        owner.m_other = &other;
        const auto form = loadButton(&owner, {}, QStringLiteral("owner.other.press"));
        form->findChild<QCheckBox *>()->click();
        QCOMPARE(other.m_calls, QStringList{QStringLiteral("press")});
        owner.m_other = nullptr;
        form->findChild<QCheckBox *>()->click();
        QCOMPARE(other.m_calls.size(), 1);
    }

    void anActionThatItsTargetLacksIsAProgrammingError() {
        Owner owner;
        QObject other;
        owner.m_other = &other;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<Control>(form, "control", {}, QStringLiteral("owner.other.press"));
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, Q_EMIT form->findChild<Control *>()->action());
    }

    void menuItemsAndControlsSendActionsToo() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<Control>(form, "control", {}, QStringLiteral("owner.pressBy"));
            auto *menuItem = new QAction(form);
            menuItem->setObjectName(QStringLiteral("menuItem"));
            menuItem->setProperty("action", QStringLiteral("owner.pressBy"));
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        Q_EMIT form->findChild<Control *>()->action();
        form->findChild<QAction *>()->trigger();
        QCOMPARE(owner.m_calls,
                 QStringList({QStringLiteral("control"), QStringLiteral("menuItem")}));
    }

    void aMenuOpensFromItsButtonOrAsAContextMenu() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<QPushButton>(form, "button")->setProperty("menu", QStringLiteral("buttonMenu"));
            addPart<QMenu>(form, "buttonMenu");
            addPart<QLabel>(form, "label")->setProperty("menu", QStringLiteral("labelMenu"));
            addPart<QMenu>(form, "labelMenu");
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        QCOMPARE(form->findChild<QPushButton *>()->menu()->objectName(),
                 QStringLiteral("buttonMenu"));
        auto *label = form->findChild<QLabel *>(QStringLiteral("label"));
        QCOMPARE(ContextMenu::menu(label)->objectName(), QStringLiteral("labelMenu"));
    }

    void aContextMenuIsReplacedAndRemoved() {
        QWidget view;
        QMenu first;
        QMenu second;
        ContextMenu::setMenu(&view, &first);
        QCOMPARE(ContextMenu::menu(&view), &first);
        ContextMenu::setMenu(&view, &second);
        QCOMPARE(ContextMenu::menu(&view), &second);
        ContextMenu::setMenu(&view, nullptr);
        QVERIFY(!ContextMenu::menu(&view));
    }

    void aListGetsAPrototypeWhoseRowsNameTheirItem() {
        Owner owner;
        const QString rowName = uniqueName();
        Nib::registerForm(rowName, [] {
            auto *row = new QWidget;
            addPart<QLabel>(row, "rowLabel", {QStringLiteral("text <- item.representedObject")});
            addPart<QLabel>(row, "ownerLabel", {QStringLiteral("text <- owner.text")});
            return row;
        });
        const QString name = uniqueName();
        Nib::registerForm(name, [rowName] {
            auto *form = new QWidget;
            addPart<List>(form, "list")->setProperty("itemNib", rowName);
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        const auto item = form->findChild<List *>()->m_itemPrototype->copy();
        item->setRepresentedObject(QStringLiteral("row one"));
        const QScopedPointer<QWidget> row(item->view());
        QCOMPARE(row->findChild<QLabel *>(QStringLiteral("rowLabel"))->text(),
                 QStringLiteral("row one"));
        QCOMPARE(row->findChild<QLabel *>(QStringLiteral("ownerLabel"))->text(),
                 QStringLiteral("first"));
    }

    void objectsOfTheFormAreAwakenedOnceWhenAllIsConnected() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            form->setProperty("objects", QStringList{QStringLiteral("helper Helper"),
                                                     QStringLiteral("rows ArrayController")});
            form->setProperty("bindings", QStringList{QStringLiteral("helper.text <- owner.text")});
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        QCOMPARE(form->findChild<Helper *>()->m_textsWhenAwakened,
                 QStringList{QStringLiteral("first")});
    }

    void aTableGetsTheDelegateThatTheFormNames() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            form->setProperty("objects", QStringList{QStringLiteral("helper Helper")});
            addPart<TableView>(form, "table")
                ->setProperty("tableDelegate", QStringLiteral("helper"));
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        QCOMPARE(form->findChild<TableView *>()->tableDelegate(), form->findChild<Helper *>());
    }

    void anObjectWithoutTheDelegatesMethodsIsAProgrammingError() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<TableView>(form, "table")
                ->setProperty("tableDelegate", QStringLiteral("owner"));
            return form;
        });
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, Nib::load(name, &owner));
    }

    void aTableSendsItsAction() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<TableView>(form, "table", {}, QStringLiteral("owner.pressBy"));
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        Q_EMIT form->findChild<TableView *>()->action();
        QCOMPARE(owner.m_calls, QStringList{QStringLiteral("table")});
    }

    void aFieldSendsWhatItsTextBecomesWhileItIsTyped() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            addPart<QLineEdit>(form, "field")
                ->setProperty("textDidChange", QStringLiteral("owner.say(field.text)"));
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        auto *field = form->findChild<QLineEdit *>();
        field->setText(QStringLiteral("set"));
        QVERIFY(owner.m_calls.isEmpty());
        QTest::keyClicks(field, QStringLiteral("s!"));
        QCOMPARE(owner.m_calls, QStringList({QStringLiteral("sets"), QStringLiteral("sets!")}));
    }

    void aMenuItemIsValidatedEachTimeItsMenuOpens() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            auto *menu = addPart<QMenu>(form, "menu");
            auto *flagItem = menu->addAction(QStringLiteral("flag"));
            flagItem->setProperty("validation", QStringLiteral("owner.flag"));
            auto *objectItem = menu->addAction(QStringLiteral("object"));
            objectItem->setProperty("validation", QStringLiteral("owner.other"));
            menu->addAction(QStringLiteral("always"));
            return form;
        });
        const std::unique_ptr<QWidget> form(Nib::load(name, &owner));
        auto *menu = form->findChild<QMenu *>();
        const auto enabled = [menu] {
            Q_EMIT menu->aboutToShow();
            QList<bool> result;
            for (const QAction *menuItem : menu->actions()) {
                result.append(menuItem->isEnabled());
            }
            return result;
        };
        QCOMPARE(enabled(), QList<bool>({false, false, true}));
        owner.m_flag = true;
        QCOMPARE(enabled(), QList<bool>({true, false, true}));
        owner.m_other = &owner;
        QCOMPARE(enabled(), QList<bool>({true, true, true}));
        owner.m_flag = false;
        QCOMPARE(enabled(), QList<bool>({false, true, true}));
    }

    void anObjectOfAnUnknownClassIsAProgrammingError() {
        Owner owner;
        const QString name = uniqueName();
        Nib::registerForm(name, [] {
            auto *form = new QWidget;
            form->setProperty("objects", QStringList{QStringLiteral("thing Nothing")});
            return form;
        });
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, Nib::load(name, &owner));
    }

    void aMissingNameInAFormIsAProgrammingError_data() {
        QTest::addColumn<QString>("binding");
        QTest::addColumn<QString>("action");
        QTest::newRow("object of a binding") << QStringLiteral("text <- nobody.text") << QString();
        QTest::newRow("key of the model") << QStringLiteral("text <- owner.nothing") << QString();
        QTest::newRow("key of the widget") << QStringLiteral("nothing <- owner.text") << QString();
        QTest::newRow("transformer") << QStringLiteral("text <- owner.text | Nothing") << QString();
        QTest::newRow("no path") << QStringLiteral("text <- owner") << QString();
        QTest::newRow("no arrow") << QStringLiteral("text owner.text") << QString();
        QTest::newRow("object of an action") << QString() << QStringLiteral("nobody.press");
        QTest::newRow("argument of an action")
            << QString() << QStringLiteral("owner.say(nobody.text)");
        QTest::newRow("unclosed argument") << QString() << QStringLiteral("owner.say(owner.text");
        QTest::newRow("no method") << QString() << QStringLiteral("owner");
    }

    void aMissingNameInAFormIsAProgrammingError() {
        QFETCH(QString, binding);
        QFETCH(QString, action);
        Owner owner;
        const QStringList bindings = binding.isEmpty() ? QStringList() : QStringList{binding};
        const auto count = QApplication::allWidgets().size();
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, loadButton(&owner, bindings, action));
        QCOMPARE(QApplication::allWidgets().size(), count);
    }

    void nothingIsSentForAnObjectThatIsGone() {
        Owner owner;
        auto other = std::make_unique<QObject>();
        other->setObjectName(QStringLiteral("other"));
        owner.m_other = other.get();
        const auto form = loadConfirmed(&owner, QStringLiteral("owner.name(owner.other)"));
        click(form.get());
        answer(form.get(), QMessageBox::AcceptRole);
        QCOMPARE(owner.m_calls, QStringList{QStringLiteral("other")});
        click(form.get());
        owner.m_other = nullptr;
        other.reset();
        answer(form.get(), QMessageBox::AcceptRole);
        QCOMPARE(owner.m_calls.size(), 1);
    }

    void whatIsConfirmedIsSent_data() {
        QTest::addColumn<QMessageBox::ButtonRole>("role");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("accepted") << QMessageBox::AcceptRole
                                  << QStringList{QStringLiteral("first")};
        QTest::newRow("refused") << QMessageBox::RejectRole << QStringList();
    }

    void whatIsConfirmedIsSent() {
        QFETCH(const QMessageBox::ButtonRole, role);
        QFETCH(const QStringList, calls);
        Owner owner;
        const auto form = loadConfirmed(&owner, QStringLiteral("owner.say(owner.text)"));
        click(form.get());
        const auto *box = form->findChild<QMessageBox *>();
        QVERIFY(box);
        QVERIFY(box->text().contains(QStringLiteral("Really first?")));
        QCOMPARE(owner.m_calls, QStringList());
        owner.m_text = QStringLiteral("second");
        answer(form.get(), role);
        QCOMPARE(owner.m_calls, calls);
    }

    void aPropertyThatAPartCannotHaveIsAProgrammingError_data() {
        QTest::addColumn<QString>("part");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("isRefused");
        const auto add = [](const char *part, const char *property, const char *value,
                            bool isRefused = true) {
            QTest::addRow("%s of %s: %s", property, part, value)
                << QString::fromLatin1(part) << QByteArray(property) << QString::fromLatin1(value)
                << isRefused;
        };
        add("button", "confirmation", "Really?", false);
        add("idleButton", "confirmation", "Really?");
        add("control", "confirmation", "Really?");
        add("menuItem", "confirmation", "Really?");
        add("button", "menu", "menu", false);
        add("button", "menu", "control");
        add("menuItem", "menu", "menu");
        add("table", "tableDelegate", "helper", false);
        add("control", "tableDelegate", "helper");
        add("field", "textDidChange", "owner.press", false);
        add("control", "textDidChange", "owner.press");
        add("menuItem", "validation", "owner.flag", false);
        add("looseItem", "validation", "owner.flag");
        add("button", "validation", "owner.flag");
        add("control", "itemName", "representedObject.name");
        add("button", "objects", "other Helper");
    }

    void aPropertyThatAPartCannotHaveIsAProgrammingError() {
        QFETCH(QString, part);
        QFETCH(QByteArray, property);
        QFETCH(QString, value);
        QFETCH(bool, isRefused);
        const QString name = uniqueName();
        Nib::registerForm(name, [=] {
            QWidget *form = makeFormOfEveryPart();
            form->findChild<QObject *>(part)->setProperty(property.constData(), value);
            return form;
        });
        Owner owner;
        const auto count = QApplication::allWidgets().size();
        if (isRefused) {
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, Nib::load(name, &owner));
            QCOMPARE(QApplication::allWidgets().size(), count);
        } else {
            QVERIFY(std::unique_ptr<QWidget>(Nib::load(name, &owner)));
        }
    }
};

VELMORA_TEST(NibTest)
#include "NibTest.moc"
