#include "Platform/Foundation/Log.h"

#include "Platform/Foundation/UserDefaults.h"
#include "Support/SetDefault.h"
#include "Support/TestMain.h"

namespace {

const QString debugKey = QStringLiteral("LogTestEnabled");
const QString highKey = QStringLiteral("LogTestVerbose");
const Log diagnostics("test", debugKey, highKey);

/// What reached Qt's message handler.
struct Caught {
    QtMsgType type;
    QString category;
    QString text;
};
QList<Caught> caught;

void catchMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    caught.append({type, QString::fromUtf8(context.category), text});
}

}  // namespace

class LogTest : public QObject {
    Q_OBJECT

    static void switchTo(bool debug, bool high) {
        setDefault(debugKey, debug);
        setDefault(highKey, high);
    }

    /// The texts that one normal and one verbose message leave.
    static QStringList written() {
        caught.clear();
        const QtMessageHandler before = qInstallMessageHandler(&catchMessage);
        diagnostics.message(QStringLiteral("normal"));
        diagnostics.verbose(QStringLiteral("verbose"));
        qInstallMessageHandler(before);
        QStringList texts;
        for (const Caught &message : std::as_const(caught)) {
            texts.append(message.text);
        }
        return texts;
    }

private Q_SLOTS:
    void init() {
        removeDefault(debugKey);
        removeDefault(highKey);
    }

    void nothingIsWrittenUnlessAskedFor() {
        QVERIFY(!diagnostics.isEnabled());
        QVERIFY(!diagnostics.isVerbose());
        QCOMPARE(written(), QStringList());
    }

    void theTwoDefaultsDecideTogether() {
        const QString normal = QStringLiteral("normal");
        switchTo(false, false);
        QCOMPARE(written(), QStringList());
        switchTo(false, true);
        QCOMPARE(written(), QStringList());
        QVERIFY(!diagnostics.isVerbose());
        switchTo(true, false);
        QCOMPARE(written(), QStringList(normal));
        QVERIFY(diagnostics.isEnabled());
        QVERIFY(!diagnostics.isVerbose());
        switchTo(true, true);
        QCOMPARE(written(), QStringList({normal, QStringLiteral("verbose")}));
        QVERIFY(diagnostics.isVerbose());
    }

    void theDefaultsAreReadAfreshAtEachMessageAlsoWhenAnotherProgramSetsThem() {
        switchTo(true, true);
        QCOMPARE(written().size(), 2);
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[General]\nLogTestEnabled=false\n");
        file.close();
        QCOMPARE(written(), QStringList());
    }

    void messagesAreInformationOfOneCategoryAndKeptVerbatim() {
        switchTo(true, false);
        caught.clear();
        const QtMessageHandler before = qInstallMessageHandler(&catchMessage);
        const QString text = QStringLiteral("\"ü\" %s %1\nsecond line");
        diagnostics.message(text);
        qInstallMessageHandler(before);
        QCOMPARE(caught.size(), 1);
        QCOMPARE(caught[0].type, QtInfoMsg);
        QCOMPARE(caught[0].category, QStringLiteral("test"));
        QCOMPARE(caught[0].text, text);
    }
};

VELMORA_TEST(LogTest)
#include "LogTest.moc"
