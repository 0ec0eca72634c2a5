#include <QtCore/QMetaMethod>
#include <QtCore/QXmlStreamReader>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <algorithm>
#include <memory>

#include "Controller/NSArrayController+Emptiness.h"
#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/QVServerPreferencesController.h"
#include "Controller/Preferences/QVSyncBookmarkManager.h"
#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/QVSyncScheduleEditor.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Host/QVServedDatabase.h"
#include "Host/QVSyncDispatcher.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/CollectionViewItem.h"
#include "Platform/Interface/Control.h"
#include "Platform/Interface/Nib.h"
#include "Platform/Interface/NibConnections.h"
#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/ValueTransformer.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "View/QVMinimumWidthButton.h"

namespace {

using MetaObject = const QMetaObject *;

/// What a form may rely on.
struct FormContract {
    MetaObject owner;
    /// The classes of objects that cannot be derived from the types of keys, by path. Under the
    /// name of a table: the class of its rows.
    QHash<QString, MetaObject> classes = {};
    /// Its owner has outlets for other forms.
    bool isRow = false;
};

const QHash<QString, FormContract> &contracts() {
    const auto pane = &QVSyncPreferences::staticMetaObject;
    static const QHash<QString, FormContract> all = {
        {QStringLiteral("Sync Preferences"),
         {.owner = pane,
          .classes = {{QStringLiteral("syncLocationsController.lastSelectedObject"),
                       &QVSynchronizationSelection::staticMetaObject},
                      {QStringLiteral("databasesController.lastSelectedObject"),
                       &QVStandInDatabase::staticMetaObject}}}},
        {QStringLiteral("QVDatabaseItem"),
         {.owner = pane,
          .classes = {{QStringLiteral("item.representedObject"),
                       &QVStandInDatabase::staticMetaObject}},
          .isRow = true}},
        {QStringLiteral("QVLocationItem"),
         {.owner = pane,
          .classes = {{QStringLiteral("item.representedObject"),
                       &QVSynchronizationSelection::staticMetaObject}},
          .isRow = true}},
        {QStringLiteral("QVSyncScheduleEditor"),
         {.owner = &QVSyncScheduleEditor::staticMetaObject}},
        {QStringLiteral("QVBookmarkingWindow"),
         {.owner = &QVSyncBookmarkManager::staticMetaObject}},
        {QStringLiteral("BookmarkCell"),
         {.owner = &QVSyncBookmarkManagerDataSource::staticMetaObject, .isRow = true}},
        {QStringLiteral("QVDirectConnectionLocationEditor"),
         {.owner = &QVDirectConnectionLocationEditor::staticMetaObject,
          .classes = {{QStringLiteral("servicesTable"), &NetService::staticMetaObject}}}},
        {QStringLiteral("QVImportDatabasesWindow"),
         {.owner = &QVImportDatabasesController::staticMetaObject,
          .classes = {{QStringLiteral("databasesTable"), &QVRemoteDatabase::staticMetaObject}}}},
        {QStringLiteral("QVServerPreferences"),
         {.owner = &QVServerPreferencesController::staticMetaObject,
          .classes = {{QStringLiteral("databasesTable"), &QVServedDatabase::staticMetaObject}}}}};
    return all;
}

/// The contracts of the forms of locations that are not in contracts(): the owner of such a form is
/// the editor whose class has its name.
QHash<QString, FormContract> contractsOfEditors() {
    TestHost host;
    QHash<QString, FormContract> found;
    for (const LocationKind &kind : LocationKind::all()) {
        const MetaObject editor = kind.makeEditor(host.newLocation(Url()))->metaObject();
        found.insert(QLatin1StringView(editor->className()), {.owner = editor});
    }
    return found;
}

/// Checks every name in a form against the classes that it will meet when it is used.
class FormCheck {
public:
    FormCheck(QWidget *form, const FormContract &contract) : m_contract(contract) {
        m_parts = form->findChildren<QObject *>();
        m_parts.prepend(form);
        for (QObject *part : std::as_const(m_parts)) {
            m_objects.insert(part->objectName(), part);
            m_classes.insert(part->objectName(), part->metaObject());
        }
        m_classes.insert(QStringLiteral("owner"), contract.owner);
        m_classes.insert(QStringLiteral("item"), &CollectionViewItem::staticMetaObject);
    }

