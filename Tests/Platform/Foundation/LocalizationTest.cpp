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

/// A table whose texts differ for each count.
class CountingTable : public QTranslator {
    Q_OBJECT
public:
    bool isEmpty() const override { return false; }
    QString translate(const char * /*context*/, const char * /*key*/,
                      const char * /*disambiguation*/, int n) const override {
        return QStringLiteral("form %1").arg(n);
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

    void withoutATableACountHasTheEnglishForms() {
        const auto text = [](qint64 count) {
            return localizedString("Sync", "%1 notes", "%1 note", count);
        };
        QCOMPARE(text(0), QStringLiteral("%1 notes"));
        QCOMPARE(text(1), QStringLiteral("%1 note"));
        QCOMPARE(text(2), QStringLiteral("%1 notes"));
        QCOMPARE(localizedString("Sync", "and %1 more", nullptr, 1), QStringLiteral("and %1 more"));
    }

    void aTableGetsTheCountToChooseTheForm() {
        const CountingTable table;
        addLocalizationTable("Sync", &table);
        const auto text = [](qint64 count) {
            return localizedString("Sync", "%1 notes", "%1 note", count);
        };
        QCOMPARE(text(0), QStringLiteral("form 0"));
        QCOMPARE(text(1), QStringLiteral("form 1"));
        QCOMPARE(text(999'999), QStringLiteral("form 999999"));
        // Qt counts with an int.
        QCOMPARE(text(7'000'000'011), QStringLiteral("form 1000011"));
        removeLocalizationTables(&table);
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
