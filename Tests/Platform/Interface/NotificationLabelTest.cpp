#include "Platform/Interface/NotificationLabel.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QDialog>

#include "Support/SpokenTexts.h"
#include "Support/TestMain.h"

/// What a screen reader hears of a text that changes by itself.
class NotificationLabelTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QWidget> m_window;
    NotificationLabel *m_label = nullptr;
    std::unique_ptr<SpokenTexts> m_spoken;

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<QWidget>();
        m_label = new NotificationLabel(m_window.get());
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_spoken = std::make_unique<SpokenTexts>(*m_window);
    }
    void cleanup() {
        m_spoken.reset();
        m_window.reset();
    }

    void itIsANotificationWithItsText() {
        m_label->setText(QStringLiteral("All up to date"));
        const auto *accessible = QAccessible::queryAccessibleInterface(m_label);
        QCOMPARE(accessible->role(), QAccessible::Notification);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("All up to date"));
    }

    void changesAreSpoken() {
        m_label->setText(QStringLiteral("One"));
        m_label->setText(QStringLiteral("One"));
        m_label->setProperty("text", QStringLiteral("Two"));
        m_label->setText({});
        QCOMPARE(m_spoken->texts(), QStringList({QStringLiteral("One"), QStringLiteral("Two")}));
    }

    void aProgressIsNotSpokenUntilItsEnd() {
        m_label->setQuiet(true);
        m_label->setText(QStringLiteral("10 %"));
        m_label->setText(QStringLiteral("20 %"));
        QCOMPARE(m_spoken->texts(), QStringList());
        m_label->setQuiet(false);
        m_label->setText(QStringLiteral("Synchronized"));
        QCOMPARE(m_spoken->last(), QStringLiteral("Synchronized"));
    }

    void anEqualResultIsSpokenAgain() {
        m_label->setText(QStringLiteral("Synchronized"));
        m_label->setQuiet(true);
        m_label->setQuiet(false);
        QCOMPARE(m_spoken->texts().count(QStringLiteral("Synchronized")), 2);
    }

    void aSheetOfTheActiveWindowSpeaks() {
        QDialog sheet(m_window.get());
        sheet.setWindowModality(Qt::WindowModal);
        NotificationLabel label(&sheet);
        sheet.show();
        // As some window managers do.
        m_window->activateWindow();
        QTRY_VERIFY(!sheet.isActiveWindow());
        const SpokenTexts spoken(sheet);
        label.setText(QStringLiteral("Enter a server."));
        QCOMPARE(spoken.texts(), QStringList{QStringLiteral("Enter a server.")});
    }

    void aWindowBehindTheActiveOneIsSilent() {
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        m_label->setText(QStringLiteral("One"));
        QCOMPARE(m_spoken->texts(), QStringList());
    }

    void nothingIsSpokenOfAHiddenLabelUntilItAppears() {
        m_label->hide();
        m_label->setText(QStringLiteral("The location works."));
        QCOMPARE(m_spoken->texts(), QStringList());
        m_label->show();
        QCOMPARE(m_spoken->texts(), QStringList{QStringLiteral("The location works.")});
    }
};

VELMORA_TEST(NotificationLabelTest)
#include "NotificationLabelTest.moc"
