#include <QtWidgets/QApplication>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Scenarios/EveryWindow.h"
#include "Support/Languages.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Without the title bar.
constexpr QSize SmallScreen(1024, 700);

}  // namespace

/// On a small screen all texts of a window can be read, in each language.
class SmallScreenTest : public QObject {
    Q_OBJECT

    const QFont m_font = QApplication::font();
    Languages m_languages;

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void cleanup() {
        m_languages.reset();
        QApplication::setFont(m_font);
    }

    void everyWindowFitsOnASmallScreen_data() {
        QTest::addColumn<EveryWindow::MakeWindow>("makeWindow");
        QTest::addColumn<QLocale>("locale");
        for (const auto &[name, makeWindow] : EveryWindow::all()) {
            for (const QLocale &locale : Languages::all()) {
                QTest::addRow("%s, %s", name,
                              qPrintable(QLocale::languageToString(locale.language())))
                    << makeWindow << locale;
            }
        }
    }

    void everyWindowFitsOnASmallScreen() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QLocale, locale);
        m_languages.use(locale);
        QFont font = m_font;
        font.setPointSize(12);
        QApplication::setFont(font);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = makeWindow(host, log);
        window->show();
        window->resize(SmallScreen);
        QTRY_COMPARE(ShownTexts::problems(*window).join(u'\n'), QString());
        QVERIFY2(window->width() <= SmallScreen.width() && window->height() <= SmallScreen.height(),
                 qPrintable(QDebug::toString(window->size())));
        window->close();
    }
};

VELMORA_TEST(SmallScreenTest)
#include "SmallScreenTest.moc"
