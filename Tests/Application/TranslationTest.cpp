#include <QtCore/QRegularExpression>

#include "Support/TestMain.h"

/// Every text of the application has a German translation.
class TranslationTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyTextIsTranslated() {
        QFile table(QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Translations/Velmora_de.ts"));
        QVERIFY(table.open(QIODevice::ReadOnly));
        const QString translated = QString::fromUtf8(table.readAll());
        static const QRegularExpression text(
            QStringLiteral("\\b(?:tr\\(|\\w+Text\\(|textOf\\(|translate\\(\\s*\"\\w+\",)\\s*"
                           "\"([^\"]+(?:\"\\s+\"[^\"]+)*)\""));
        static const QRegularExpression seam(QStringLiteral("\"\\s+\""));
        QDirIterator sources(QStringLiteral(VELMORA_SOURCE_DIR "/Application"),
                             {QStringLiteral("*.cpp")}, QDir::Files);
        int found = 0;
        while (sources.hasNext()) {
            QFile source(sources.next());
            // The options of the command line are read before the language is known.
            if (source.fileName().endsWith(QStringLiteral("LaunchOptions.cpp"))) {
                continue;
            }
            QVERIFY(source.open(QIODevice::ReadOnly));
            auto matches = text.globalMatch(QString::fromUtf8(source.readAll()));
            while (matches.hasNext()) {
                const QString key = matches.next().captured(1).remove(seam).toHtmlEscaped().replace(
                    QStringLiteral("&quot;"), QStringLiteral("\""));
                QVERIFY2(translated.contains(QStringLiteral("<source>%1</source>").arg(key)),
                         qPrintable(key));
                ++found;
            }
        }
        QVERIFY(found > 50);
    }

    void theTableIsPartOfTheProgram() {
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/Velmora/Translations/Velmora_de.qm")));
        QCOMPARE(translator.translate("HistoryDialog", "Deleted Notes"),
                 QStringLiteral("Gelöschte Notizen"));
    }
};

VELMORA_TEST(TranslationTest)
#include "TranslationTest.moc"