    QStringList problems() {
        checkOutlets();
        for (QObject *part : std::as_const(m_parts)) {
            checkPropertyNames(part);
            for (const QString &binding : part->property("bindings").toStringList()) {
                checkBinding(part, NibBinding::parse(binding));
            }
            checkAction(part);
            checkConfirmation(part);
            checkTextDidChange(part);
            checkValidation(part);
            checkMenu(part);
            checkRowPlace(part);
            checkShortcut(part);
            checkButton(part->property("checkBoxName").toString());
            checkTable(part);
            checkDelegate(part);
            if (const QString nib = part->property("itemNib").toString(); !nib.isEmpty()) {
                checkForm(nib);
                checkItemName(part->property("itemName").toByteArray(), nib);
            }
        }
        return m_problems;
    }

private:
    void report(const QString &problem) { m_problems.append(problem); }

    MetaObject classOf(const QString &name) {
        const MetaObject found = m_classes.value(name);
        if (!found) {
            report(QStringLiteral("no object \"%1\"").arg(name));
        }
        return found;
    }

    /// The property at the end of a path that is not empty; an invalid one is reported.
    QMetaProperty propertyAt(const QString &root, MetaObject from, const QByteArray &keyPath) {
        QString path = root;
        MetaObject holder = from;
        QMetaProperty property;
        for (const QByteArray &key : keyPath.split('.')) {
            if (!holder) {
                report(QStringLiteral("no class is known for \"%1\"").arg(path));
                return {};
            }
            property = holder->property(holder->indexOfProperty(key.constData()));
            path += u'.' + QString::fromUtf8(key);
            if (!property.isValid()) {
                report(QStringLiteral("no key \"%1\" in %2")
                           .arg(path, QLatin1StringView(holder->className())));
                return {};
            }
            holder = m_contract.classes.value(path, property.metaType().metaObject());
        }
        return property;
    }
    QMetaProperty propertyAt(const NibPath &path) {
        const MetaObject from = classOf(path.object);
        return from ? propertyAt(path.object, from, path.keyPath) : QMetaProperty();
    }

    void checkOutlets() {
        for (int i = 0; i < m_contract.owner->propertyCount() && !m_contract.isRow; ++i) {
            const QMetaProperty property = m_contract.owner->property(i);
            if (!property.isWritable() ||
                !property.metaType().flags().testFlag(QMetaType::PointerToQObject)) {
                continue;
            }
            const QObject *part = m_objects.value(QLatin1StringView(property.name()));
            if (!part || !part->metaObject()->inherits(property.metaType().metaObject())) {
                report(QStringLiteral("nothing for the outlet \"%1\"")
                           .arg(QLatin1StringView(property.name())));
            }
        }
    }

    void checkPropertyNames(const QObject *part) {
        static const QByteArrayList known = {
            "objects", "bindings",      "itemNib",       "itemName", "menu",        "validation",
            "action",  "tableDelegate", "textDidChange", "rowPlace", "confirmation"};
        for (const QByteArray &name : part->dynamicPropertyNames()) {
            if (!known.contains(name) && !name.startsWith("_q_")) {
                report(QStringLiteral("no property \"%1\" in %2")
                           .arg(QLatin1StringView(name), part->objectName()));
            }
        }
    }

    void checkTransformer(const QString &name) {
        if (name.isEmpty()) {
            return;
        }
        try {
            ValueTransformer::transformerForName(name);
        } catch (const AssertionFailure &) {
            report(QStringLiteral("no transformer \"%1\"").arg(name));
        }
    }

    void checkBinding(const QObject *part, const NibBinding &binding) {
        const auto point = binding.key.indexOf('.');
        const QString target =
            point < 0 ? part->objectName() : QString::fromUtf8(binding.key.left(point));
        const MetaObject targetClass = point < 0 ? part->metaObject() : classOf(target);
        const QMetaProperty key = targetClass
                                      ? propertyAt(target, targetClass, binding.key.mid(point + 1))
                                      : QMetaProperty();
        const QMetaProperty source = propertyAt(binding.path);
        if (key.isValid() && !key.isWritable()) {
            report(QStringLiteral("\"%1\" cannot be set").arg(QLatin1StringView(binding.key)));
        }
        if (source.isValid() && binding.direction == KeyValue::Direction::BothWays &&
            !source.isWritable()) {
            report(QStringLiteral("\"%1\" cannot be set")
                       .arg(QLatin1StringView(binding.path.keyPath)));
        }
        checkTransformer(binding.transformer);
    }

