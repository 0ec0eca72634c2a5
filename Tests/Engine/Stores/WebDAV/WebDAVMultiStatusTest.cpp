#include "Engine/Stores/WebDAV/WebDAVMultiStatus.h"

#include <ctime>

#include "Engine/Foundation/EngineFuture.h"
#include "Support/TestMain.h"

namespace {

QByteArray multiStatusOf(const QByteArray &contents) {
    return "<?xml version=\"1.0\"?>\n<multistatus xmlns=\"DAV:\">" + contents + "</multistatus>";
}

QByteArray numbered(int count, const QByteArray &before, const QByteArray &after) {
    QByteArray result;
    for (int i = 0; i < count; ++i) {
        result += before + QByteArray::number(i) + after;
    }
    return result;
}

}  // namespace

/// Listings that are cut at every place, and listings that are made to be expensive.
class WebDAVMultiStatusTest : public QObject {
    Q_OBJECT
private:
    EngineFuture m_future;

private Q_SLOTS:
    void aListingIsReadWhereverItIsSplit() {
        const QByteArray listing =
            "<response><href>/Gr\xc3\xbc\xc3\x9f"
            "e&amp;x/</href><propstat><prop><resourcetype>"
            "<collection/></resourcetype></prop></propstat></response>"
            "<response><href>\n /b<![CDATA[c]]> </href></response>";
        for (int before = 3800; before < 4110; ++before) {
            const auto parsed = WebDAVMultiStatus::parse(
                multiStatusOf(QByteArray(before, ' ') + listing) + "\n", m_future);
            QVERIFY2(parsed, qPrintable(QString::number(before)));
            QCOMPARE(parsed->resources.size(), 2);
            QCOMPARE(parsed->resources.first().href, QByteArray("/Gr\xc3\xbc\xc3\x9f"
                                                                "e&x/"));
            QVERIFY(parsed->resources.first().isFolder);
            QCOMPARE(parsed->resources.last().href, QByteArray("/bc"));
            QVERIFY(!parsed->resources.last().isFolder);
        }
    }

    void aTrailingDocumentIsRefusedWhereverItBegins() {
        const QByteArray begin = multiStatusOf({}).chopped(14);
        for (qsizetype length = 4090; length < 4102; ++length) {
            const QByteArray document =
                begin + QByteArray(length - begin.size() - 14, ' ') + "</multistatus>";
            QCOMPARE(document.size(), length);
            QVERIFY(WebDAVMultiStatus::parse(document, m_future));
            QVERIFY(!WebDAVMultiStatus::parse(document + "<a/>", m_future));
            QCOMPARE(WebDAVMultiStatus::parse(document.chopped(1), m_future).error(),
                     WebDAVMultiStatus::Failure::Invalid);
        }
    }

    void aLargeListingIsRead() {
        const auto parsed = WebDAVMultiStatus::parse(
            multiStatusOf(numbered(100'000, "<response><href>/a/", "</href></response>\n")),
            m_future);
        QVERIFY(parsed);
        QCOMPARE(parsed->resources.size(), 100'000);
        QCOMPARE(parsed->resources.last().href, QByteArray("/a/99999"));
    }

    void anExpensiveListingIsRefusedQuickly_data() {
        QTest::addColumn<QByteArray>("document");
        QTest::newRow("attributes")
            << multiStatusOf("<a " + numbered(200'000, "a", "=\"\" ") + "/>");
        QTest::newRow("many attributes of many elements")
            << multiStatusOf(("<a " + numbered(100, "a", "=\"\" ") + "/>").repeated(10'000));
        QTest::newRow("namespaces")
            << multiStatusOf("<a " + numbered(40'000, "xmlns:a", "=\"x\" ") + '>' +
                             QByteArray("<b/>").repeated(40'000) + "</a>");
        QTest::newRow("namespaces of nested elements")
            << multiStatusOf(("<a " + numbered(20, "xmlns:a", "=\"x\" ") + '>').repeated(4) +
                             QByteArray("</a>").repeated(4));
        QTest::newRow("declared attributes")
            << "<!DOCTYPE a [" + numbered(200'000, "<!ATTLIST a a", " CDATA \"\">") + "]>" +
                   multiStatusOf({});
        QTest::newRow("elements") << multiStatusOf(QByteArray("<a/>").repeated(1'000'001));
        QTest::newRow("responses") << multiStatusOf(QByteArray("<response/>").repeated(200'001));
        QTest::newRow("paths") << multiStatusOf(
            ("<response><href>" + QByteArray(10'000, 'x') + "</href></response>").repeated(2000));
        QTest::newRow("path") << multiStatusOf("<response><href>" + QByteArray(1 << 20, 'x') +
                                               "</href></response>");
        QTest::newRow("split path") << multiStatusOf(
            "<response><href>" + QByteArray("x<!---->").repeated(100'000) + "</href></response>");
        QTest::newRow("name") << multiStatusOf('<' + QByteArray(8 << 20, 'x') + "/>");
    }

    void anExpensiveListingIsRefusedQuickly() {
        QFETCH(QByteArray, document);
        const auto before = std::clock();
        QVERIFY(!WebDAVMultiStatus::parse(document, m_future));
        QCOMPARE_LT((std::clock() - before) / CLOCKS_PER_SEC, 15);
    }

    void namespacesOfElementsOneAfterTheOtherAreRead() {
        const auto parsed = WebDAVMultiStatus::parse(
            multiStatusOf(
                ("<response " + numbered(20, "xmlns:a", "=\"x\" ") + "><href>/a</href></response>")
                    .repeated(100)),
            m_future);
        QVERIFY(parsed);
        QCOMPARE(parsed->resources.size(), 100);
    }

    void aCancelledParseEnds() {
        EngineFuture cancelled;
        cancelled.cancel();
        const QByteArray document = multiStatusOf({});
        QVERIFY(WebDAVMultiStatus::parse(document, m_future));
        QCOMPARE(WebDAVMultiStatus::parse(document, cancelled).error(),
                 WebDAVMultiStatus::Failure::Cancelled);
    }
};

VELMORA_TEST(WebDAVMultiStatusTest)
#include "WebDAVMultiStatusTest.moc"
