#include "Application/Guide.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtGui/QDesktopServices>
#include <QtGui/QImage>

#include "Application/VelmoraApplication.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Platform/Interface/HelpButton.h"
#include "Platform/Interface/Nib.h"
#include "Scenarios/EveryWindow.h"
#include "Support/SheetForms.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// The guide is complete where the program looks for it.
class GuideTest : public QObject {
    Q_OBJECT

    QList<QUrl> m_opened;

    static QString read(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private Q_SLOTS:
    void initTestCase() {
        registerSyncPreferencesInterface();
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openPage");
    }
    void init() { m_opened.clear(); }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    void everyPageIsLinkedAndEveryLinkLeadsToAFile() {
        const QDir folder = QFileInfo(Guide::path()).dir();
        const QStringList pages = folder.entryList({QStringLiteral("*.html")});
        QVERIFY(pages.size() > 5);
        static const QRegularExpression link(QStringLiteral("(?:href|src|srcset)=\"([^\"]*)\""));
        QSet<QString> linked;
        for (const QString &page : pages) {
            auto matches = link.globalMatch(read(folder.filePath(page)));
            while (matches.hasNext()) {
                linked.insert(matches.next().captured(1));
            }
        }
        for (const QString &file : std::as_const(linked)) {
            QVERIFY2(QFileInfo(folder.filePath(file)).isFile(), qPrintable(file));
        }
        for (const QString &page : pages) {
            QVERIFY2(linked.contains(page), qPrintable(page));
        }
    }

    void everyPictureIsThereInLightAndInDark() {
        const QDir folder(QFileInfo(Guide::path()).dir().filePath(QStringLiteral("pictures")));
        const QStringList light = folder.entryList({QStringLiteral("*-light.png")});
        QVERIFY(light.size() > 10);
        for (const QString &name : light) {
            const QImage picture(folder.filePath(name));
            const QImage dark(folder.filePath(
                QString(name).replace(QStringLiteral("-light"), QStringLiteral("-dark"))));
            QVERIFY2(!picture.isNull() && !dark.isNull(), qPrintable(name));
            // Below the title bar.
            const QPoint place(picture.width() / 2, picture.height() - 30);
            QVERIFY2(picture.pixelColor(place).lightness() > dark.pixelColor(place).lightness(),
                     qPrintable(name));
        }
    }

    void itIsOpenedInTheBrowser() {
        Guide::open();
        QCOMPARE(m_opened, opened(Guide::FirstPage));
    }

    void whatIsMissingIsReported() {
        TestHost host;
        Guide::open(QStringLiteral("missing.html"));
        QCOMPARE(m_opened, {});
        const QList<Error> errors = host.application().presentedErrors();
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors.constFirst().localizedDescription.contains(QStringLiteral("missing.html")));
    }

    void everySheetOpensItsPage_data() {
        QTest::addColumn<QString>("form");
        for (const QString &form : SheetForms::names()) {
            QTest::newRow(qPrintable(form)) << form;
        }
    }
    void everySheetOpensItsPage() {
        QFETCH(const QString, form);
        const std::unique_ptr<QWidget> sheet(Nib::makeForm(form));
        const auto buttons = sheet->findChildren<HelpButton *>();
        QCOMPARE(buttons.size(), 1);
        opensItsPage(*sheet, *buttons.constFirst());
    }

    void everyPageOfAnImportOpensItsPage() {
        const TestHost host;
        const auto controller = QVImportDatabasesController::newController();
        QWidget *sheet = controller->window();
        auto *content = sheet->findChild<QWidget *>(QStringLiteral("contentView"));
        const auto pages = content->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(pages.size(), 2);
        for (QWidget *shown : pages) {
            for (QWidget *page : pages) {
                page->setVisible(page == shown);
            }
            opensItsPage(*sheet, *shown->findChild<HelpButton *>());
        }
    }

    void everyDialogOpensItsPage_data() {
        QTest::addColumn<EveryWindow::MakeWindow>("makeWindow");
        QTest::addColumn<QString>("page");
        QTest::newRow("main window")
            << EveryWindow::MakeWindow(EveryWindow::mainWindow) << Guide::FirstPage;
        QTest::newRow("first start")
            << EveryWindow::MakeWindow(EveryWindow::firstStart) << Guide::BeginPage;
        QTest::newRow("preferences")
            << EveryWindow::MakeWindow(EveryWindow::preferences) << Guide::LocationsPage;
        QTest::newRow("deleted notes")
            << EveryWindow::MakeWindow(EveryWindow::deletedNotes) << Guide::NotesPage;
        QTest::newRow("comparison")
            << EveryWindow::MakeWindow(EveryWindow::comparison) << Guide::NotesPage;
    }
    void everyDialogOpensItsPage() {
        QFETCH(const EveryWindow::MakeWindow, makeWindow);
        QFETCH(const QString, page);
        TestHost host;
        EventLog log;
        const std::unique_ptr<QWidget> window = makeWindow(host, log);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_F1);
        QTRY_COMPARE(m_opened, opened(page));
        window->close();
    }

private:
    static QList<QUrl> opened(const QString &page) {
        return {QUrl::fromLocalFile(Guide::path(page))};
    }
    /// With a click, and with F1 from anywhere in the sheet.
    void opensItsPage(QWidget &sheet, HelpButton &button) {
        QVERIFY(QFileInfo(Guide::path(button.page())).isFile());
        sheet.show();
        QVERIFY(QTest::qWaitForWindowActive(&sheet));
        QVERIFY(button.isVisible());
        QVERIFY(!button.hasFocus());
        m_opened.clear();
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(m_opened, opened(button.page()));
        m_opened.clear();
        // The button shows first that it is pressed.
        QTest::keyClick(&sheet, Qt::Key_F1);
        QTRY_COMPARE(m_opened, opened(button.page()));
    }

public Q_SLOTS:
    void openPage(const QUrl &page) { m_opened.append(page); }
};

VELMORA_TEST_PROGRAM(GuideTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    const VelmoraApplication application(argumentCount, arguments);
    GuideTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}

#include "GuideTest.moc"