    static bool fits(const QMetaMethod &method, QMetaType argument, MetaObject sender) {
        if (method.parameterCount() != 1) {
            return method.parameterCount() == 0;
        }
        const QMetaType wanted = method.parameterMetaType(0);
        if (sender) {
            return wanted.metaObject() && sender->inherits(wanted.metaObject());
        }
        return argument == wanted || argument == QMetaType::fromType<QVariant>() ||
               QMetaType::canConvert(argument, wanted);
    }

    void checkSelector(const QObject *part, const QString &text) {
        const NibAction action = NibAction::parse(text);
        MetaObject receiver = classOf(action.target.object);
        if (receiver && !action.target.keyPath.isEmpty()) {
            const QMetaProperty property = propertyAt(action.target);
            if (!property.isValid()) {
                return;
            }
            receiver = m_contract.classes.value(
                action.target.object + u'.' + QString::fromUtf8(action.target.keyPath),
                property.metaType().metaObject());
            if (!receiver) {
                report(QStringLiteral("no class is known for the receiver of \"%1\"").arg(text));
            }
        }
        const bool sendsPart = action.argument.object.isEmpty();
        const QMetaProperty argument = sendsPart ? QMetaProperty() : propertyAt(action.argument);
        if (!receiver || (!sendsPart && !argument.isValid())) {
            return;
        }
        for (int i = 0; i < receiver->methodCount(); ++i) {
            const QMetaMethod method = receiver->method(i);
            if (method.name() == action.method &&
                fits(method, argument.metaType(), sendsPart ? part->metaObject() : nullptr)) {
                return;
            }
        }
        report(QStringLiteral("no operation for \"%1\" in %2")
                   .arg(text, QLatin1StringView(receiver->className())));
    }

    void checkAction(QObject *part) {
        const QString text = part->property("action").toString();
        if (text.isEmpty()) {
            return;
        }
        if (!qobject_cast<QAbstractButton *>(part) && !qobject_cast<QAction *>(part) &&
            !qobject_cast<Control *>(part) && !qobject_cast<TableView *>(part)) {
            report(QStringLiteral("\"%1\" cannot send an action").arg(part->objectName()));
        }
        checkSelector(part, text);
    }

    void checkConfirmation(const QObject *part) {
        if (!part->property("confirmation").toString().isEmpty() &&
            (!qobject_cast<const QAbstractButton *>(part) ||
             part->property("action").toString().isEmpty())) {
            report(QStringLiteral("\"%1\" cannot ask before an action").arg(part->objectName()));
        }
    }

    void checkTextDidChange(QObject *part) {
        if (const QString text = part->property("textDidChange").toString(); !text.isEmpty()) {
            if (!qobject_cast<QLineEdit *>(part)) {
                report(QStringLiteral("\"%1\" has no text").arg(part->objectName()));
            }
            checkSelector(part, text);
        }
    }

    void checkValidation(QObject *part) {
        if (const QString text = part->property("validation").toString(); !text.isEmpty()) {
            const auto isMenuOfPart = [part](QObject *each) {
                const auto *menu = qobject_cast<QMenu *>(each);
                return menu && menu->actions().contains(qobject_cast<QAction *>(part));
            };
            if (std::none_of(m_parts.cbegin(), m_parts.cend(), isMenuOfPart)) {
                report(QStringLiteral("\"%1\" is not in a menu").arg(part->objectName()));
            }
            propertyAt(NibPath::parse(text));
        }
    }

    void checkMenu(const QObject *part) {
        const QString name = part->property("menu").toString();
        if (!name.isEmpty() && !qobject_cast<QMenu *>(m_objects.value(name))) {
            report(QStringLiteral("no menu \"%1\"").arg(name));
        }
    }

    void checkRowPlace(const QObject *part) {
        static const QStringList places = {QString(), QStringLiteral("leading"),
                                           QStringLiteral("text"), QStringLiteral("trailing")};
        if (const QString place = part->property("rowPlace").toString(); !places.contains(place)) {
            report(QStringLiteral("no place \"%1\" in a row").arg(place));
        }
    }

