#include "Platform/Foundation/Localization.h"

#include "Support/TestMain.h"

/// A German table of one text.
class GermanTable : public QTranslator {
    Q_OBJECT
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *key, const char * /*disambiguation*/,
                      int /*n*/) const override {
        const bool isKnown = qstrcmp(context, "Sync") == 0 && qstrcmp(key, "Add Location…") == 0;
        return isKnown ? QStringLiteral("Ort hinzufügen …") : QString();
    }
};

class LocalizationTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void withoutATableTheKeyIsTheText() {
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Add Location…"));
        QCOMPARE(localizedString("Sync", ""), QString());
    }

    void aTableGivesItsTextsAndTheKeyIfItHasNone() {
        const GermanTable table;
        addLocalizationTable("Sync", &table);
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Ort hinzufügen …"));
        QCOMPARE(localizedString("Sync", "Remove"), QStringLiteral("Remove"));
        QCOMPARE(localizedString("Other", "Add Location…"), QStringLiteral("Add Location…"));
        removeLocalizationTables(&table);
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Add Location…"));
    }

    void aTranslatorOfTheApplicationIsNotSearched() {
        GermanTable table;
        QVERIFY(QCoreApplication::installTranslator(&table));
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Add Location…"));
        QCoreApplication::removeTranslator(&table);
    }

    void theLastTranslatorThatIsLeftGivesTheTexts() {
        const GermanTable first;
        const GermanTable second;
        addLocalizationTable("Sync", &first);
        addLocalizationTable("Sync", &second);
        removeLocalizationTables(&first);
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Ort hinzufügen …"));
        addLocalizationTable("Sync", &first);
        removeLocalizationTables(&first);
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Ort hinzufügen …"));
        addLocalizationTable("Sync", &first);
        removeLocalizationTables(&second);
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Ort hinzufügen …"));
        removeLocalizationTables(&first);
        QCOMPARE(localizedString("Sync", "Add Location…"), QStringLiteral("Add Location…"));
    }
};

VELMORA_TEST(LocalizationTest)
#include "LocalizationTest.moc"
