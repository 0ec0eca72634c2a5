#include <QtWidgets/QApplication>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

#include "Application/PaneArea.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Interface/Nib.h"
#include "Scenarios/EveryQuestion.h"
#include "Scenarios/EveryWindow.h"
#include "Support/Languages.h"
#include "Support/SheetForms.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// Without the title bar.
constexpr QSize SmallScreen(1024, 700);

}  // namespace

/// On a small screen all texts of each window, sheet and question can be read, in each language.
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
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<QLocale>("locale");
        QList<std::pair<const char *, EveryWindow::MakeWindow>> windows =
            EveryWindow::all() + EveryWindow::further();
        windows.append({"folder access", EveryWindow::folderAccess});
        windows.append({"failed synchronization", EveryWindow::failedSynchronization});
        for (const QLocale &locale : Languages::all()) {
            const QByteArray language = QLocale::languageToString(locale.language()).toUtf8();
            for (const auto &[name, makeWindow] : std::as_const(windows)) {
                QTest::addRow("%s, %s", name, language.constData())
                    << makeWindow << QString() << locale;
            }
            for (const QString &sheet : SheetForms::names()) {
                QTest::addRow("%s, %s", qPrintable(sheet), language.constData())
                    << EveryWindow::MakeWindow(nullptr) << sheet << locale;
            }
        }
    }

    void everyWindowFitsOnASmallScreen() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QString, sheet);
        QFETCH(const QLocale, locale);
        use(locale, 12);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window =
            makeWindow ? makeWindow(host, log) : std::unique_ptr<QWidget>(Nib::makeForm(sheet));
        window->show();
        if (!makeWindow) {
            // Texts that come later, as errors do.
            ShownTexts::fill(*window);
        }
        window->resize(SmallScreen);
        QTRY_COMPARE(problems(*window).join(u'\n'), QString());
        window->close();
    }

    void everyQuestionFitsOnASmallScreen_data() {
        QTest::addColumn<EveryQuestion::Ask>("ask");
        QTest::addColumn<QLocale>("locale");
        for (const auto &[name, ask] : EveryQuestion::all()) {
            for (const QLocale &locale : Languages::all()) {
                QTest::addRow("%s, %s", name,
                              qPrintable(QLocale::languageToString(locale.language())))
                    << ask << locale;
            }
        }
    }

    void everyQuestionFitsOnASmallScreen() {
        QFETCH(const EveryQuestion::Ask, ask);
        QFETCH(const QLocale, locale);
        use(locale, 12);
        TestHost host;
        EventLog log;
        MainWindow window(&host.library(), &log, host.directory());
        window.show();
        const auto found =
            EveryQuestion::problems(ask, host, window, [](QWidget &box) { return problems(box); });
        QVERIFY(found);
        QCOMPARE(found->join(u'\n'), QString());
    }

    void aPaneWithoutRoomScrolls() {
        use(QLocale(QLocale::German), 18);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = EveryWindow::preferences(host, log);
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        const QSize screen = window->screen()->availableSize();
        QVERIFY2(window->width() <= screen.width() && window->height() <= screen.height(),
                 qPrintable(QDebug::toString(window->size())));
        const auto *last = window->findChild<QWidget *>(QStringLiteral("serverButton"));
        for (int i = 0; i < 50 && !last->hasFocus(); ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QVERIFY(last->hasFocus());
        QCOMPARE(last->visibleRegion().boundingRect(), last->rect());
        window->close();
    }

    void aPaneScrollsToTheFocusHoweverItMoves() {
        auto *pane = new QWidget;
        auto *layout = new QVBoxLayout(pane);
        auto *first = new QPushButton(pane);
        auto *last = new QPushButton(pane);
        layout->addWidget(first);
        layout->addSpacing(2000);
        layout->addWidget(last);
        PaneArea area;
        area.setPane(pane);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        for (QPushButton *button : {first, last, first}) {
            button->setFocus(Qt::ShortcutFocusReason);
            QTRY_COMPARE(button->visibleRegion().boundingRect(), button->rect());
        }
        // A button at the edge stays under the pointer.
        area.verticalScrollBar()->setValue(0);
        last->move(0, area.viewport()->height() - last->height() - 5);
        const QSignalSpy clicked(last, &QPushButton::clicked);
        QTest::mousePress(last, Qt::LeftButton);
        QVERIFY(last->hasFocus());
        QCoreApplication::processEvents();
        QCOMPARE(area.verticalScrollBar()->value(), 0);
        QTest::mouseRelease(last, Qt::LeftButton);
        QCOMPARE(clicked.size(), 1);
    }

private:
    void use(const QLocale &locale, int size) {
        m_languages.use(locale);
        QFont font = m_font;
        font.setPointSize(size);
        QApplication::setFont(font);
    }

    /// Returns what of `window` cannot be seen on the screen.
    static QStringList problems(const QWidget &window) {
        QStringList problems = ShownTexts::problems(window);
        if (window.width() > SmallScreen.width() || window.height() > SmallScreen.height()) {
            problems.append(QDebug::toString(window.size()));
        }
        for (const auto *area : window.findChildren<PaneArea *>()) {
            if (area->horizontalScrollBar()->isVisible() ||
                area->verticalScrollBar()->isVisible()) {
                problems.append(QStringLiteral("The pane needs %1 in %2")
                                    .arg(QDebug::toString(area->widget()->size()),
                                         QDebug::toString(area->size())));
            }
        }
        return problems;
    }
};

VELMORA_TEST(SmallScreenTest)
#include "SmallScreenTest.moc"