    void checkShortcut(const QObject *part) {
        const auto shortcut = part->property("shortcut").value<QKeySequence>();
        if (!shortcut.isEmpty() && shortcut[0].key() == Qt::Key_unknown) {
            report(QStringLiteral("no key of \"%1\"").arg(part->objectName()));
        }
    }

    void checkButton(const QString &name) {
        if (!name.isEmpty() && !qobject_cast<QAbstractButton *>(m_objects.value(name))) {
            report(QStringLiteral("no button \"%1\"").arg(name));
        }
    }

    void checkForm(const QString &name) {
        try {
            delete Nib::makeForm(name);
        } catch (const AssertionFailure &failure) {
            report(failure.message());
        }
    }

    /// The name of an item is a key path from it, as in the form of its row.
    void checkItemName(const QByteArray &keyPath, const QString &nib) {
        if (!contracts().contains(nib)) {
            return;
        }
        QWidget form;
        FormCheck check(&form, contracts().value(nib));
        check.propertyAt(QStringLiteral("item"), &CollectionViewItem::staticMetaObject, keyPath);
        m_problems.append(check.m_problems);
    }

    void checkTable(QObject *part) {
        const auto *table = qobject_cast<TableView *>(part);
        if (!table) {
            return;
        }
        checkTransformer(table->property("textTransformer").toString());
        checkTransformer(table->property("iconTransformer").toString());
        for (const char *name : {"contentKey", "checkKey"}) {
            const QByteArray key = table->property(name).toByteArray();
            if (key != "self" && !key.isEmpty()) {
                propertyAt(table->objectName(), m_contract.classes.value(table->objectName()), key);
            }
        }
        checkButton(table->property("removeButton").toString());
    }

    void checkDelegate(QObject *part) {
        const QString delegate = part->property("tableDelegate").toString();
        if (delegate.isEmpty()) {
            return;
        }
        if (!dynamic_cast<TableViewDelegate *>(m_objects.value(delegate))) {
            report(QStringLiteral("no delegate \"%1\"").arg(delegate));
        }
        const auto *table = qobject_cast<TableView *>(part);
        if (!table) {
            report(QStringLiteral("\"%1\" is no table").arg(part->objectName()));
            return;
        }
        for (const QString &identifier : table->columnIdentifiers()) {
            checkForm(identifier);
        }
    }

    const FormContract m_contract;
    QObjectList m_parts;
    QHash<QString, QObject *> m_objects;
    QHash<QString, MetaObject> m_classes;
    QStringList m_problems;
};

/// Returns the names in a .ui file for which it has no widget: of buddies and in the order of the
/// Tab key. Only the generator of forms reads these, and leaves out what it does not find.
QStringList namesWithoutWidget(QXmlStreamReader &xml) {
    QStringList names;
    QStringList widgets;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) {
            continue;
        }
        if (xml.name() == QLatin1StringView("widget")) {
            widgets.append(xml.attributes().value(QLatin1StringView("name")).toString());
        } else if (xml.name() == QLatin1StringView("cstring") ||
                   xml.name() == QLatin1StringView("tabstop")) {
            names.append(xml.readElementText());
        }
    }
    names.removeIf([&](const QString &name) { return widgets.contains(name); });
    return xml.hasError() ? QStringList(xml.errorString()) : names;
}

}  // namespace

/// Forms name selectors, key paths, outlets, transformers and classes as text, which no compiler
/// reads. This test does.
class FormsTest : public QObject {
    Q_OBJECT

    QHash<QString, FormContract> m_contracts;

    /// The problems of a form that `change` has changed.
    QStringList problemsOf(const QString &name,
                           const std::function<void(QWidget *)> &change) const {
        const std::unique_ptr<QWidget> form(Nib::makeForm(name));
        change(form.get());
        return FormCheck(form.get(), m_contracts.value(name)).problems();
    }
    QStringList problemsWith(const char *form, const char *part, const char *property,
                             const QVariant &value) const {
        return problemsOf(QLatin1StringView(form), [=](QWidget *widget) {
            QObject *found = widget->objectName() == QLatin1StringView(part)
                                 ? widget
                                 : widget->findChild<QObject *>(QLatin1StringView(part));
            QVERIFY2(found, part);
            found->setProperty(property, value);
        });
    }

private Q_SLOTS:
    void initTestCase() {
        registerSyncPreferencesInterface();
        m_contracts = contractsOfEditors();
        m_contracts.insert(contracts());
    }

