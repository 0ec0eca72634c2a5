#include "Application/MainWindow.h"

#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QAction>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolBar>

#include <csignal>

#include "Application/EndSignals.h"
#include "Application/EventLog.h"
#include "Application/NoteExport.h"
#include "Application/NotesList.h"
#include "Application/PreferencesWindow.h"
#include "Application/QuitGuard.h"
#include "Support/FailingTable.h"
#include "Support/Languages.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// The main window with its real widgets on the real engine.
class MainWindowTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_plans;
    EventLog m_log;
    std::unique_ptr<MainWindow> m_window;

    QListWidget *databases() const {
        return m_window->findChild<QListWidget *>(QStringLiteral("databases"));
    }
    NotesList *notes() const { return m_window->findChild<NotesList *>(); }
    QPlainTextEdit *text() const { return m_window->findChild<QPlainTextEdit *>(); }
    QLineEdit *title() const { return m_window->findChild<QLineEdit *>(); }
    QPushButton *deleteButton() const {
        const auto buttons = m_window->findChildren<QPushButton *>();
        const auto found = std::find_if(buttons.begin(), buttons.end(), [](QPushButton *button) {
            return button->text().remove(u'&') == QStringLiteral("Delete Note");
        });
        return found == buttons.end() ? nullptr : *found;
    }
    QAction *undoAction() const {
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->text().contains(QStringLiteral("Undo Delete"))) {
                return action;
            }
        }
        return nullptr;
    }

    QAction *action(const char *title) const {
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->text().remove(u'&') == QString::fromUtf8(title)) {
                return action;
            }
        }
        return nullptr;
    }
    /// Calls `act` with the dialog that will be opened.
    template <class Dialog>
    static void inDialog(const std::function<void(Dialog &)> &act) {
        auto *timer = new QTimer(qApp);
        connect(timer, &QTimer::timeout, timer, [timer, act] {
            if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget())) {
                timer->deleteLater();
                act(*dialog);
            }
        });
        timer->start(0);
    }
    void exportTo(const QString &path, const char *command) const {
        inDialog<QFileDialog>([path](QFileDialog &dialog) {
            dialog.selectFile(path);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        action(command)->trigger();
    }
    static QByteArray contentsOf(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void openWindow() {
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        m_window->show();
        databases()->setCurrentRow(1);
    }
    void activate(QWidget *window) const {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    /// Returns the titles in the menu that Shift+F10 or a click opens on `list`.
    QStringList titlesInMenu(QWidget *list, const char *name, bool isClicked) const {
        auto *menu = list->findChild<QMenu *>(QLatin1StringView(name));
        if (isClicked) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, {4, 4}, list->mapToGlobal(QPoint()));
            QCoreApplication::sendEvent(qobject_cast<QAbstractScrollArea *>(list)->viewport(),
                                        &event);
        } else {
            QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
        }
        if (!menu || !menu->isVisible()) {
            return {};
        }
        menu->close();
        QStringList titles;
        for (const QAction *each : menu->actions()) {
            titles.append(each->text().remove(u'&'));
        }
        return titles;
    }
    void typeText(const QString &typed) const {
        text()->moveCursor(QTextCursor::End);
        QTest::keyClicks(text(), typed);
    }
    QPushButton *removeButton() const {
        const auto buttons = m_window->findChildren<QPushButton *>();
        const auto found = std::find_if(buttons.begin(), buttons.end(), [](const auto *each) {
            return each->text() == QStringLiteral("De&lete Note");
        });
        return found == buttons.end() ? nullptr : *found;
    }
    QStringList savedTexts() const {
        QStringList texts;
        const QList<Note> saved = m_plans->notes().value();
        for (const Note &note : saved) {
            texts.append(note.text);
        }
        return texts;
    }
    QStringList journal() const {
        return QDir(m_host->directory()).entryList({QStringLiteral("unsaved-*")});
    }
    /// Clicks the buttons of the questions that come next, one after the other.
    void answer(QStringList buttons) const {
        QTimer::singleShot(0, m_window.get(), [this, buttons]() mutable {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            const QString wanted = buttons.takeFirst();
            for (QAbstractButton *button : box->buttons()) {
                if (button->text().remove(u'&') == wanted) {
                    if (!buttons.isEmpty()) {
                        answer(buttons);
                    }
                    button->click();
                    return;
                }
            }
            QFAIL(qPrintable(wanted));
        });
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_plans = m_host->addDatabase(QStringLiteral("Plans"));
        m_host->addDatabase(QStringLiteral("Other"));
        for (const char *name : {"First", "Second"}) {
            Note note{.title = QString::fromLatin1(name), .text = QString::fromLatin1(name)};
            QVERIFY(m_plans->saveNote(note));
        }
        openWindow();
    }
    void cleanup() {
        m_window.reset();
        m_plans.reset();
        m_host->letSavesPass();
        m_host.reset();
    }

    void aDatabaseThatCannotBeReadIsNotShownAsWithoutConflicts() {
        const QString name = databases()->item(1)->text();
        {
            const FailingTable fault(m_host->engine().profile(), QStringLiteral("counts"),
                                     FailingTable::Fault::AllRows);
            Q_EMIT m_plans->notesChanged({});
            QCOMPARE(databases()->item(1)->text(), name + QStringLiteral(" · cannot be read"));
        }
        Q_EMIT m_plans->notesChanged({});
        QCOMPARE(databases()->item(1)->text(), name);
    }

    void anotherDatabaseIsNotChosenWhileTextIsUnsaved() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        answer({QStringLiteral("Copy Text"), QStringLiteral("Keep Editing")});
        databases()->setCurrentRow(2);
        QCOMPARE(databases()->currentRow(), 1);
        QCOMPARE(text()->toPlainText(), QStringLiteral("First typed"));
        QVERIFY(QGuiApplication::clipboard()->text().endsWith(QStringLiteral("First typed")));
        m_host->letSavesPass();
        databases()->setCurrentRow(2);
        QCOMPARE(databases()->currentRow(), 2);
        QCOMPARE(savedTexts().first(), QStringLiteral("First typed"));
        QVERIFY(journal().isEmpty());
    }

    void aChangedListOfDatabasesLeavesTheTextAlone() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        Q_EMIT m_host->library().knownDatabasesChanged();
        QCOMPARE(databases()->currentRow(), 1);
        QCOMPARE(text()->toPlainText(), QStringLiteral("First typed"));
        m_host->letSavesPass();
        QTRY_COMPARE(savedTexts().first(), QStringLiteral("First typed"));
    }

    void theWindowStaysOpenUntilTheTextIsSaved() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        answer({QStringLiteral("Keep Editing")});
        QVERIFY(!m_window->close());
        QVERIFY(m_window->isVisible());
        answer({QStringLiteral("Try Again"), QStringLiteral("Keep Editing")});
        QVERIFY(!m_window->close());
        m_host->letSavesPass();
        QVERIFY(m_window->close());
        QCOMPARE(savedTexts().first(), QStringLiteral("First typed"));
    }

    void quittingWhileTheUserIsAskedAboutAHiddenTextIsNotLost() {
        auto *guard = new QuitGuard(m_window.get());
        guard->setHiding(true);
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        int asked = 0;
        const auto keepEditing = [&](QMessageBox &box) {
            ++asked;
            box.reject();
        };
        inDialog<QMessageBox>([&](QMessageBox &box) {
            m_window->quit();
            inDialog<QMessageBox>(keepEditing);
            keepEditing(box);
        });
        m_window->close();
        QTRY_COMPARE(asked, 2);
        QVERIFY(m_window->isVisible());
        m_host->letSavesPass();
        m_window->close();
        QVERIFY(!m_window->isVisible());
        QCOMPARE(savedTexts().first(), QStringLiteral("First typed"));
    }

    void aTextThatTheUserDiscardsIsRemoved() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        answer({QStringLiteral("Discard")});
        QVERIFY(m_window->close());
        QVERIFY(journal().isEmpty());
        m_host->letSavesPass();
        QCOMPARE(savedTexts().first(), QStringLiteral("First"));
    }

    void anUnsavedTextIsRestoredInAMovedProfile() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        QTRY_COMPARE(journal().size(), 1);
        m_window.reset();
        m_host->letSavesPass();
        m_plans.reset();
        const QString moved = QFileInfo(m_host->directory()).path() + QStringLiteral("/Moved");
        const QString directory = m_host->directory();
        m_host->goToComputer(QStringLiteral("Other"));
        QVERIFY(QDir().rename(directory, moved));
        m_host->goToComputer(QStringLiteral("Moved"));
        QCOMPARE(journal().size(), 1);
        m_plans = m_host->library().knownDatabases().at(1);
        openWindow();
        QCOMPARE(savedTexts(),
                 QStringList({QStringLiteral("First typed"), QStringLiteral("Second")}));
        QVERIFY(journal().isEmpty());
    }

    void deletingANoteKeepsWhatWasTyped() {
        typeText(QStringLiteral(" typed"));
        removeButton()->click();
        QCOMPARE(savedTexts(), QStringList{QStringLiteral("Second")});
        const QList<NoteVersion> deleted = m_plans->deletedNotes().value();
        QCOMPARE(deleted.size(), 1);
        QCOMPARE(m_plans->noteOfVersion(deleted.first()).value().text,
                 QStringLiteral("First typed"));
    }

    void aNoteWithUnsavedTextIsNotDeleted() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        answer({QStringLiteral("Keep Editing")});
        removeButton()->click();
        QCOMPARE(text()->toPlainText(), QStringLiteral("First typed"));
        QCOMPARE(journal().size(), 1);
        m_host->letSavesPass();
        QTRY_COMPARE(savedTexts().size(), 2);
        removeButton()->click();
        QCOMPARE(savedTexts(), QStringList{QStringLiteral("Second")});
        QVERIFY(journal().isEmpty());
    }

    void anUnsavedTextSurvivesTheProcess() {
        m_host->makeSavesFail();
        typeText(QStringLiteral(" typed"));
        QTRY_COMPARE(journal().size(), 1);
        m_window.reset();
        m_host->letSavesPass();
        m_plans.reset();
        m_host->restart();
        m_plans = m_host->library().knownDatabases().at(1);
        openWindow();
        QCOMPARE(savedTexts(),
                 QStringList({QStringLiteral("First typed"), QStringLiteral("Second")}));
        QVERIFY(journal().isEmpty());
    }

    void quittingAsksAboutPreferencesThatCannotBeSaved() {
        const QPointer<PreferencesWindow> preferences = m_window->showPreferences();
        QVERIFY(preferences);
        m_host->makeSavesFail();
        answer({QStringLiteral("Try Again"), QStringLiteral("Cancel")});
        QVERIFY(!m_window->close());
        QVERIFY(preferences->isVisible());
        answer({QStringLiteral("Discard")});
        QVERIFY(m_window->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!preferences);
    }

    void theSignalToEndSavesWhatIsTyped() {
        const EndSignals endSignals;
        connect(&endSignals, &EndSignals::received, m_window.get(), &MainWindow::saveAll);
        const QSignalSpy received(&endSignals, &EndSignals::received);
        typeText(QStringLiteral(" typed"));
        QCOMPARE(::raise(SIGTERM), 0);
        QTRY_COMPARE(received.size(), 1);
        QCOMPARE(savedTexts().first(), QStringLiteral("First typed"));
    }

    void aDeletedNoteComesBack() {
        deleteButton()->setFocus();
        QTest::keyClick(deleteButton(), Qt::Key_Space);
        QCOMPARE(savedTexts(), QStringList{QStringLiteral("Second")});
        QVERIFY(notes()->hasFocus() || m_window->focusWidget() == notes());
        undoAction()->trigger();
        QCOMPARE(savedTexts(), QStringList({QStringLiteral("Second"), QStringLiteral("First")}));
        QCOMPARE(text()->toPlainText(), QStringLiteral("First"));
        QVERIFY(!undoAction()->isEnabled());
    }

    void theKeyDeletesTheNoteInTheListOnly() {
        activate(m_window.get());
        title()->setFocus();
        title()->setCursorPosition(0);
        QTest::keyClick(title(), Qt::Key_Delete);
        QCOMPARE(title()->text(), QStringLiteral("irst"));
        notes()->setFocus();
        QTest::keyClick(notes(), Qt::Key_Delete);
        QCOMPARE(savedTexts(), QStringList{QStringLiteral("Second")});
        QTest::keyClick(notes(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(savedTexts(), QStringList({QStringLiteral("Second"), QStringLiteral("First")}));
        QCOMPARE(title()->text(), QStringLiteral("irst"));
    }

    void theListsHaveMenus_data() {
        QTest::addColumn<bool>("isClicked");
        QTest::newRow("key") << false;
        QTest::newRow("click") << true;
    }
    void theListsHaveMenus() {
        QFETCH(const bool, isClicked);
        QCOMPARE(titlesInMenu(databases(), "databaseMenu", isClicked),
                 QStringList({QStringLiteral("Sync Now"), QStringLiteral("Close"),
                              QStringLiteral("Rename…"), QStringLiteral("Export…"), QString(),
                              QStringLiteral("Delete…")}));
        QCOMPARE(titlesInMenu(notes(), "noteMenu", isClicked),
                 QStringList({QStringLiteral("New Note"), QString(),
                              QStringLiteral("Earlier Versions…"), QStringLiteral("Export Note…"),
                              QString(), QStringLiteral("Delete Note")}));
    }

    void theMenuOfTheNotesFollowsTheNote() {
        QVERIFY(action("Delete Note")->isEnabled());
        action("Delete Note")->trigger();
        action("Delete Note")->trigger();
        QCOMPARE(savedTexts(), QStringList());
        QVERIFY(!action("Delete Note")->isEnabled());
        action("New Note")->trigger();
        QCOMPARE(savedTexts().size(), 1);
        QVERIFY(m_host->library().closeDatabase(m_plans));
        QVERIFY(!action("New Note")->isEnabled());
    }

    void theKeySynchronizesTheDatabaseWithWhatIsTyped() {
        const auto location = m_host->addLocation();
        const auto state = m_host->addState(location, m_plans);
        const auto other = m_host->addState(location, m_host->library().knownDatabases().at(2));
        for (const auto &each : {state, other}) {
            each->setEnabled(true);
        }
        m_host->save();
        activate(m_window.get());
        typeText(QStringLiteral(" typed"));
        QTest::keyClick(text(), Qt::Key_F5);
        QTRY_VERIFY(state->lastSynced().isValid());
        QTRY_VERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
        QVERIFY(!other->lastSynced().isValid());
        QVERIFY(savedTexts().contains(QStringLiteral("First typed")));
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void theKeySaysIfThereIsNothingToSynchronizeWith() {
        activate(m_window.get());
        QTest::keyClick(m_window.get(), Qt::Key_F5);
        const QList<Error> errors = m_host->application().presentedErrors();
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors.first().localizedDescription.contains(m_plans->name()));
        errors.first().recoveryOptions.first().choose();
        const QWidgetList windows = QApplication::topLevelWidgets();
        QVERIFY(std::any_of(windows.begin(), windows.end(), [](const QWidget *each) {
            return qobject_cast<const PreferencesWindow *>(each) && each->isVisible();
        }));
        QVERIFY(m_window->close());
    }

    void theKeyQuitsInSyncPreferences() {
        const QSignalSpy quitting(m_window.get(), &MainWindow::quitRequested);
        PreferencesWindow *preferences = m_window->showPreferences();
        activate(preferences);
        QTest::keyClick(preferences, Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quitting.size(), 1);
        QVERIFY(!m_window->isVisible());
    }

    void deletingSparesAnEditThatWasNotSeen() {
        // What the user is typing hides the edit that another computer makes.
        QTest::keyClicks(text(), QStringLiteral("typed "));
        Note edit = m_plans->notes().value().first();
        edit.text = QStringLiteral("from another computer");
        QVERIFY(m_plans->saveNote(edit));
        deleteButton()->click();
        QVERIFY(savedTexts().contains(QStringLiteral("from another computer")));
        undoAction()->trigger();
        QVERIFY(savedTexts().contains(QStringLiteral("typed First")));
    }

    void noMnemonicIsUsedTwice_data() {
        QTest::addColumn<QLocale>("locale");
        for (const QLocale &locale : Languages::all()) {
            QTest::newRow(qPrintable(QLocale::languageToString(locale.language()))) << locale;
        }
    }
    void noMnemonicIsUsedTwice() {
        QFETCH(const QLocale, locale);
        Languages languages;
        languages.use(locale);
        m_window.reset();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        QStringList titles;
        for (const QAction *action : m_window->menuBar()->actions()) {
            titles.append(action->text());
        }
        for (const QPushButton *button : m_window->findChildren<QPushButton *>()) {
            titles.append(button->text());
        }
        QSet<QKeySequence> mnemonics;
        for (const QString &each : titles) {
            const QKeySequence mnemonic = QKeySequence::mnemonic(each);
            QVERIFY2(!mnemonic.isEmpty(), qPrintable(each));
            QVERIFY2(!mnemonics.contains(mnemonic), qPrintable(each));
            mnemonics.insert(mnemonic);
        }
    }

    void mostOfTheFirstWidthIsForTheText_data() {
        QTest::addColumn<int>("size");
        QTest::newRow("small") << 9;
        QTest::newRow("usual") << 12;
        QTest::newRow("large") << 18;
    }
    void mostOfTheFirstWidthIsForTheText() {
        QFETCH(const int, size);
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPointSize(size);
        QApplication::setFont(font);
        m_window.reset();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        // The test's screen is smaller than those of users.
        m_window->resize(m_window->size().expandedTo({1024, 700}));
        m_window->show();
        const int text = m_window->findChild<QPlainTextEdit *>()->width();
        const int lists = m_window->width() - text;
        QApplication::setFont(usual);
        // As far as the buttons below the notes are not wider.
        QVERIFY2(text * 5 >= lists * 4, qPrintable(QStringLiteral("%1, %2").arg(text).arg(lists)));
    }

    void theVersionIsShown() {
        QCoreApplication::setApplicationVersion(QStringLiteral("7.5"));
        m_window->show();
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->text() == QStringLiteral("&About Velmora")) {
                action->trigger();
            }
        }
        auto *box = m_window->findChild<QMessageBox *>();
        QVERIFY(box);
        QTRY_VERIFY(box->isVisible());
        QCOMPARE(box->text(), QStringLiteral("Velmora 7.5"));
        QTest::keyClick(box, Qt::Key_Escape);
        QTRY_VERIFY(!m_window->findChild<QMessageBox *>());
    }

    void theToolBarShowsNoMnemonics() {
        QTranslator table;
        QVERIFY(table.load(QStringLiteral(":/Velmora/Translations/Velmora_ja.qm")));
        QVERIFY(QCoreApplication::installTranslator(&table));
        m_window.reset();
        m_window = std::make_unique<MainWindow>(&m_host->library(), &m_log, m_host->directory());
        QStringList shown;
        for (const QAction *action : m_window->findChild<QToolBar *>()->actions()) {
            shown.append(action->iconText());
        }
        const QStringList titles{QStringLiteral("新規データベース…"), QStringLiteral("名前を変更…"),
                                 QStringLiteral("閉じる"), QStringLiteral("同期設定…")};
        QCOMPARE(shown, titles);
    }

    void anActivatedDatabaseIsOpenedAndStaysOpen() {
        Q_EMIT databases()->itemActivated(databases()->item(1));
        QVERIFY(m_plans->isOpen());
        QVERIFY(m_host->library().closeDatabase(m_plans));
        databases()->setCurrentRow(1);
        Q_EMIT databases()->itemActivated(databases()->item(1));
        QVERIFY(m_plans->isOpen());
    }

    void aNewDatabaseIsSelected() {
        inDialog<QInputDialog>([](QInputDialog &dialog) {
            dialog.setTextValue(QStringLiteral("Attic"));
            dialog.accept();
        });
        action("New Database…")->trigger();
        QCOMPARE(databases()->currentItem()->text(), QStringLiteral("Attic"));
    }

    void theInboxCannotBeDeleted() {
        databases()->setCurrentRow(0);
        QVERIFY(!action("Delete…")->isEnabled());
        QVERIFY(action("Delete…")->toolTip().contains(QStringLiteral("inbox")));
        databases()->setCurrentRow(1);
        QVERIFY(action("Delete…")->isEnabled());
        QVERIFY(!action("Delete…")->toolTip().contains(QStringLiteral("inbox")));
    }

    void aDatabaseIsDeletedOnlyIfTheUserConfirms() {
        QString text;
        QString details;
        inDialog<QMessageBox>([&](QMessageBox &box) {
            text = box.text();
            details = box.informativeText();
            QVERIFY(box.defaultButton());
            QTest::keyClick(&box, Qt::Key_Return);
        });
        action("Delete…")->trigger();
        QCOMPARE(text, QStringLiteral("Delete the database “%1”?").arg(m_plans->name()));
        QVERIFY(details.contains(QStringLiteral("Its 2 notes ")));
        QVERIFY(details.contains(QStringLiteral("No sync location has a copy")));
        QCOMPARE(databases()->count(), 3);
        QVERIFY(m_host->library().deletedDatabases().isEmpty());
    }

    void theQuestionNamesTheLocationsAndWhatTheyLack() {
        const auto location = m_host->addLocation(m_host->makeSyncStore(QStringLiteral("Home")));
        const auto state = m_host->addState(location, m_plans);
        state->setEnabled(true);
        m_host->save();
        auto *dispatcher = m_host->engine().plugin().dispatcher();
        const auto ask = [this] {
            QString details;
            inDialog<QMessageBox>([&](QMessageBox &box) {
                details = box.informativeText();
                box.reject();
            });
            action("Delete…")->trigger();
            return details;
        };
        QVERIFY(ask().contains(QStringLiteral("No sync location has a copy")));
        dispatcher->performSynchronizationsWithSynchronizationStates({state});
        QTRY_VERIFY(dispatcher->activity().isEmpty());
        QVERIFY(ask().contains(QStringLiteral("import it from them: “Home”")));
        QVERIFY(!ask().contains(QStringLiteral("latest changes")));
        typeText(QStringLiteral(" more"));
        QVERIFY(ask().contains(QStringLiteral("not there yet: “Home”")));
    }

    void aDeletedDatabaseIsRestoredByKeyboard() {
        const QString name = m_plans->name();
        typeText(QStringLiteral(" typed"));
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        databases()->setFocus();
        inDialog<QMessageBox>([](QMessageBox &box) {
            for (QAbstractButton *button : box.buttons()) {
                if (box.buttonRole(button) == QMessageBox::DestructiveRole) {
                    button->click();
                }
            }
        });
        QTest::keyClick(databases(), Qt::Key_Delete);
        QTRY_COMPARE(databases()->count(), 2);
        QCOMPARE(databases()->currentItem()->text(), QStringLiteral("Other"));
        QVERIFY(m_window->findChild<QWidget *>(QStringLiteral("undoBar"))->isVisible());
        QVERIFY(!undoAction()->isEnabled());
        QVERIFY(action("Restore Deleted Database")->isEnabled());
        action("Restore Deleted Database")->trigger();
        QCOMPARE(databases()->count(), 3);
        QCOMPARE(databases()->currentItem()->text(), name);
        QVERIFY(m_window->findChild<QWidget *>(QStringLiteral("undoBar"))->isHidden());
        QVERIFY(savedTexts().join(u' ').contains(QStringLiteral("typed")));
        QVERIFY(!action("Restore Deleted Database")->isEnabled());
        // The row of the restored database follows it.
        m_host->renameDatabase(m_plans, QStringLiteral("Later"));
        QCOMPARE(databases()->currentItem()->text(), QStringLiteral("Later"));
    }

    void theDatabaseAndTheNoteAreExportedWithWhatIsTyped() {
        typeText(QStringLiteral(" typed"));
        const QString page = m_host->directory() + QStringLiteral("/exported.md");
        exportTo(page, "Export…");
        QCOMPARE(contentsOf(page), NoteExport::markdown({m_plans->name(), *m_plans->notes()}));
        QVERIFY(contentsOf(page).contains(" typed"));
        const QString object = m_host->directory() + QStringLiteral("/exported.json");
        exportTo(object, "Export Note…");
        QCOMPARE(contentsOf(object), NoteExport::json({{}, {m_plans->notes().value().first()}}));
    }

    void aLongTitleIsNotCut() {
        Note note = m_plans->notes().value().first();
        note.title = QString(3000, u't') + QStringLiteral("\u00A0\u2028\r\n end");
        QVERIFY(m_plans->saveNote(note));
        typeText(QStringLiteral("!"));
        m_window->saveAll();
        QCOMPARE(m_plans->notes().value().first().title, note.title);
        QTest::keyClicks(title(), QStringLiteral("s"));
        m_window->saveAll();
        QCOMPARE(m_plans->notes().value().first().title, note.title + u's');
    }

    void aNoteThatCannotBeShownIsLeftAlone() {
        Note note = m_plans->notes().value().first();
        note.title = QString(40000, u't');
        QVERIFY(m_plans->saveNote(note));
        QVERIFY(title()->isReadOnly());
        QVERIFY(text()->isReadOnly());
        QVERIFY(m_window->findChild<QLabel *>(QStringLiteral("notice"))->isVisible());
        typeText(QStringLiteral("!"));
        m_window->saveAll();
        QCOMPARE(m_plans->notes().value().first().title, note.title);
        notes()->setCurrentRow(1);
        QVERIFY(!title()->isReadOnly());
    }
};

VELMORA_TEST(MainWindowTest)
#include "MainWindowTest.moc"
