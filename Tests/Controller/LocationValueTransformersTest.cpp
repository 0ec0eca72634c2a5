#include "Controller/QVLastSynchronizationValueTransformer.h"
#include "Controller/QVLocationImageValueTransformer.h"
#include "Controller/QVLocationTitleValueTransformer.h"
#include "Controller/QVNextScheduledDateValueTransformer.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

class LocationValueTransformersTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aLocationBecomesTheIconOfItsFormatter() {
        TestHost host;
        const auto location = host.addLocation();
        const QVLocationImageValueTransformer transformer;
        const QVariant icon = transformer.transformedValue(QVariant::fromValue(location));
        QCOMPARE(transformer.transformedValueClass(), QMetaType::fromType<QPixmap>());
        QCOMPARE(icon.metaType(), transformer.transformedValueClass());
        QCOMPARE(icon.value<QPixmap>().toImage(),
                 QVSyncLocationFormatter::formatterForLocationWithURL(location->URL())
                     ->icon()
                     .toImage());
        QVERIFY(!transformer.transformedValue({}).isValid());
    }

    void aLocationBecomesTheTitleOfItsFormatter() {
        TestHost host;
        const auto location = host.addLocation();
        const QVLocationTitleValueTransformer transformer;
        const QVariant title = transformer.transformedValue(QVariant::fromValue(location));
        QCOMPARE(transformer.transformedValueClass(), QMetaType::fromType<QString>());
        QCOMPARE(title.toString(),
                 QVSyncLocationFormatter::formatterForLocationWithURL(location->URL())->title());
        QVERIFY(!transformer.transformedValue({}).isValid());
    }

    void datesAreFormattedAsText() {
        const QDateTime now = QDateTime::currentDateTime();
        const QVLastSynchronizationValueTransformer last;
        const QVNextScheduledDateValueTransformer next;
        QCOMPARE(last.transformedValue({}).toString(), QStringLiteral("Never synchronized"));
        QVERIFY(last.transformedValue(now.addDays(-1))
                    .toString()
                    .startsWith(QStringLiteral("Synchronized yesterday at ")));
        QCOMPARE(next.transformedValue({}).toString(),
                 QStringLiteral("No synchronization is scheduled."));
        QVERIFY(next.transformedValue(now.addDays(1))
                    .toString()
                    .startsWith(QStringLiteral("Next synchronization: tomorrow at ")));
    }
};

VELMORA_TEST(LocationValueTransformersTest)
#include "LocationValueTransformersTest.moc"
