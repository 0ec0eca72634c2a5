#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include "Application/LocationRemovals.h"
#include "Application/QuitSynchronization.h"
#include "Application/UnsavedTextDialog.h"
#include "Controller/Preferences/QVServerPreferencesController.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Interface/TableView.h"
#include "Scenarios/EveryWindow.h"
#include "Support/EventTimeout.h"
#include "Support/Languages.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Asks something in a dialog with a nested event loop.
using Ask = void (*)(TestHost &host, MainWindow &window);

void askAboutUnsavedText(TestHost & /*host*/, MainWindow &window) {
    UnsavedTextDialog::ask(
        &window, {.title = QStringLiteral("Garden Shed"), .text = QStringLiteral("Paint it.")},
        {.localizedDescription = QStringLiteral(
             "The profile cannot be written: The disk that contains “/home/ida/.local/share/"
             "Velmora” is full. Free some space on it.")});
}

/// Ticks a location for databases with unsent changes.
QVSyncStates makeUnsentChanges(TestHost &host) {
    const auto location = host.addLocation(QStringLiteral("http://127.0.0.1:1/Shared.qvSyncStore"));
    QVSyncStates states;
    for (const char *name : {"Projects", "Recipes", "Travel"}) {
        const auto database = host.addDatabase(QString::fromUtf8(name));
        Note note{{}, QStringLiteral("Title"), QStringLiteral("Text"), {}};
        std::ignore = database->saveNote(note);
        states.append(host.addState(location, database));
        states.last()->setEnabled(true);
    }
    return states;
}

void askAboutUnsentChanges(TestHost &host, MainWindow &window) {
    makeUnsentChanges(host);
    QuitSynchronization(&window).run();
}

void askAboutFailedChanges(TestHost &host, MainWindow &window) {
    for (const auto &state : makeUnsentChanges(host)) {
        state->setSyncOnClose(true);
    }
    QuitSynchronization(&window).run();
}

void askAboutRevocation(TestHost & /*host*/, MainWindow &window) {
    const auto controller = QVServerPreferencesController::controller();
    controller->addAuthorizedClientsObject(
        QStringLiteral("kim at the-computer-in-the-living-room.example.com"));
    const QWidget *sheet = controller->window();
    QTimer::singleShot(0, sheet, [&] {
        const auto *table = sheet->findChild<TableView *>(QStringLiteral("clientsTable"));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(table->item(0, 0)).center());
        sheet->findChild<QPushButton *>(QStringLiteral("revokeButton"))->click();
        QObject::connect(sheet->findChild<QMessageBox *>(), &QDialog::finished, controller.get(),
                         [&] { controller->acceptModalSheet(nullptr); });
    });
    controller->runServerPreferencesModalForWindow(&window);
}

std::unique_ptr<QWidget> removalBar(TestHost &host, EventLog & /*log*/) {
    auto window = std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
    host.addLocation(QStringLiteral("https://dav.example.com/Shared.qvSyncStore"));
    host.save();
    auto *removals = new LocationRemovals(&host.locations(), window.get());
    window->showRemovals(removals, [] { return failure(Error()); });
    host.locations().removeObjectFromSyncLocationsAtIndex(0);
    host.save();
    return window;
}

}  // namespace

/// All texts of the windows and questions can be read, at every usual font size and in each
/// language.
class WindowTextsTest : public QObject {
    Q_OBJECT

    const QFont m_font = QApplication::font();
    Languages m_languages;

    /// The languages with the longest texts are shown at the extremes, too.
    static QList<int> sizesFor(const QLocale &locale) {
        switch (locale.language()) {
            case QLocale::English:
            case QLocale::German:
                return {10, 14, 18};
            default:
                return {9, 18};
        }
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void cleanup() {
        m_languages.reset();
        QApplication::setFont(m_font);
    }

    void everyTextCanBeRead_data() {
        QTest::addColumn<EveryWindow::MakeWindow>("makeWindow");
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("size");
        QList<std::pair<const char *, EveryWindow::MakeWindow>> windows = EveryWindow::all();
        windows.append({"removal bar", removalBar});
        windows.append({"failed synchronization", EveryWindow::failedSynchronization});
        for (const auto &[name, makeWindow] : std::as_const(windows)) {
            for (const QLocale &locale : Languages::all()) {
                // Its synchronization takes longer than the others.
                const bool isSlow = makeWindow == EveryWindow::failedSynchronization;
                for (const int size : isSlow ? QList<int>{18} : sizesFor(locale)) {
                    QTest::addRow("%s, %s, %d pt", name,
                                  qPrintable(QLocale::languageToString(locale.language())), size)
                        << makeWindow << locale << size;
                }
            }
        }
    }

    void everyTextCanBeRead() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QLocale, locale);
        QFETCH(const int, size);
        use(locale, size);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = makeWindow(host, log);
        window->show();
        QTRY_COMPARE(ShownTexts::problems(*window).join(u'\n'), QString());
        window->close();
    }

    void everyQuestionCanBeRead_data() {
        QTest::addColumn<Ask>("ask");
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("size");
        const std::pair<const char *, Ask> questions[] = {{"unsaved text", askAboutUnsavedText},
                                                          {"unsent", askAboutUnsentChanges},
                                                          {"failed", askAboutFailedChanges},
                                                          {"revocation", askAboutRevocation}};
        for (const auto &[name, ask] : questions) {
            for (const QLocale &locale : Languages::all()) {
                for (const int size : sizesFor(locale)) {
                    QTest::addRow("%s, %s, %d pt", name,
                                  qPrintable(QLocale::languageToString(locale.language())), size)
                        << ask << locale << size;
                }
            }
        }
    }

    void everyQuestionCanBeRead() {
        QFETCH(const Ask, ask);
        QFETCH(const QLocale, locale);
        QFETCH(const int, size);
        use(locale, size);
        TestHost host;
        EventLog log;
        MainWindow window(&host.library(), &log, host.directory());
        window.show();
        int boxes = 0;
        QStringList problems;
        QElapsedTimer shown;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box) {
                return;
            }
            if (!shown.isValid()) {
                shown.start();
            }
            problems = ShownTexts::problems(*box);
            if (problems.isEmpty() || shown.hasExpired(EventTimeout)) {
                ++boxes;
                timer.stop();
                box->reject();
            }
        });
        timer.start(10);
        ask(host, window);
        QCOMPARE(boxes, 1);
        QCOMPARE(problems.join(u'\n'), QString());
    }

private:
    void use(const QLocale &locale, int size) {
        m_languages.use(locale);
        QFont font = m_font;
        font.setPointSize(size);
        QApplication::setFont(font);
    }
};

VELMORA_TEST(WindowTextsTest)
#include "WindowTextsTest.moc"
