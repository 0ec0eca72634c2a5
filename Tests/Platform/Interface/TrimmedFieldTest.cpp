#include "Platform/Interface/TrimmedField.h"

#include <QtGui/QClipboard>

#include "Support/TestMain.h"

class TrimmedFieldTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TrimmedField> m_field;

    void paste(const QString &text) const {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(m_field.get(), Qt::Key_V, Qt::ControlModifier);
    }

private Q_SLOTS:
    void init() { m_field = std::make_unique<TrimmedField>(); }

    void pastedTextLosesItsBlanks_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("after");
        QTest::newRow("at the end")
            << QString() << QStringLiteral("localhost ") << QStringLiteral("localhost");
        QTest::newRow("at both ends")
            << QString() << QStringLiteral("\t host\u00a0 ") << QStringLiteral("host");
        QTest::newRow("over a longer text")
            << QStringLiteral("dav.example.org") << QStringLiteral(" h ") << QStringLiteral("h");
        QTest::newRow("between words")
            << QString() << QStringLiteral(" my host ") << QStringLiteral("my host");
        QTest::newRow("nothing else") << QString() << QStringLiteral("  ") << QString();
    }
    void pastedTextLosesItsBlanks() {
        QFETCH(QString, before);
        QFETCH(QString, pasted);
        m_field->setText(before);
        m_field->selectAll();
        QSignalSpy edited(m_field.get(), &QLineEdit::textEdited);
        paste(pasted);
        QTEST(m_field->text(), "after");
        QCOMPARE(edited.size(), 1);
    }

    void severalWordsCanBeTyped() {
        QTest::keyClicks(m_field.get(), QStringLiteral("My Notes "));
        QCOMPARE(m_field->text(), QStringLiteral("My Notes "));
        QTest::keyClick(m_field.get(), Qt::Key_Backspace);
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(m_field.get(), Qt::Key_Backspace);
        }
        QCOMPARE(m_field->text(), QStringLiteral("My "));
    }

    void typedTextLosesItsBlanksAtTheEnd() {
        QTest::keyClicks(m_field.get(), QStringLiteral(" host "));
        QSignalSpy edited(m_field.get(), &QLineEdit::textEdited);
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(m_field->text(), QStringLiteral("host"));
        QCOMPARE(edited.size(), 1);
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(edited.size(), 1);
    }

    void aTextOfTheProgramStays() {
        m_field->setText(QStringLiteral(" host "));
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(m_field->text(), QStringLiteral(" host "));
    }
};

VELMORA_TEST(TrimmedFieldTest)
#include "TrimmedFieldTest.moc"
