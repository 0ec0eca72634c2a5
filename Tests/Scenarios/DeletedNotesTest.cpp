#include <QtCore/QUuid>
#include <QtGui/QAction>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>

#include "Application/EventLog.h"
#include "Application/HistoryDialog.h"
#include "Application/MainWindow.h"
#include "Application/NoteVersionsList.h"
#include "Application/NoteVersionsModel.h"
#include "Application/RemovalDialog.h"
#include "Engine/Notes/Transaction.h"
#include "Host/InboxUUID.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Shows questions about removals as the program does.
class ShowingApplication : public TestApplication {
public:
    void askAboutRemoval(const RemovalQuestion &question,
                         std::function<void(RemovalDecision)> handler) override {
        (new RemovalDialog(question, std::move(handler), QApplication::activeWindow()))->open();
    }
};

template <class Dialog>
Dialog *openDialog() {
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *dialog = qobject_cast<Dialog *>(widget);
        if (dialog && dialog->isVisible()) {
            return dialog;
        }
    }
    return nullptr;
}

}  // namespace

/// Notes that were deleted or replaced come back through the main window.
class DeletedNotesTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<ShowingApplication> m_application;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;

    std::shared_ptr<NoteDatabase> inbox() const { return m_host->inbox(); }
    QStringList titles() const {
        QStringList titles;
        const QList<Note> notes = inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        titles.sort();
        return titles;
    }
    QAction *action(const QString &title) const {
        const auto actions = m_window->findChildren<QAction *>();
        const auto found = std::find_if(actions.begin(), actions.end(), [&](QAction *each) {
            return each->text().remove(u'&') == title;
        });
        return found == actions.end() ? nullptr : *found;
    }
    /// Presses a button of `window` by the keyboard.
    static void press(const QWidget *window, const QString &title) {
        const auto buttons = window->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->text().remove(u'&') == title) {
                QVERIFY(button->isEnabled());
                button->setFocus();
                QTest::keyClick(button, Qt::Key_Space);
                return;
            }
        }
        QFAIL(qPrintable(title));
    }
    static NoteVersionsList *list(const HistoryDialog *dialog) {
        return dialog->findChild<NoteVersionsList *>();
    }
    static int rowsOf(const HistoryDialog *dialog) { return list(dialog)->model()->rowCount(); }
    static QString textIn(const HistoryDialog *dialog, int row, int column) {
        return list(dialog)->model()->index(row, column).data().toString();
    }
    static QString preview(const HistoryDialog *dialog) {
        return dialog->findChild<QPlainTextEdit *>()->toPlainText();
    }
    QPlainTextEdit *text() const { return m_window->findChild<QPlainTextEdit *>(); }

    void addNotes(int count) const {
        for (int i = 0; i < count; ++i) {
            Note note{{},
                      QStringLiteral("Note %1").arg(i, 2, 10, QChar(u'0')),
                      QStringLiteral("Text %1").arg(i),
                      {}};
            QVERIFY(inbox()->saveNote(note));
        }
    }

    /// Synchronizes with a location whose store was changed to delete all notes.
    void synchronizeAfterAttack() {
        const auto location = m_host->addLocation();
        const auto state = m_host->addState(location, inbox());
        state->setEnabled(true);
        m_host->save();
        QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        bool isDone = false;
        dispatcher->performSynchronizationsWithSynchronizationStates({state},
                                                                     [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        const auto database = m_host->library().synchronizedDatabase(InboxUUID);
        QFile record(location->URL().path() + QStringLiteral("/transactions/@inbox/") +
                     QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".json"));
        QVERIFY(record.open(QIODevice::WriteOnly));
        record.write(Transaction{{}, database->log().operationIds().value()}.encoded());
        record.close();
        dispatcher->performSynchronizationsWithSynchronizationStates({state});
        QTRY_VERIFY(openDialog<RemovalDialog>());
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_application = std::make_unique<ShowingApplication>();
        addNotes(20);
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_window->show();
    }
    void cleanup() {
        m_window.reset();
        // What the location contains depends on what was decided.
        const VerificationReport report = m_host->engine().verify(VerificationMode::Report);
        QCOMPARE(report.parts.first().problems, QStringList());
        m_application.reset();
        m_host.reset();
    }

    void aDeletedNoteIsRestored() {
        press(m_window.get(), QStringLiteral("Delete Note"));
        press(m_window.get(), QStringLiteral("Delete Note"));
        QCOMPARE(titles().size(), 18);
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        QVERIFY(dialog);
        QCOMPARE(rowsOf(dialog), 2);
        QCOMPARE(textIn(dialog, 0, 0), QStringLiteral("Note 01"));
        QCOMPARE(textIn(dialog, 0, 2), QStringLiteral("Deleted on this computer"));
        QCOMPARE(preview(dialog), QStringLiteral("Text 1"));
        QTest::keyClick(list(dialog), Qt::Key_Down);
        QCOMPARE(preview(dialog), QStringLiteral("Text 0"));
        press(dialog, QStringLiteral("Restore"));
        QCOMPARE(titles().size(), 19);
        QVERIFY(titles().contains(QStringLiteral("Note 00")));
        QCOMPARE(rowsOf(dialog), 1);
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!openDialog<HistoryDialog>());
        QCOMPARE(text()->toPlainText(), QStringLiteral("Text 0"));
    }

    void theSelectionStaysWhenTheListChanges() {
        for (int i = 0; i < 4; ++i) {
            press(m_window.get(), QStringLiteral("Delete Note"));
        }
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        QVERIFY(dialog);
        list(dialog)->setCurrentIndex(list(dialog)->model()->index(2, 0));
        QTest::keyClick(list(dialog), Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(preview(dialog), QStringLiteral("Text 2"));
        QVERIFY(inbox()->removeNote(inbox()->notes().value().last()).value());
        QCOMPARE(rowsOf(dialog), 5);
        const QModelIndexList rows = list(dialog)->selectionModel()->selectedRows();
        QCOMPARE(rows.size(), 2);
        for (const QModelIndex &row : rows) {
            QVERIFY(row.row() == 2 || row.row() == 3);
        }
        QCOMPARE(list(dialog)->currentIndex().row(), 2);
        QCOMPARE(preview(dialog), QStringLiteral("Text 2"));
        press(dialog, QStringLiteral("Restore"));
        QTRY_COMPARE(rowsOf(dialog), 3);
        QCOMPARE(list(dialog)->selectionModel()->selectedRows().size(), 1);
        QCOMPARE(list(dialog)->currentIndex().row(), 0);
        QTest::keyClick(dialog, Qt::Key_Escape);
    }

    void anEarlierVersionIsRestored() {
        text()->selectAll();
        QTest::keyClicks(text(), QStringLiteral("nothing"));
        // The sheet saves what is typed.
        action(QStringLiteral("Earlier Versions…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        QVERIFY(dialog);
        QCOMPARE(rowsOf(dialog), 1);
        QCOMPARE(textIn(dialog, 0, 2), QStringLiteral("Replaced on this computer"));
        QCOMPARE(preview(dialog), QStringLiteral("Text 0"));
        press(dialog, QStringLiteral("Restore"));
        QCOMPARE(preview(dialog), QStringLiteral("nothing"));
        press(dialog, QStringLiteral("Close"));
        QCOMPARE(text()->toPlainText(), QStringLiteral("Text 0"));
        QCOMPARE(inbox()->notes().value().size(), 20);
    }

    void veryManyAreReadInParts() {
        constexpr int count = 100'000;
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("WITH RECURSIVE numbers(i) AS (SELECT 1 UNION ALL SELECT i + 1"
                           "  FROM numbers WHERE i < %1)"
                           " INSERT INTO versions (ended, size, database, note_uuid, place,"
                           "  modified, title, text)"
                           " SELECT %2, 500, (SELECT id FROM databases WHERE is_inbox),"
                           "  substr('00000000' || i, -8) || '-0000-4000-8000-000000000000', '', 1,"
                           "  'Gone ' || i, 'Text ' || i FROM numbers")
                .arg(count)
                .arg(QDateTime::currentMSecsSinceEpoch())));
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        QCoreApplication::processEvents();
        constexpr int part = NoteVersionsModel::RowsAtOnce;
        QCOMPARE(rowsOf(dialog), part);
        QCOMPARE(textIn(dialog, 0, 0), QStringLiteral("Gone 100000"));
        list(dialog)->scrollToBottom();
        QCOMPARE(rowsOf(dialog), 2 * part);
        QCOMPARE(textIn(dialog, part, 0), QStringLiteral("Gone %1").arg(count - part));
        QTest::keyClick(list(dialog), Qt::Key_End);
        QCOMPARE(rowsOf(dialog), count);
        QCOMPARE(preview(dialog), QStringLiteral("Text 1"));
        // Reading begins again when something has changed.
        press(dialog, QStringLiteral("Restore"));
        QCOMPARE(rowsOf(dialog), part);
        list(dialog)->selectAll();
        QCOMPARE(list(dialog)->selectionModel()->selectedRows().size(), count - 1);
        // They are restored without blocking the window until it is closed.
        const QSignalSpy resets(list(dialog)->model(), &QAbstractItemModel::modelReset);
        const qsizetype before = titles().size();
        press(dialog, QStringLiteral("Restore"));
        const qsizetype first = titles().size();
        QVERIFY(first > before && first < count);
        QTRY_VERIFY(titles().size() > first);
        QCOMPARE(resets.count(), 0);
        dialog->reject();
        const qsizetype restored = titles().size();
        QCoreApplication::processEvents();
        QCOMPARE(titles().size(), restored);
    }

    void aQuestionThatGoesWithItsWindowIsAskedAgain() {
        QList<RemovalDecision> decisions;
        QWidget window;
        auto *dialog = new RemovalDialog(
            {}, [&](RemovalDecision decision) { decisions.append(decision); }, &window);
        dialog->open();
        delete dialog;
        QCOMPARE(decisions, QList{RemovalDecision::Later});
    }

    void howLongTheyAreKeptIsSetInTheSheet() {
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        const auto spinBoxes = dialog->findChildren<QSpinBox *>();
        QCOMPARE(spinBoxes.size(), 2);
        QCOMPARE(spinBoxes[0]->value(), 30);
        QCOMPARE(spinBoxes[1]->value(), 256);
        spinBoxes[0]->setFocus();
        spinBoxes[0]->selectAll();
        QTest::keyClicks(spinBoxes[0], QStringLiteral("90"));
        press(dialog, QStringLiteral("Close"));
        QCOMPARE(m_host->library().historyLimits().value(), (HistoryLimits{90, 256}));
    }

    void scrollingOverTheLimitsChangesNothing() {
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        const auto spinBoxes = dialog->findChildren<QSpinBox *>();
        for (QSpinBox *box : spinBoxes) {
            const QPointF center = box->rect().center();
            QWheelEvent wheel(center, box->mapToGlobal(center), {}, QPoint(0, -1200), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(box, &wheel);
        }
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!openDialog<HistoryDialog>());
        QCOMPARE(m_host->library().historyLimits().value(), (HistoryLimits{30, 256}));
    }

    void aLimitBeyondTheFieldsRangeIsKept() {
        const HistoryLimits limits{1'000'000, 1'000'000};
        QVERIFY(m_host->library().setHistoryLimits(limits));
        action(QStringLiteral("Deleted Notes…"))->trigger();
        press(openDialog<HistoryDialog>(), QStringLiteral("Close"));
        QCOMPARE(m_host->library().historyLimits().value(), limits);
        action(QStringLiteral("Deleted Notes…"))->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto *dialog = openDialog<HistoryDialog>();
        dialog->findChildren<QSpinBox *>().first()->setValue(90);
        press(dialog, QStringLiteral("Close"));
        QCOMPARE(m_host->library().historyLimits().value(), (HistoryLimits{90, 1'000'000}));
    }

    void aLowerLimitAsksBeforeItRemovesVersions_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("days");
        QTest::addColumn<int>("left");
        QTest::addRow("default") << QString() << 30 << 2;
        QTest::addRow("keep") << QStringLiteral("Keep") << 30 << 2;
        QTest::addRow("remove") << QStringLiteral("Remove") << 7 << 0;
    }
    void aLowerLimitAsksBeforeItRemovesVersions() {
        QFETCH(QString, button);
        QFETCH(int, days);
        QFETCH(int, left);
        press(m_window.get(), QStringLiteral("Delete Note"));
        press(m_window.get(), QStringLiteral("Delete Note"));
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("UPDATE versions SET ended = ?"),
            {QDateTime::currentDateTime().addDays(-8).toMSecsSinceEpoch()}));
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *dialog = openDialog<HistoryDialog>();
        dialog->findChildren<QSpinBox *>().first()->setValue(7);
        QString question;
        QTimer::singleShot(0, dialog, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            question = box->text();
            if (button.isEmpty()) {
                QTest::keyClick(box, Qt::Key_Return);
            } else {
                press(box, button);
            }
        });
        press(dialog, QStringLiteral("Close"));
        QVERIFY2(question.contains(u'2'), qPrintable(question));
        QCOMPARE(m_host->library().historyLimits().value(), (HistoryLimits{days, 256}));
        QCOMPARE(inbox()->deletedNotes().value().size(), left);
    }

    void aRemovalWaitsForTheUser_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("left");
        QTest::addRow("keep") << QStringLiteral("Keep the Notes") << 20;
        QTest::addRow("remove") << QStringLiteral("Remove Them") << 0;
        QTest::addRow("later") << QStringLiteral("Decide Later") << 20;
    }
    void aRemovalWaitsForTheUser() {
        QFETCH(QString, button);
        QFETCH(int, left);
        synchronizeAfterAttack();
        auto *dialog = openDialog<RemovalDialog>();
        QVERIFY(dialog);
        auto *notes = dialog->findChild<QListWidget *>();
        QCOMPARE(notes->count(), 20);
        QCOMPARE(notes->item(0)->text(), QStringLiteral("Note 00"));
        QCOMPARE(titles().size(), 20);
        press(dialog, button);
        QVERIFY(!openDialog<RemovalDialog>());
        QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        QTRY_VERIFY(dispatcher->activity().isEmpty());
        QTRY_COMPARE(titles().size(), left);
        if (left > 0) {
            return;
        }
        // What was removed can be restored together.
        action(QStringLiteral("Deleted Notes…"))->trigger();
        auto *history = openDialog<HistoryDialog>();
        QCOMPARE(rowsOf(history), 20);
        QVERIFY(textIn(history, 0, 2)
                    .startsWith(QStringLiteral("Deleted by a synchronization with “")));
        list(history)->selectAll();
        press(history, QStringLiteral("Restore"));
        QTRY_COMPARE(titles().size(), 20);
    }
};

VELMORA_TEST(DeletedNotesTest)
#include "DeletedNotesTest.moc"
