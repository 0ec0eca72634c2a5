#include <QtCore/QElapsedTimer>
#include <QtCore/QLibraryInfo>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include "Application/ConflictBar.h"
#include "Application/ConflictDialog.h"
#include "Application/ErrorBoxes.h"
#include "Application/EventLog.h"
#include "Application/HistoryDialog.h"
#include "Application/LocationRemovals.h"
#include "Application/LogWindow.h"
#include "Application/MainWindow.h"
#include "Application/QuestionBox.h"
#include "Application/QuitProgressDialog.h"
#include "Application/QuitSynchronization.h"
#include "Application/RemovalDialog.h"
#include "Application/UnsavedTextDialog.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/Panel.h"
#include "Support/Patience.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

using MakeWindow = std::unique_ptr<QWidget> (*)(TestHost &host, EventLog &log);

std::unique_ptr<QWidget> mainWindow(TestHost &host, EventLog &log) {
    return std::make_unique<MainWindow>(&host.library(), &log, host.directory());
}

std::unique_ptr<QWidget> logWindow(TestHost & /*host*/, EventLog &log) {
    log.append(QStringLiteral("Sync:"),
               QStringLiteral("“Projects” could not be synchronized with “localhost – Shared”: The "
                              "server “localhost” does not accept this user name and password."));
    return std::make_unique<LogWindow>(&log);
}

std::unique_ptr<QWidget> deletedNotes(TestHost &host, EventLog & /*log*/) {
    return std::make_unique<HistoryDialog>(&host.library(), host.inbox(), Note(), nullptr);
}

std::unique_ptr<QWidget> removalQuestion(TestHost & /*host*/, EventLog & /*log*/) {
    const RemovalQuestion question{.database = QStringLiteral("Projects"),
                                   .location = QStringLiteral("dav.example.com – Shared"),
                                   .titles = QStringList(40, QStringLiteral("Garden Shed")),
                                   .total = 41};
    auto dialog = std::make_unique<RemovalDialog>(
        question, [](RemovalDecision) {}, nullptr);
    dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    return dialog;
}

std::unique_ptr<QWidget> comparison(TestHost & /*host*/, EventLog & /*log*/) {
    const Note shown{.title = QStringLiteral("Garden Shed"), .text = QStringLiteral("Paint it.")};
    const Note other{.title = QStringLiteral("Garden Shed"), .text = QStringLiteral("Sell it.")};
    return std::make_unique<ConflictDialog>(shown, other, nullptr);
}

std::unique_ptr<QWidget> conflictBar(TestHost & /*host*/, EventLog & /*log*/) {
    auto bar = std::make_unique<ConflictBar>(nullptr);
    bar->setCount(3);
    return bar;
}

std::unique_ptr<QWidget> pairingQuestion(TestHost & /*host*/, EventLog & /*log*/) {
    const Question question{
        QStringLiteral("Let “kim at writing-desk” synchronize with this computer?"),
        QStringLiteral("It shows a code. Allow it only if the code is the same as here."),
        QStringLiteral("Allow"), QStringLiteral("Refuse"), QStringLiteral("123 456")};
    auto box = std::make_unique<QuestionBox>(question, nullptr);
    box->setAttribute(Qt::WA_DeleteOnClose, false);
    return box;
}

std::unique_ptr<QWidget> errorBox(TestHost & /*host*/, EventLog & /*log*/) {
    // As the panel offers them, in the language with the longer ones.
    Error error{.domain = QStringLiteral("VelmoraSyncErrorDomain"),
                .code = 8,
                .localizedDescription =
                    QStringLiteral("“Projekte” konnte nicht mit „dav.example.com – Shared“ "
                                   "synchronisiert werden: Der Server akzeptiert den Benutzernamen "
                                   "und das Passwort nicht.")};
    for (const char *title :
         {"Ort bearbeiten …", "Erneut versuchen", "In der Dateiverwaltung anzeigen"}) {
        error.recoveryOptions.append({QString::fromUtf8(title), [] {}});
    }
    static ErrorBoxes boxes;
    boxes.noteEvent(QEvent::KeyPress);
    const QWidgetList before = QApplication::topLevelWidgets();
    boxes.show(error, nullptr);
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (!before.contains(window) && qobject_cast<QMessageBox *>(window)) {
            window->setAttribute(Qt::WA_DeleteOnClose, false);
            return std::unique_ptr<QWidget>(window);
        }
    }
    return nullptr;
}

