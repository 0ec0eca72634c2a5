#include "Platform/Interface/Mnemonics.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

#include "Support/TestMain.h"

class MnemonicsTest : public QObject {
    Q_OBJECT

    QWidget m_window;

    QPushButton *addButton(const char *text) {
        return new QPushButton(QString::fromUtf8(text), &m_window);
    }

private Q_SLOTS:
    void cleanup() { qDeleteAll(m_window.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)); }

    void eachButtonGetsAFreeLetter() {
        const QPushButton *translated = addButton("&Remove Schedule");
        const QPushButton *remove = addButton("Remove");
        const QPushButton *add = addButton("Add");
        const QPushButton *address = addButton("Address");
        Mnemonics::assign(m_window);
        QCOMPARE(translated->text(), QStringLiteral("&Remove Schedule"));
        QCOMPARE(add->text(), QStringLiteral("&Add"));
        QCOMPARE(remove->text(), QStringLiteral("R&emove"));
        QCOMPARE(address->text(), QStringLiteral("A&ddress"));
        Mnemonics::assign(m_window);
        QCOMPARE(add->text(), QStringLiteral("&Add"));
    }

    void aTextGivesItsLetterToOneThatHasNoOther() {
        const QPushButton *stop = addButton("Stop");
        const QPushButton *tops = addButton("Topsy");
        const QPushButton *later = addButton("Sssssss");
        Mnemonics::assign(m_window);
        QCOMPARE(stop->text(), QStringLiteral("St&op"));
        QCOMPARE(tops->text(), QStringLiteral("&Topsy"));
        QCOMPARE(later->text(), QStringLiteral("&Sssssss"));
    }

    void noTextIsLeftOutWhileThereAreLetters() {
        QList<const QPushButton *> buttons;
        for (const char *text : {"ab", "abc", "abcd", "aaaaa"}) {
            buttons.append(addButton(text));
        }
        Mnemonics::assign(m_window);
        for (const QPushButton *button : std::as_const(buttons)) {
            QVERIFY2(button->text().contains(u'&'), qPrintable(button->text()));
        }
    }

    void aWordBeginsWithABetterLetterThanOneWithin() {
        addButton("&Sync");
        const QPushButton *server = addButton("Server Name");
        Mnemonics::assign(m_window);
        QCOMPARE(server->text(), QStringLiteral("Server &Name"));
    }

    void onlyLabelsOfFieldsAreMarked() {
        auto *label = new QLabel(QStringLiteral("Server:"), &m_window);
        label->setBuddy(new QLineEdit(&m_window));
        const auto *text = new QLabel(QStringLiteral("Nothing"), &m_window);
        Mnemonics::assign(m_window);
        QCOMPARE(label->text(), QStringLiteral("&Server:"));
        QCOMPARE(text->text(), QStringLiteral("Nothing"));
    }

    void rowsAndTextsWithoutAFreeLetterAreLeftAlone() {
        auto *area = new QScrollArea(&m_window);
        auto *row = new QPushButton(QStringLiteral("Sync Now"));
        area->setWidget(row);
        const QPushButton *first = addButton("A");
        const QPushButton *second = addButton("A");
        Mnemonics::assign(m_window);
        QCOMPARE(row->text(), QStringLiteral("Sync Now"));
        QCOMPARE(first->text(), QStringLiteral("&A"));
        QCOMPARE(second->text(), QStringLiteral("A"));
    }

    void itemsOfMenusGetLettersOfTheirOwn() {
        const QPushButton *edit = addButton("Edit");
        auto *few = new QMenu(&m_window);
        auto *many = new QMenu(&m_window);
        QAction *shared = many->addAction(QStringLiteral("編集…"));
        many->addSeparator();
        const QAction *ends = many->addAction(QStringLiteral("Ends"));
        const QAction *marked = many->addAction(QStringLiteral("&Add"));
        few->addAction(shared);
        const QAction *add = few->addAction(QStringLiteral("Add"));
        for (int times = 0; times < 2; ++times) {
            Mnemonics::assign(m_window);
            QCOMPARE(edit->text(), QStringLiteral("&Edit"));
            QCOMPARE(shared->text(), QStringLiteral("編集(&B)…"));
            QCOMPARE(shared->iconText(), QStringLiteral("編集…"));
            QCOMPARE(ends->text(), QStringLiteral("&Ends"));
            QCOMPARE(marked->text(), QStringLiteral("&Add"));
            QCOMPARE(add->text(), QStringLiteral("&Add"));
        }
    }

    void lettersThatNoKeyTypesOrThatAreJoinedGetOneInBrackets() {
        const QPushButton *translated = addButton("同期して終了(&A)");
        const QPushButton *kanji = addButton("追加");
        const QPushButton *kana = addButton("インポート…");
        const QPushButton *arabic = addButton("عنوان الخادم:");
        const QPushButton *mixed = addButton("خادم WebDAV…");
        const QPushButton *sentence = addButton("ノートは残ります。");
        for (int times = 0; times < 2; ++times) {
            Mnemonics::assign(m_window);
            QCOMPARE(translated->text(), QStringLiteral("同期して終了(&A)"));
            QCOMPARE(kanji->text(), QStringLiteral("追加(&B)"));
            QCOMPARE(kana->text(), QStringLiteral("インポート(&C)…"));
            QCOMPARE(mixed->text(), QStringLiteral("خادم &WebDAV…"));
            QCOMPARE(arabic->text(), QStringLiteral("عنوان الخادم (&D):"));
            QCOMPARE(sentence->text(), QStringLiteral("ノートは残ります。"));
        }
    }
};

VELMORA_TEST(MnemonicsTest)
#include "MnemonicsTest.moc"