    void theRowButtonIsAViewOfThePane() {
        const std::unique_ptr<QWidget> row(Nib::makeForm(QStringLiteral("QVDatabaseItem")));
        QVERIFY(row->findChild<QVMinimumWidthButton *>(QStringLiteral("rowSyncButton")));
    }

    void everyNameInAFormIsKnown_data() {
        QTest::addColumn<QString>("name");
        const QDir folder(QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Interface"));
        for (const QFileInfo &file : folder.entryInfoList({QStringLiteral("*.ui")})) {
            QTest::newRow(qPrintable(file.completeBaseName())) << file.completeBaseName();
        }
    }
    void everyNameInAFormIsKnown() {
        QFETCH(QString, name);
        QVERIFY(m_contracts.contains(name));
        QCOMPARE(problemsOf(name, [](QWidget *) {}), QStringList());
        QFile file(QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Interface/%1.ui").arg(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QCOMPARE(namesWithoutWidget(xml), QStringList());
    }

    void everyLabelShowsMarkupAsText_data() { everyNameInAFormIsKnown_data(); }
    void everyLabelShowsMarkupAsText() {
        QFETCH(QString, name);
        const std::unique_ptr<QWidget> form(Nib::makeForm(name));
        for (const QLabel *label : form->findChildren<QLabel *>()) {
            QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->objectName()));
        }
    }

    void aBuddyThatIsMissingIsFound() {
        QXmlStreamReader xml(
            "<ui><widget class='QWidget' name='form'><widget class='QLabel' name='label'>"
            "<property name='buddy'><cstring>nameFeild</cstring></property></widget>"
            "<widget class='QLineEdit' name='nameField'/></widget>"
            "<tabstops><tabstop>nameField</tabstop><tabstop>okButon</tabstop></tabstops></ui>");
        QCOMPARE(namesWithoutWidget(xml),
                 QStringList({QStringLiteral("nameFeild"), QStringLiteral("okButon")}));
    }

