#include <QtCore/QDir>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGridLayout>

#include "Application/VelmoraApplication.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Interface/Contrast.h"
#include "Platform/Interface/Nib.h"
#include "Scenarios/EveryQuestion.h"
#include "Scenarios/EveryWindow.h"
#include "Support/AccessibleTree.h"
#include "Support/Languages.h"
#include "Support/SheetForms.h"
#include "Support/ShownContrast.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// As the themes of desktops have it, with black texts of what is disabled.
QPalette highContrastPalette() {
    QPalette palette(Qt::black);
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window, QPalette::Button}) {
        palette.setColor(role, Qt::black);
    }
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText}) {
        palette.setColor(role, Qt::white);
        palette.setColor(QPalette::Disabled, role, Qt::black);
    }
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return Contrast::withLegibleTexts(palette);
}

int countOfContrastingPixels(const QImage &one, const QImage &other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const double ratio = Contrast::ratio(one.pixelColor(x, y), other.pixelColor(x, y));
            count += ratio >= Contrast::OfOutline ? 1 : 0;
        }
    }
    return count;
}

/// Returns the spacings of a layout; none for that of a bar.
QList<int> spacingsOf(const QLayout &layout) {
    if (const auto *grid = qobject_cast<const QGridLayout *>(&layout)) {
        return {grid->horizontalSpacing(), grid->verticalSpacing()};
    }
    if (const auto *form = qobject_cast<const QFormLayout *>(&layout)) {
        return {form->horizontalSpacing(), form->verticalSpacing()};
    }
    return qobject_cast<const QBoxLayout *>(&layout) ? QList<int>{layout.spacing()} : QList<int>();
}

/// Returns a line for each layout in `window` with a margin or spacing that is not in the scale.
QStringList spacingsOffTheScale(const QWidget &window) {
    const QList<int> scale = {0, 4, 8, 12, 16};
    QStringList problems;
    for (const QLayout *layout : window.findChildren<QLayout *>()) {
        QList<int> pixels = spacingsOf(*layout);
        if (!pixels.isEmpty()) {
            const QMargins margins = layout->contentsMargins();
            pixels += {margins.left(), margins.top(), margins.right(), margins.bottom()};
        }
        for (const int each : std::as_const(pixels)) {
            if (!scale.contains(each)) {
                problems.append(QStringLiteral("%1 in %2: %3")
                                    .arg(layout->objectName(), layout->parentWidget()->objectName())
                                    .arg(each));
            }
        }
    }
    return problems;
}

}  // namespace

/// Every window and sheet can be used without a mouse, by a screen reader, and with weak sight.
class AccessibleWindowsTest : public QObject {
    Q_OBJECT

    Languages m_languages;

    static VelmoraApplication &application() { return *static_cast<VelmoraApplication *>(qApp); }

    static QList<std::pair<const char *, std::function<void()>>> looks() {
        return {{"light", [] { application().setDarkAppearance(false); }},
                {"dark", [] { application().setDarkAppearance(true); }},
                {"high contrast", [] { QApplication::setPalette(highContrastPalette()); }}};
    }

    /// Returns a line for each control of the selected `row` on which the focus cannot be seen, and
    /// adds its name to `names`.
    static QStringList unseenFocus(QWidget &row, QSet<QString> &names) {
        QStringList problems;
        for (QWidget *child : row.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (child->focusPolicy() == Qt::NoFocus || !child->isVisible() || !child->isEnabled()) {
                continue;
            }
            names.insert(child->objectName());
            child->clearFocus();
            const QImage before = row.grab().toImage();
            child->setFocus(Qt::TabFocusReason);
            const int changed = countOfContrastingPixels(before, row.grab().toImage());
            if (changed < 2 * child->width()) {
                problems.append(QStringLiteral("%1: %2").arg(child->objectName()).arg(changed));
            }
        }
        return problems;
    }

    static void addWindows(const QList<QLocale> &locales) {
        QTest::addColumn<EveryWindow::MakeWindow>("makeWindow");
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<QLocale>("locale");
        for (const QLocale &locale : locales) {
            const QByteArray name = QLocale::languageToString(locale.language()).toUtf8();
            for (const auto &[window, makeWindow] : EveryWindow::all() + EveryWindow::further()) {
                QTest::addRow("%s, %s", window, name.constData())
                    << makeWindow << QString() << locale;
            }
            for (const QString &sheet : SheetForms::names()) {
                QTest::addRow("%s, %s", qPrintable(sheet), name.constData())
                    << EveryWindow::MakeWindow(nullptr) << sheet << locale;
            }
        }
    }

