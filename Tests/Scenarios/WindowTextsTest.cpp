#include <QtWidgets/QApplication>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/EveryQuestion.h"
#include "Scenarios/EveryWindow.h"
#include "Support/Languages.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

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
                return {9, 14, 18};
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
        QList<std::pair<const char *, EveryWindow::MakeWindow>> windows =
            EveryWindow::all() + EveryWindow::further();
        windows.append({"failed synchronization", EveryWindow::failedSynchronization});
        windows.append({"folder access", EveryWindow::folderAccess});
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
        QTest::addColumn<EveryQuestion::Ask>("ask");
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("size");
        for (const auto &[name, ask] : EveryQuestion::all()) {
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
        QFETCH(const EveryQuestion::Ask, ask);
        QFETCH(const QLocale, locale);
        QFETCH(const int, size);
        use(locale, size);
        TestHost host;
        EventLog log;
        MainWindow window(&host.library(), &log, host.directory());
        window.show();
        const auto problems = EveryQuestion::problems(
            ask, host, window, [](QWidget &box) { return ShownTexts::problems(box); });
        QVERIFY(problems);
        QCOMPARE(problems->join(u'\n'), QString());
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
