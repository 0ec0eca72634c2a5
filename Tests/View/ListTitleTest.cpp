#include "View/ListTitle.h"

#include "Support/TestMain.h"

class ListTitleTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theMnemonicIsKept() {
        ListTitle label;
        QWidget list;
        label.setBuddy(&list);
        label.setTitle(QStringLiteral("Synchronize with"));
        QCOMPARE(label.text(), QStringLiteral("Synchronize with"));
        label.setText(QStringLiteral("Synchronize &with"));
        label.setTitle(QStringLiteral("Synchronize “R&D Whiteboard” with"));
        QCOMPARE(label.title(), QStringLiteral("Synchronize “R&D Whiteboard” with"));
        QCOMPARE(QKeySequence::mnemonic(label.text()), QKeySequence(Qt::ALT | Qt::Key_W));
        QVERIFY(label.text().contains(QStringLiteral("R&&D")));
        label.setTitle(QStringLiteral("同期"));
        QCOMPARE(QKeySequence::mnemonic(label.text()), QKeySequence(Qt::ALT | Qt::Key_W));
    }
};

VELMORA_TEST(ListTitleTest)
#include "ListTitleTest.moc"
