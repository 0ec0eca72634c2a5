#include <QtCore/QMetaProperty>
#include <QtGui/QTextBlock>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextEdit>

#include "Application/ConflictDialog.h"
#include "Application/ErrorBoxes.h"
#include "Application/EventLog.h"
#include "Application/HistoryDialog.h"
#include "Application/LogWindow.h"
#include "Application/MainWindow.h"
#include "Application/PreferencesWindow.h"
#include "Application/QuestionBox.h"
#include "Application/RemovalDialog.h"
#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Host/QVSyncResult.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Network/NetService.h"
#include "Support/ShownName.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Finds the texts of the widgets of this process that are too long to be laid out without a stall.
/// Text views, and the fields that a user types into, have limits of their own.
class LongTexts {
public:
    LongTexts() {
        const QWidgetList widgets = QApplication::allWidgets();
        for (QWidget *widget : widgets) {
            lookAt(*widget);
            if (widget->isWindow() && widget->isVisible()) {
                widget->grab();
                constexpr int limit = 5000;
                check(*widget, "width", widget->width(), limit);
            }
        }
    }

    const QStringList &places() const { return m_places; }

private:
    void check(const QObject &place, const char *text, qsizetype size, qsizetype limit) {
        if (size > limit) {
            m_places.append(QStringLiteral("%1 %2: %3, %4 characters")
                                .arg(QLatin1StringView(place.metaObject()->className()),
                                     place.objectName(), QLatin1StringView(text))
                                .arg(size));
        }
    }
    void lookAtProperties(const QObject &object) {
        // Besides a message, a text may have some words that are added to it.
        constexpr qsizetype limit = PlainText::LongestMessage + 100;
        for (int i = 0; i < object.metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = object.metaObject()->property(i);
            // A text view shows the details of a message.
            const bool isShown = qstrcmp(property.name(), "detailedText") != 0;
            if (isShown && property.metaType() == QMetaType::fromType<QString>()) {
                check(object, property.name(), property.read(&object).toString().size(), limit);
            }
        }
    }
    void lookAt(const QTextDocument *document, const QObject &view) {
        for (QTextBlock line = document->begin(); line.isValid(); line = line.next()) {
            check(view, "line", line.length(), PlainText::LongestLine + 2);
        }
    }
    void lookAt(const QWidget &widget) {
        if (const auto *page = qobject_cast<const QPlainTextEdit *>(&widget)) {
            lookAt(page->document(), widget);
        } else if (const auto *text = qobject_cast<const QTextEdit *>(&widget)) {
            lookAt(text->document(), widget);
        } else if (!qobject_cast<const QLineEdit *>(&widget)) {
            lookAtProperties(widget);
        }
        if (const auto *view = qobject_cast<const QAbstractItemView *>(&widget);
            view && view->model()) {
            lookAt(*view);
        }
        for (const QAction *action : widget.actions()) {
            lookAtProperties(*action);
        }
    }
    void lookAt(const QAbstractItemView &view) {
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            for (int column = 0; column < view.model()->columnCount(); ++column) {
                const QModelIndex index = view.model()->index(row, column);
                for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole,
                                       Qt::AccessibleDescriptionRole}) {
                    check(view, "cell", index.data(role).toString().size(),
                          PlainText::LongestMessage + 100);
                }
            }
        }
    }

    QStringList m_places;
};

}  // namespace

/// Texts of 100,000 characters in one line that another computer, a server or the profile controls:
/// whatever shows them shows a part of them. Laying out thirty times as much takes a minute and
/// more than a gigabyte.
class HugeTextsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    EventLog m_log;

    static QString huge() {
        QFETCH_GLOBAL(const QString, text);
        return text;
    }
    static Error hugeError() {
        return {.domain = huge(),
                .localizedDescription = huge(),
                .localizedFailureReason = huge(),
                .details = huge()};
    }
    static Note hugeNote() { return {.title = huge(), .text = huge()}; }
    std::shared_ptr<QVSyncLocation> hugeLocation() const {
        return m_host->addLocation(
            QStringLiteral("https://dav.example.com/") + QString(huge()).replace(u' ', u'/') +
            QString(huge()).replace(u' ', u'-') + QStringLiteral(".qvSyncStore"));
    }
    /// Whether the beginning is shown in that many places at least, and no more than a part
    /// anywhere.
    static void verifyShortened(int places) {
        const QStringList shown = ShownName(huge().first(400)).places();
        QVERIFY2(shown.size() >= places, qPrintable(shown.join(u'\n')));
        QCOMPARE(LongTexts().places().join(u'\n'), QString());
    }

