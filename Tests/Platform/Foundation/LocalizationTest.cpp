#include "Platform/Foundation/Localization.h"

#include "Support/TestMain.h"

/// The table "Sync" in German, as far as it goes.
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
        QCOMPARE(localizedSyncString("Add Location…"), QStringLiteral("Add Location…"));
        QCOMPARE(localizedSyncString(""), QString());
    }

    void theTableSyncGivesTheTextAndTheKeyWhereItHasNone() {
        GermanTable table;
        QVERIFY(QCoreApplication::installTranslator(&table));
        QCOMPARE(localizedSyncString("Add Location…"), QStringLiteral("Ort hinzufügen …"));
        QCOMPARE(localizedSyncString("Add Location…", "comment"),
                 QStringLiteral("Ort hinzufügen …"));
        QCOMPARE(localizedSyncString("Remove"), QStringLiteral("Remove"));
        QCoreApplication::removeTranslator(&table);
        QCOMPARE(localizedSyncString("Add Location…"), QStringLiteral("Add Location…"));
    }
};

VELMORA_TEST(LocalizationTest)
#include "LocalizationTest.moc"
