#include <QtWidgets/QApplication>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStyle>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Platform/Interface/Nib.h"
#include "Scenarios/EveryWindow.h"
#include "Support/SheetForms.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// A widget as the user sees it.
struct Shown {
    QString name;
    QRect frame;
};

/// Returns everything that `window` shows, with frames in its coordinates.
QList<Shown> everythingIn(const QWidget &window) {
    QList<Shown> everything;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->isVisibleTo(&window) && widget->window() == &window) {
            const QString className = QString::fromUtf8(widget->metaObject()->className());
            everything.append({className + u' ' + widget->objectName(),
                               QRect(widget->mapTo(&window, QPoint()), widget->size())});
        }
    }
    return everything;
}

QString describe(const Shown &shown) {
    QString text;
    QDebug(&text).noquote() << shown.name << shown.frame;
    return text;
}

/// Returns what `window` shows elsewhere than a mirror would show `usual`.
QString problems(const QWidget &window, const QList<Shown> &usual) {
    // Qt's splitters are one pixel wider, and one is in another.
    constexpr int tolerance = 2;
    const QList<Shown> mirrored = everythingIn(window);
    QStringList problems;
    for (qsizetype i = 0; i < qMax(usual.size(), mirrored.size()); ++i) {
        const Shown expected = usual.value(i);
        const Shown actual = mirrored.value(i);
        const QRect frame = QStyle::visualRect(Qt::RightToLeft, window.rect(), expected.frame);
        const int distance = qMax(qAbs(frame.left() - actual.frame.left()),
                                  qAbs(frame.right() - actual.frame.right()));
        if (actual.name != expected.name || distance > tolerance ||
            frame.top() != actual.frame.top() || frame.bottom() != actual.frame.bottom()) {
            problems.append(QStringLiteral("%1 instead of %2")
                                .arg(describe(actual), describe({expected.name, frame})));
        }
    }
    return problems.join(u'\n');
}

/// Returns what stands out of its parent at the left or right.
QString cutOffIn(const QWidget &window) {
    QStringList cutOff;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isPart = widget->isVisibleTo(&window) && widget->window() == &window &&
                            !qobject_cast<const QSplitterHandle *>(widget);
        if (isPart && (widget->x() < 0 ||
                       widget->geometry().right() > widget->parentWidget()->rect().right())) {
            cutOff.append(describe(
                {QString::fromUtf8(widget->metaObject()->className()) + u' ' + widget->objectName(),
                 widget->geometry()}));
        }
    }
    return cutOff.join(u'\n');
}

}  // namespace

/// In a language that is written from right to left, every window is as in a mirror.
class RightToLeftTest : public QObject {
    Q_OBJECT

    /// Makes and shows the window of the present row.
    static std::unique_ptr<QWidget> show(TestHost &host, EventLog &log) {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QString, sheet);
        std::unique_ptr<QWidget> window =
            makeWindow ? makeWindow(host, log) : std::unique_ptr<QWidget>(Nib::makeForm(sheet));
        window->show();
        return window;
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void cleanup() { QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto); }

    void everyWindowIsMirrored_data() {
        QTest::addColumn<EveryWindow::MakeWindow>("makeWindow");
        QTest::addColumn<QString>("sheet");
        for (const auto &[name, makeWindow] : EveryWindow::all()) {
            QTest::newRow(name) << makeWindow << QString();
        }
        for (const QString &sheet : SheetForms::names()) {
            QTest::newRow(qPrintable(sheet)) << EveryWindow::MakeWindow(nullptr) << sheet;
        }
    }
    void everyWindowIsMirrored() {
        QList<Shown> usual;
        {
            TestHost host;
            EventLog log;
            const std::unique_ptr<QWidget> window = show(host, log);
            QTRY_COMPARE(ShownTexts::problems(*window).join(u'\n'), QString());
            usual = everythingIn(*window);
            window->close();
        }
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = show(host, log);
        QTRY_COMPARE(ShownTexts::problems(*window).join(u'\n'), QString());
        QTRY_COMPARE(problems(*window, usual), QString());
        QCOMPARE(cutOffIn(*window), QString());
        window->close();
    }
};

VELMORA_TEST(RightToLeftTest)
#include "RightToLeftTest.moc"
