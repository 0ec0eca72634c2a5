#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTranslator>
#include <QtCore/QXmlStreamReader>

#include "Support/Languages.h"
#include "Support/TestMain.h"

namespace {

/// A text of a table, with more than one translation if it has plural forms.
struct TableText {
    QString context;
    QString source;
    bool hasForms = false;
    QStringList translations;
};

QList<TableText> readTable(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QList<TableText> texts;
    QString context;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const auto name = reader.name();
        if (name == u"name") {
            context = reader.readElementText();
        } else if (name == u"message") {
            texts.append({context,
                          QString(),
                          reader.attributes().hasAttribute(QStringLiteral("numerus")),
                          {}});
        } else if (name == u"source") {
            texts.last().source = reader.readElementText();
        } else if (name == u"numerusform" || (name == u"translation" && !texts.last().hasForms)) {
            texts.last().translations.append(reader.readElementText());
        }
    }
    return reader.hasError() ? QList<TableText>() : texts;
}

/// Returns what the program replaces in `text`.
QStringList placeholders(const QString &text) {
    static const QRegularExpression pattern(QStringLiteral("%(?:L?\\d+|@|[ndsu])"));
    QStringList found;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext()) {
        found.append(matches.next().captured());
    }
    found.sort();
    return found;
}

qsizetype countOfMnemonics(QString text) {
    return text.remove(QStringLiteral("&&")).count(QRegularExpression(QStringLiteral("&\\w")));
}

QStringList keys(const QList<TableText> &texts) {
    QStringList keys;
    for (const TableText &text : texts) {
        // Only languages from right to left state their direction.
        if (text.context == QStringLiteral("QGuiApplication")) {
            continue;
        }
        keys.append(
            QStringList{text.context, text.source, QString::number(int(text.hasForms))}.join(u'|'));
    }
    keys.sort();
    return keys;
}

}  // namespace

/// The tables of all languages have the same texts, which the program can fill in.
class TranslationTablesTest : public QObject {
    Q_OBJECT
private:
    static QString path(const QString &table, const QString &language) {
        return QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Translations/%1_%2.ts")
            .arg(table, language);
    }

    static void addTables() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("language");
        for (const QString &language : Languages::translated()) {
            for (const QString &table : {QStringLiteral("Velmora"), QStringLiteral("Sync")}) {
                QTest::addRow("%s_%s", qPrintable(table), qPrintable(language))
                    << table << language;
            }
        }
    }

private Q_SLOTS:
    void everyLanguageHasBothTables() {
        const QDir folder(QStringLiteral(VELMORA_SOURCE_DIR "/Resources/Translations"));
        const QStringList files = folder.entryList({QStringLiteral("*.ts")}, QDir::Files);
        QCOMPARE(files.size(), 2 * Languages::translated().size());
        QVERIFY(Languages::translated().contains(QStringLiteral("de")));
    }

    void everyTableHasTheSameTexts_data() { addTables(); }
    void everyTableHasTheSameTexts() {
        QFETCH(const QString, table);
        QFETCH(const QString, language);
        const QStringList own = keys(readTable(path(table, language)));
        const QStringList german = keys(readTable(path(table, QStringLiteral("de"))));
        QVERIFY(own.size() > 100);
        for (const QString &key : german) {
            QVERIFY2(own.contains(key), qPrintable(key));
        }
        QCOMPARE(own.size(), german.size());
    }

    void everyTranslationCanBeFilledIn_data() { addTables(); }
    void everyTranslationCanBeFilledIn() {
        QFETCH(const QString, table);
        QFETCH(const QString, language);
        for (const TableText &text : readTable(path(table, language))) {
            QVERIFY2(!text.translations.isEmpty(), qPrintable(text.source));
            for (const QString &translation : text.translations) {
                QVERIFY2(!translation.isEmpty(), qPrintable(text.source));
                QVERIFY2(placeholders(translation) == placeholders(text.source),
                         qPrintable(translation));
                QVERIFY2(countOfMnemonics(translation) == countOfMnemonics(text.source),
                         qPrintable(translation));
            }
        }
    }

    void namesDoNotChangeTheOrderFromRightToLeft_data() { addTables(); }
    void namesDoNotChangeTheOrderFromRightToLeft() {
        QFETCH(const QString, table);
        QFETCH(const QString, language);
        // Otherwise the first slash of a path is shown at its end.
        const bool isIsolated = QLocale(language).textDirection() == Qt::RightToLeft;
        const QRegularExpression wrong(isIsolated ? QStringLiteral("«%[1-9]|(?<!\u2068)%[1-9]»")
                                                  : QStringLiteral("[\u2066-\u2069]"));
        for (const TableText &text : readTable(path(table, language))) {
            for (const QString &translation : text.translations) {
                QVERIFY2(!wrong.match(translation).hasMatch(), qPrintable(translation));
            }
        }
    }

    void everyCountHasAForm_data() { addTables(); }
    void everyCountHasAForm() {
        QFETCH(const QString, table);
        QFETCH(const QString, language);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("%1_%2").arg(table, language),
                                table == QStringLiteral("Sync")
                                    ? QStringLiteral(":/VelmoraSync/Translations")
                                    : QStringLiteral(":/Velmora/Translations")));
        int found = 0;
        for (const TableText &text : readTable(path(table, language))) {
            if (!text.hasForms) {
                continue;
            }
            ++found;
            for (const int count : {0, 1, 2, 3, 5, 11, 21, 100, 101, 102, 1000000}) {
                QVERIFY2(text.translations.contains(translator.translate(
                             text.context.toUtf8(), text.source.toUtf8(), nullptr, count)),
                         qPrintable(QStringLiteral("%1 (%2)").arg(text.source).arg(count)));
            }
        }
        QVERIFY(found > 3);
    }
};

VELMORA_TEST(TranslationTablesTest)
#include "TranslationTablesTest.moc"
