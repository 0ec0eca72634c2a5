#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>

#include "Support/Languages.h"
#include "Support/TestMain.h"

/// Every text of the application is translated into every language.
class TranslationTest : public QObject {
    Q_OBJECT
private:
    /// A text as the program looks it up.
    struct Text {
        QByteArray context;
        QByteArray key;
    };

    QTranslator m_german;

    static QString contents(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// Returns what the pattern `key` finds in `source`, with adjacent literals joined.
    static QByteArrayList keys(const QString &source, const QString &pattern) {
        static const QRegularExpression seam(QStringLiteral("\"\\s+\""));
        const QRegularExpression text(pattern +
                                      QStringLiteral("\\s*\"((?:[^\"\\\\]|\\\\.)*"
                                                     "(?:\"\\s+\"(?:[^\"\\\\]|\\\\.)*)*)\""));
        QByteArrayList found;
        auto matches = text.globalMatch(source);
        while (matches.hasNext()) {
            const QString key = matches.next().captured(1).remove(seam);
            found.append(
                QString(key).replace(QStringLiteral("\\n"), QStringLiteral("\n")).toUtf8());
        }
        return found;
    }

    /// Returns the texts of a source. A class has the name of its file; a function that translates
    /// for others names their context in the only call without a text.
    static QList<Text> textsIn(const QString &path) {
        static const QRegularExpression direct(
            QStringLiteral("\\btranslate(?:Count)?\\(\\s*\"(\\w+)\",\\s*(text)?"));
        const QString source = contents(path);
        QByteArray helped = QFileInfo(path).baseName().toUtf8();
        QList<Text> texts;
        auto calls = direct.globalMatch(source);
        while (calls.hasNext()) {
            const auto call = calls.next();
            const QByteArray context = call.captured(1).toUtf8();
            if (call.hasCaptured(2)) {
                helped = context;
            } else {
                const QString rest = source.mid(call.capturedEnd());
                texts.append({context, keys(rest, QStringLiteral("\\A")).value(0)});
            }
        }
        for (const QByteArray &key : keys(source, QStringLiteral("\\b(?:tr|\\w+Text|textOf)\\("))) {
            texts.append({helped, key});
        }
        return texts;
    }

private Q_SLOTS:
    void initTestCase() {
        QVERIFY(m_german.load(QStringLiteral(":/Velmora/Translations/Velmora_de.qm")));
    }

    void everyTextIsTranslated_data() {
        QTest::addColumn<QString>("path");
        QDirIterator sources(QStringLiteral(VELMORA_SOURCE_DIR "/Application"),
                             {QStringLiteral("*.cpp")}, QDir::Files);
        while (sources.hasNext()) {
            const QString path = sources.next();
            QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
        }
    }
    void everyTextIsTranslated() {
        QFETCH(QString, path);
        const QList<Text> texts = textsIn(path);
        for (const QString &language : Languages::translated()) {
            QTranslator table;
            QVERIFY(table.load(QStringLiteral("Velmora_") + language,
                               QStringLiteral(":/Velmora/Translations")));
            for (const Text &text : texts) {
                QVERIFY2(!table.translate(text.context, text.key).isEmpty(),
                         language.toUtf8() + ", " + text.context + ": " + text.key);
            }
        }
    }

    void textsAreFoundInEveryKindOfSource() {
        const QString folder = QStringLiteral(VELMORA_SOURCE_DIR "/Application/");
        const QMap<QString, int> atLeast{{QStringLiteral("HistoryDialog.cpp"), 15},
                                         {QStringLiteral("LaunchOptions.cpp"), 9},
                                         {QStringLiteral("VerificationOutput.cpp"), 6},
                                         {QStringLiteral("DamagedProfileDialog.cpp"), 7},
                                         {QStringLiteral("main.cpp"), 2}};
        for (auto each = atLeast.begin(); each != atLeast.end(); ++each) {
            const auto found = textsIn(folder + each.key()).size();
            QVERIFY2(found >= each.value(), qPrintable(each.key() + u' ' + QString::number(found)));
        }
    }

    void aTextOfAnotherClassDoesNotCount() {
        QVERIFY(!m_german.translate("HistoryDialog", "Untitled").isEmpty());
        QVERIFY(m_german.translate("LogWindow", "Untitled").isEmpty());
    }

    void theHelpIsInTheFirstLanguageOfTheUserThatExists_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("languages");
        QTest::addColumn<QString>("text");
        const QString english = QStringLiteral("Use the profile in DIR.");
        const QString german = QStringLiteral("Das Profil in DIR verwenden.");
        const QString austria = QStringLiteral("de_AT.UTF-8");
        QTest::newRow("locale") << QStringLiteral("de_DE.UTF-8") << QString() << german;
        QTest::newRow("country") << austria << QString() << german;
        QTest::newRow("unknown locale") << QStringLiteral("mi_NZ.UTF-8") << QString() << english;
        QTest::newRow("C") << QStringLiteral("C") << QString() << english;
        QTest::newRow("second language") << austria << QStringLiteral("nl:mi:de_AT:en") << german;
        QTest::newRow("English first") << austria << QStringLiteral("en_GB:de") << english;
    }
    void theHelpIsInTheFirstLanguageOfTheUserThatExists() {
        QFETCH(const QString, locale);
        QFETCH(const QString, languages);
        QFETCH(const QString, text);
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("LC_ALL"));
        environment.insert(QStringLiteral("LANG"), locale);
        environment.insert(QStringLiteral("LC_MESSAGES"), locale);
        environment.insert(QStringLiteral("LANGUAGE"), languages);
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(VELMORA), {QStringLiteral("--help")});
        QVERIFY(program.waitForFinished());
        const QString help = QString::fromUtf8(program.readAllStandardOutput());
        QVERIFY2(help.contains(text), qPrintable(help));
        // Qt is also in Dutch, but its texts are in the language of the others.
        QTranslator dutch;
        if (dutch.load(QStringLiteral("qtbase_nl"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            const QString mixed =
                dutch.translate("QCommandLineParser", "Displays help on commandline options.");
            QVERIFY2(!mixed.isEmpty() && !help.contains(mixed), qPrintable(help));
        }
    }
};

VELMORA_TEST(TranslationTest)
#include "TranslationTest.moc"