std::unique_ptr<QWidget> quitting(TestHost & /*host*/, EventLog & /*log*/) {
    return std::make_unique<QuitProgressDialog>(nullptr);
}

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

std::unique_ptr<QWidget> preferences(TestHost &host, EventLog & /*log*/) {
    host.addDatabase(QStringLiteral("Projects"));
    host.addLocation();
    host.addLocation(QStringLiteral("https://dav.example.com/Shared.qvSyncStore"));
    return std::make_unique<PreferencesWindow>(std::make_unique<QVSyncPreferences>());
}

}  // namespace

/// All texts of the windows and questions can be read, at every usual font size and in each
/// language.
class WindowTextsTest : public QObject {
    Q_OBJECT

    const QFont m_font = QApplication::font();
    QTranslator m_german;
    QTranslator m_qtGerman;

private Q_SLOTS:
    void initTestCase() {
        registerSyncPreferencesInterface();
        QVERIFY(m_german.load(QStringLiteral(":/Velmora/Translations/Velmora_de.qm")));
        // Its package may be missing.
        std::ignore = m_qtGerman.load(QStringLiteral("qtbase_de"),
                                      QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    }
    void cleanup() {
        QCoreApplication::removeTranslator(&m_german);
        QCoreApplication::removeTranslator(&m_qtGerman);
        QApplication::setFont(m_font);
        QLocale::setDefault(QLocale::c());
    }

    void everyTextCanBeRead_data() {
        QTest::addColumn<MakeWindow>("makeWindow");
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("size");
        const std::pair<const char *, MakeWindow> windows[] = {
            {"main window", mainWindow},     {"log", logWindow},
            {"deleted notes", deletedNotes}, {"many removals", removalQuestion},
            {"comparison", comparison},      {"conflict bar", conflictBar},
            {"pairing", pairingQuestion},    {"error", errorBox},
            {"quitting", quitting},          {"preferences", preferences},
            {"removal bar", removalBar}};
        for (const auto &[name, makeWindow] : windows) {
            for (const QLocale::Language language : {QLocale::English, QLocale::German}) {
                for (const int size : {10, 14, 18}) {
                    QTest::addRow("%s, %s, %d pt", name,
                                  qPrintable(QLocale::languageToString(language)), size)
                        << makeWindow << QLocale(language) << size;
                }
            }
        }
    }

    void everyTextCanBeRead() {
        QFETCH(const MakeWindow, makeWindow);
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
                                                          {"failed", askAboutFailedChanges}};
        for (const auto &[name, ask] : questions) {
            for (const QLocale::Language language : {QLocale::English, QLocale::German}) {
                for (const int size : {10, 18}) {
                    QTest::addRow("%s, %s, %d pt", name,
                                  qPrintable(QLocale::languageToString(language)), size)
                        << ask << QLocale(language) << size;
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
            if (problems.isEmpty() || shown.hasExpired(Patience)) {
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
        QLocale::setDefault(locale);
        if (locale.language() == QLocale::German) {
            QCoreApplication::installTranslator(&m_german);
            QCoreApplication::installTranslator(&m_qtGerman);
        }
        QFont font = m_font;
        font.setPointSize(size);
        QApplication::setFont(font);
    }
};

VELMORA_TEST(WindowTextsTest)
#include "WindowTextsTest.moc"