    /// Shows the window of the present row.
    static std::unique_ptr<QWidget> show(TestHost &host, EventLog &log,
                                         EveryWindow::MakeWindow makeWindow, const QString &sheet) {
        std::unique_ptr<QWidget> window =
            makeWindow ? makeWindow(host, log) : std::unique_ptr<QWidget>(Nib::makeForm(sheet));
        window->show();
        window->activateWindow();
        return window;
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void cleanup() { m_languages.reset(); }

    void everyControlCanBeReachedAndIsNamed_data() {
        addWindows(Languages::all());
        // The colors of its icons are the desktop's.
        QTest::newRow("folder access") << EveryWindow::MakeWindow(EveryWindow::folderAccess)
                                       << QString() << QLocale(QLocale::English);
    }
    void everyControlCanBeReachedAndIsNamed() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QString, sheet);
        QFETCH(const QLocale, locale);
        m_languages.use(locale);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = show(host, log, makeWindow, sheet);
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        const QStringList problems = AccessibleTree::problems(*window);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
        window->close();
    }

    void everyQuestionCanBeAnsweredAndSeen_data() {
        QTest::addColumn<EveryQuestion::Ask>("ask");
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<bool>("isDark");
        for (const auto &[name, ask] : EveryQuestion::all()) {
            for (const QLocale &locale : Languages::all()) {
                QTest::addRow("%s, %s", name,
                              qPrintable(QLocale::languageToString(locale.language())))
                    << ask << locale << false;
            }
            QTest::addRow("%s, dark", name) << ask << QLocale(QLocale::English) << true;
        }
    }
    void everyQuestionCanBeAnsweredAndSeen() {
        QFETCH(const EveryQuestion::Ask, ask);
        QFETCH(const QLocale, locale);
        QFETCH(const bool, isDark);
        m_languages.use(locale);
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSize(14);
        QApplication::setFont(large);
        application().setDarkAppearance(isDark);
        TestHost host;
        EventLog log;
        MainWindow window(&host.library(), &log, host.directory());
        window.show();
        const auto problems = EveryQuestion::problems(ask, host, window, [](QWidget &box) {
            return AccessibleTree::problems(box) + ShownContrast::problems(box);
        });
        QApplication::setFont(usual);
        QVERIFY(problems);
        QCOMPARE(problems->join(u'\n'), QString());
    }

    void everyTextAndOutlineCanBeSeen_data() {
        // Colors do not depend on the language, only on how long the texts are.
        addWindows({QLocale(QLocale::English), QLocale(QLocale::German)});
        QTest::newRow("narrow main window")
            << EveryWindow::MakeWindow(EveryWindow::narrowMainWindow) << QString()
            << QLocale(QLocale::English);
        QTest::newRow("failed synchronization")
            << EveryWindow::MakeWindow(EveryWindow::failedSynchronization) << QString()
            << QLocale(QLocale::English);
        QTest::newRow("folder access") << EveryWindow::MakeWindow(EveryWindow::folderAccess)
                                       << QString() << QLocale(QLocale::English);
        QTest::newRow("busy location") << EveryWindow::MakeWindow(EveryWindow::busyLocation)
                                       << QString() << QLocale(QLocale::English);
    }
    void everyTextAndOutlineCanBeSeen() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QString, sheet);
        QFETCH(const QLocale, locale);
        m_languages.use(locale);
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSize(14);
        QApplication::setFont(large);
        QStringList problems;
        for (const auto &[look, apply] : looks()) {
            apply();
            TestHost host;
            EventLog log;
            const std::unique_ptr<QWidget> window = show(host, log, makeWindow, sheet);
            QVERIFY(QTest::qWaitForWindowActive(window.get()));
            for (const QString &problem : ShownContrast::problems(*window)) {
                problems.append(QStringLiteral("%1: %2").arg(QLatin1StringView(look), problem));
            }
            window->close();
        }
        QApplication::setFont(usual);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
    }

    void theFocusInASelectedRowCanBeSeen_data() {
        QTest::addColumn<std::function<void()>>("apply");
        for (const auto &[look, apply] : looks()) {
            QTest::newRow(look) << apply;
        }
    }
    void theFocusInASelectedRowCanBeSeen() {
        QFETCH(const std::function<void()>, apply);
        apply();
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = EveryWindow::failedSynchronization(host, log);
        QVERIFY(window);
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QSet<QString> names;
        QStringList problems = unseenFocus(*Panel::databaseRow(QStringLiteral("Projects")), names);
        for (int i = 0; i < Panel::countOfLocations(); ++i) {
            Panel::select(Panel::locationRow(i));
            problems += unseenFocus(*Panel::locationRow(i), names);
        }
        window->close();
        QCOMPARE(problems.join(u'\n'), QString());
        QCOMPARE(names,
                 QSet<QString>({QStringLiteral("rowSyncButton"), QStringLiteral("rowWarningButton"),
                                QStringLiteral("rowCheckBox")}));
    }

    void everySpacingIsInTheScale_data() {
        addWindows({QLocale(QLocale::English)});
        for (const char *form : {"Sync Preferences", "QVSyncScheduleEditor", "BookmarkCell",
                                 "QVImportDatabasesWindow"}) {
            QTest::newRow(form) << EveryWindow::MakeWindow(nullptr) << QString::fromLatin1(form)
                                << QLocale(QLocale::English);
        }
    }
    void everySpacingIsInTheScale() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QString, sheet);
        application().setDarkAppearance(false);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window =
            makeWindow ? makeWindow(host, log) : std::unique_ptr<QWidget>(Nib::makeForm(sheet));
        window->ensurePolished();
        QCOMPARE(spacingsOffTheScale(*window).join(u'\n'), QString());
        window->close();
    }
};

VELMORA_TEST_PROGRAM(AccessibleWindowsTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    const VelmoraApplication application(argumentCount, arguments);
    AccessibleWindowsTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}

#include "AccessibleWindowsTest.moc"
