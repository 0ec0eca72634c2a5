#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>

#include "Support/Languages.h"
#include "Support/TestMain.h"

/// The table "Sync" has every text of the pane, in each language.
class SyncTableTest : public QObject {
    Q_OBJECT

    static QString read(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// What `pattern` captures in the files of that kind in `folder`.
    static QStringList captured(const char *folder, const char *files, const char *pattern) {
        const QString root = QStringLiteral(VELMORA_SOURCE_DIR "/") + QLatin1StringView(folder);
        const QRegularExpression expression{QLatin1StringView(pattern)};
        static const QRegularExpression notTranslated(
            QStringLiteral("<stringlist notr=\"true\">.*?</stringlist>"),
            QRegularExpression::DotMatchesEverythingOption);
        QStringList result;
        QDirIterator found(root, {QLatin1StringView(files)}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (found.hasNext()) {
            const QString contents = read(found.next()).remove(notTranslated);
            auto matches = expression.globalMatch(contents);
            while (matches.hasNext()) {
                result.append(matches.next().captured(1));
            }
        }
        return result;
    }

private Q_SLOTS:
    void everyTextOfTheFormsAndTheCodeIsTranslated_data() {
        QTest::addColumn<QString>("language");
        for (const QString &language : Languages::translated()) {
            QTest::newRow(qPrintable(language)) << language;
        }
        QVERIFY(Languages::translated().contains(QStringLiteral("de")));
    }
    void everyTextOfTheFormsAndTheCodeIsTranslated() {
        QFETCH(const QString, language);
        const QString table = read(
            QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Translations/Sync_%1.ts").arg(language));
        QStringList texts = captured("Resources/Interface", "*.ui", "<string>([^<]+)</string>");
        for (const char *folder : {"Controller", "Host", "View", "Platform"}) {
            for (const char *files : {"*.h", "*.cpp"}) {
                texts +=
                    captured(folder, files,
                             "(?:localized(?:String|SyncString|SyncCount)|QT_TRANSLATE_NOOP)"
                             "\\((?:PlatformTable,|\"Sync\",)?\\s*\"([^\"]+(?:\"\\s+\"[^\"]+)*)\"");
            }
        }
        QVERIFY(texts.size() > 30);
        static const QRegularExpression seam(QStringLiteral("\"\\s+\""));
        texts.replaceInStrings(seam, QString());
        for (const QString &text : std::as_const(texts)) {
            QVERIFY2(table.contains(QStringLiteral("<source>%1</source>").arg(text)),
                     qPrintable(text));
        }
    }
};

VELMORA_TEST(SyncTableTest)
#include "SyncTableTest.moc"