    void aMisspeltNameIsFound_data() {
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<QByteArray>("part");
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("problem");
        const auto add = [](const char *what, const char *form, const char *part,
                            const char *property, const QVariant &value, const char *problem) {
            QTest::newRow(what) << QByteArray(form) << QByteArray(part) << QByteArray(property)
                                << value << QString::fromLatin1(problem);
        };
        const auto binding = [](const char *text) { return QStringList{QLatin1StringView(text)}; };
        const auto text = [](const char *value) { return QString::fromLatin1(value); };
        constexpr char pane[] = "Sync Preferences";
        constexpr char row[] = "QVDatabaseItem";
        add("selector", pane, "editLocationButton", "action",
            text("owner.editSelectedSyncLocatoin"),
            "no operation for \"owner.editSelectedSyncLocatoin\" in QVSyncPreferences");
        add("selector on the way", row, "rowSyncButton", "action",
            text("owner.plugin.dispacher.performSynchronizationsWithSynchronizationStates(item."
                 "representedObject.synchronizationStates)"),
            "no key \"owner.plugin.dispacher\" in QVSyncPlugin");
        add("argument", row, "rowSyncButton", "action",
            text("owner.plugin.dispatcher.performSynchronizationsWithSynchronizationStates(item."
                 "representedObject.name)"),
            "no operation for "
            "\"owner.plugin.dispatcher.performSynchronizationsWithSynchronizationStates(item."
            "representedObject.name)\" in QVSyncDispatcher");
        add("receiver without a class", pane, "editLocationButton", "action",
            text("owner.currentVersionString.length"),
            "no class is known for the receiver of \"owner.currentVersionString.length\"");
        add("selector of a text field", "QVWebDAVLocationEditor", "portField", "textDidChange",
            text("owner.controlTextDidChang"),
            "no operation for \"owner.controlTextDidChang\" in QVWebDAVLocationEditor");
        add("key path", row, "rowName", "bindings", binding("text <- item.representedObject.nmae"),
            "no key \"item.representedObject.nmae\" in QVStandInDatabase");
        add("bound key", row, "rowName", "bindings", binding("txet <- item.representedObject.name"),
            "no key \"rowName.txet\" in TextLabel");
        add("key that cannot be set", row, "rowName", "bindings",
            binding("text <-> item.representedObject.existsLocally"),
            "\"representedObject.existsLocally\" cannot be set");
        add("object", row, "rowName", "bindings", binding("text <- itme.representedObject.name"),
            "no object \"itme\"");
        add("transformer", row, "rowName", "bindings",
            binding("text <- item.representedObject.name | QVNoTransformer"),
            "no transformer \"QVNoTransformer\"");
        add("transformer of a table", "QVImportDatabasesWindow", "locationsTable",
            "textTransformer", text("QVTitle"), "no transformer \"QVTitle\"");
        add("key of a table", "QVImportDatabasesWindow", "databasesTable", "contentKey",
            text("metadata.nmae"),
            "no key \"databasesTable.metadata.nmae\" in "
            "QVRemoteDatabaseMetadata");
        add("outlet", "QVWebDAVLocationEditor", "serverField", "objectName", text("serverFeild"),
            "nothing for the outlet \"serverField\"");
        add("validation", pane, "cleanItem", "validation",
            text("syncLocationsController.lastSelectedObject.selekted"),
            "no key \"syncLocationsController.lastSelectedObject.selekted\" in "
            "QVSynchronizationSelection");
        add("menu", pane, "moreButton", "menu", text("morMenu"), "no menu \"morMenu\"");
        add("check box of a row", "QVLocationItem", "locationItemView", "checkBoxName",
            text("rowChekBox"), "no button \"rowChekBox\"");
        add("delegate of a table", "QVBookmarkingWindow", "tableView", "tableDelegate",
            text("dataSuorce"), "no delegate \"dataSuorce\"");
        add("delegate of something else", "QVBookmarkingWindow", "removeButton", "tableDelegate",
            text("dataSource"), "\"removeButton\" is no table");
        add("button of a table", "QVBookmarkingWindow", "tableView", "removeButton",
            text("removeButon"), "no button \"removeButon\"");
        add("question of what is no button", pane, "cleanItem", "confirmation", text("Really?"),
            "\"cleanItem\" cannot ask before an action");
        add("question without an action", pane, "moreButton", "confirmation", text("Really?"),
            "\"moreButton\" cannot ask before an action");
        add("form of a row", pane, "databasesView", "itemNib", text("QVDatabseItem"),
            "No form is named \"QVDatabseItem\"");
        add("place in a row", row, "rowName", "rowPlace", text("leeding"),
            "no place \"leeding\" in a row");
        add("key of a shortcut", pane, "cleanItem", "shortcut",
            QVariant::fromValue(QKeySequence(QStringLiteral("Dell"))), "no key of \"cleanItem\"");
        add("name of a row", pane, "databasesView", "itemName", text("representedObject.nmae"),
            "no key \"item.representedObject.nmae\" in QVStandInDatabase");
        add("property", pane, "moreButton", "acton", text("owner.revealInFinder"),
            "no property \"acton\" in moreButton");
    }
    void aMisspeltNameIsFound() {
        QFETCH(QByteArray, form);
        QFETCH(QByteArray, part);
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        QFETCH(QString, problem);
        QCOMPARE(problemsWith(form, part, property, value), QStringList{problem});
    }

    void aValidationInNoMenuIsFound() {
        const auto takeOut = [](const QWidget *form) {
            auto *item = form->findChild<QAction *>(QStringLiteral("cleanItem"));
            for (QMenu *menu : form->findChildren<QMenu *>()) {
                menu->removeAction(item);
            }
        };
        QCOMPARE(problemsOf(QStringLiteral("Sync Preferences"), takeOut),
                 QStringList{QStringLiteral("\"cleanItem\" is not in a menu")});
    }

    void aMisspeltClassIsFound() {
        Nib::registerForm(QStringLiteral("Misspelt"), [] {
            auto *form = new QWidget;
            form->setProperty("objects", QStringList{QStringLiteral("rows NSArrayControler")});
            return form;
        });
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, Nib::makeForm(QStringLiteral("Misspelt")));
    }
};

VELMORA_TEST(FormsTest)
#include "FormsTest.moc"
