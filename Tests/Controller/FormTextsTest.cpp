#include <QtCore/QRegularExpression>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Controller/QVImportDatabasesController.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/Nib.h"
#include "Support/Languages.h"
#include "Support/SheetForms.h"
#include "Support/ShownTexts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// All texts of the forms can be read, at every usual font size and in each language.
class FormTextsTest : public QObject {
    Q_OBJECT

    const QFont m_font = QApplication::font();

    static QStringList forms() {
        return QStringList{QStringLiteral("Sync Preferences"),
                           QStringLiteral("QVSyncScheduleEditor")} +
               SheetForms::names();
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void cleanup() {
        QApplication::setFont(m_font);
        QLocale::setDefault(QLocale::c());
        QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
    }

    void everyTextCanBeRead_data() { addRows(forms()); }
    void everyTextCanBeRead() {
        QFETCH(const QString, form);
        QFETCH(const QLocale, locale);
        use(locale);
        // Its engine has the translations.
        const TestHost host;
        for (const int size : {9, 14, 18}) {
            setFontSize(size);
            const std::unique_ptr<QWidget> window = windowWith(Nib::makeForm(form));
            window->show();
            // Texts that come later, as errors do.
            ShownTexts::fill(*window);
            QTRY_COMPARE(problems(*window, size), QString());
            // Neither can a user make it too small.
            window->resize(1, 1);
            QTRY_COMPARE(problems(*window, size), QString());
        }
    }

    void everyTextOfAnImportCanBeRead_data() {
        addRows({QStringLiteral("locationsView"), QStringLiteral("databasesView")});
    }
    void everyTextOfAnImportCanBeRead() {
        QFETCH(const QString, form);
        QFETCH(const QLocale, locale);
        use(locale);
        const TestHost host;
        for (const int size : {9, 14, 18}) {
            setFontSize(size);
            const auto controller = QVImportDatabasesController::newController();
            QWidget *window = controller->window();
            auto *content = window->findChild<QWidget *>(QStringLiteral("contentView"));
            for (QWidget *page :
                 content->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
                page->setVisible(page->objectName() == form);
                page->setGeometry(content->rect());
            }
            ShownTexts::fill(*content->findChild<QWidget *>(form));
            window->show();
            QTRY_COMPARE(problems(*window, size), QString());
        }
    }

private:
    static void use(const QLocale &locale) {
        QLocale::setDefault(locale);
        QGuiApplication::setLayoutDirection(locale.textDirection());
    }
    static void addRows(const QStringList &forms) {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QLocale>("locale");
        for (const QString &form : forms) {
            for (const QLocale &locale : Languages::all()) {
                QTest::addRow("%s, %s", qPrintable(form),
                              qPrintable(QLocale::languageToString(locale.language())))
                    << form << locale;
            }
        }
    }
    void setFontSize(int size) const {
        QFont font = m_font;
        font.setPointSize(size);
        QApplication::setFont(font);
    }
    static QString problems(const QWidget &window, int size) {
        QStringList problems = ShownTexts::problems(window);
        problems.replaceInStrings(QRegularExpression(QStringLiteral("^")),
                                  QStringLiteral("%1 pt: ").arg(size));
        return problems.join(u'\n');
    }
    static std::unique_ptr<QWidget> windowWith(QWidget *form) {
        if (qobject_cast<QDialog *>(form)) {
            return std::unique_ptr<QWidget>(form);
        }
        auto window = std::make_unique<QWidget>();
        new HeightKeeper(window.get());
        auto *layout = new QVBoxLayout(window.get());
        layout->addWidget(form);
        return window;
    }
};

VELMORA_TEST(FormTextsTest)
#include "FormTextsTest.moc"