private Q_SLOTS:
    void initTestCase_data() {
        constexpr int size = 100'000;
        QTest::addColumn<QString>("text");
        QTest::newRow("words") << QStringLiteral("name ").repeated(size / 5);
        QTest::newRow("one word") << QString(size, u'W');
    }
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() { m_host.reset(); }

    void theWindowsShowAPart() {
        const auto database = m_host->addDatabase(QStringLiteral("Database"));
        const auto location = hugeLocation();
        const auto state = m_host->addState(location, database);
        state->setEnabled(true);
        m_host->save();
        // A profile of another program.
        const Expected<void> renamed = m_host->engine().profile().write([this] {
            return m_host->engine().profile().run(
                QStringLiteral("UPDATE databases SET name = ? WHERE NOT is_inbox"), {huge()});
        });
        QVERIFY(renamed);
        m_host->restart();
        const auto opened = m_host->library().knownDatabases().last();
        QVERIFY(opened->name() == huge());
        Note note = hugeNote();
        QVERIFY(opened->saveNote(note));
        const auto failed =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(opened->UUID());
        const QVSyncResult result{
            .date = QDateTime::currentDateTime(), .error = hugeError(), .summary = huge()};
        failed->setProperty(QVSyncResult::Key,
                            QVariant::fromValue(std::optional<QVSyncResult>(result)));

        MainWindow window(&m_host->library(), &m_log, m_host->directory());
        window.show();
        window.findChild<QListWidget *>(QStringLiteral("databases"))->setCurrentRow(1);
        auto *preferences = new PreferencesWindow(std::make_unique<QVSyncPreferences>());
        preferences->show();
        QVSyncPreferences::preferences()->databasesController()->setSelectionIndexes({0});
        QVSyncPreferences::preferences()->syncLocationsController()->setSelectionIndexes({0});
        verifyShortened(5);
        preferences->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void theLogShowsAPart() {
        m_log.append({.time = QDateTime::currentDateTime(),
                      .text = huge(),
                      .outcome = QVJobReport::Outcome::Failed,
                      .database = huge(),
                      .location = huge()});
        LogWindow window(&m_log, nullptr);
        window.show();
        verifyShortened(3);
    }

    void theQuestionsShowAPart() {
        QWidget parent;
        parent.show();
        RemovalDialog removal(
            {.database = huge(), .location = huge(), .titles = {huge()}, .total = 20},
            [](RemovalDecision) {}, &parent);
        removal.setAttribute(Qt::WA_DeleteOnClose, false);
        removal.show();
        QuestionBox question(
            {huge(), huge(), QStringLiteral("Allow"), QStringLiteral("Refuse"),
             QStringLiteral("123 456")},
            [](bool /*isAccepted*/) {}, &parent);
        question.setAttribute(Qt::WA_DeleteOnClose, false);
        question.show();
        ErrorBoxes boxes;
        QVERIFY(boxes.show(hugeError(), &parent));
        verifyShortened(6);
    }

    void theListsOfNotesShowAPart() {
        const auto database = m_host->addDatabase(QStringLiteral("Database"));
        Note note = hugeNote();
        QVERIFY(database->saveNote(note));
        QVERIFY(database->removeNote(note));
        const Expected<void> moved = m_host->engine().profile().write([this] {
            return m_host->engine().profile().run(QStringLiteral("UPDATE versions SET place = ?"),
                                                  {huge()});
        });
        QVERIFY(moved);
        HistoryDialog history(&m_host->library(), database, {}, nullptr);
        history.show();
        ConflictDialog comparison(hugeNote(), hugeNote(), nullptr);
        comparison.show();
        verifyShortened(4);
    }

    void theSheetsShowAPart() {
        QWidget parent;
        parent.show();
        const auto location = hugeLocation();
        const auto import = QVImportDatabasesController::newController();
        import->runImportDatabasesSheetModalForWindow(&parent, []{});
        import->setRemoteError(hugeError());
        const auto direct =
            QVDirectConnectionLocationEditor::editorWithSyncLocation(m_host->newLocation(Url()));
        direct->runLocationEditorModalForWindow(&parent, true, [](qint64) {});
        direct->netServiceBrowserDidFindServiceMoreComing(
            nullptr, std::make_shared<NetService>(huge(), huge(), huge(), quint16(0)), false);
        verifyShortened(4);
        import->cancelModalSheet(nullptr);
        direct->cancelModalSheet(nullptr);
    }
};

VELMORA_TEST(HugeTextsTest)
#include "HugeTextsTest.moc"
