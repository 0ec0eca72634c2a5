#include "Platform/Interface/TextField.h"

#include "Platform/KeyValue/Binding.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Support/TestMain.h"

namespace {

/// Takes letters only; anything else makes it empty.
class Word : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
public:
    QString text() const { return m_text; }
    void setText(const QString &text) {
        const bool isWord =
            std::all_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
        m_text = isWord ? text : QString();
        KeyValue::announce<&Word::textChanged>(this);
    }

Q_SIGNALS:
    void textChanged();

private:
    QString m_text = QStringLiteral("word");
};

}  // namespace

class TextFieldTest : public QObject {
    Q_OBJECT

    Word m_word;
    std::unique_ptr<TextField> m_field;

private Q_SLOTS:
    void init() {
        m_word.setText(QStringLiteral("word"));
        m_field = std::make_unique<TextField>();
        KeyValue::bind(m_field.get(), "stringValue", &m_word, "text", {},
                       KeyValue::Direction::BothWays);
    }
    void cleanup() { m_field.reset(); }

    void theModelIsShownAndFollowed() {
        QCOMPARE(m_field->text(), QStringLiteral("word"));
        m_word.setText(QStringLiteral("other"));
        QCOMPARE(m_field->text(), QStringLiteral("other"));
    }

    void eachCharacterReachesTheModel() {
        QTest::keyClicks(m_field.get(), QStringLiteral("s"));
        QCOMPARE(m_word.text(), QStringLiteral("words"));
        QTest::keyClick(m_field.get(), Qt::Key_Backspace);
        QCOMPARE(m_word.text(), QStringLiteral("word"));
    }

    void theModelsValueIsShownWhenTypingHasEnded() {
        QTest::keyClicks(m_field.get(), QStringLiteral("!s"));
        QCOMPARE(m_word.text(), QString());
        QCOMPARE(m_field->text(), QStringLiteral("word!s"));
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(m_field->text(), QString());
    }

    void anAcceptedValueStaysWhenTypingHasEnded() {
        QTest::keyClicks(m_field.get(), QStringLiteral("!"));
        QTest::keyClick(m_field.get(), Qt::Key_Backspace);
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(m_field->text(), QStringLiteral("word"));
        QCOMPARE(m_word.text(), QStringLiteral("word"));
    }

    void anotherValueOfTheModelIsShownWhenTypingHasEnded() {
        QTest::keyClicks(m_field.get(), QStringLiteral("s"));
        m_word.setText(QStringLiteral("other"));
        QCOMPARE(m_field->text(), QStringLiteral("words"));
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(m_field->text(), QStringLiteral("other"));
        QCOMPARE(m_word.text(), QStringLiteral("other"));
    }
};

VELMORA_TEST(TextFieldTest)
#include "TextFieldTest.moc"
