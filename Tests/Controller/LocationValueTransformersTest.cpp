#include "Controller/QVLocationImageValueTransformer.h"
#include "Controller/QVLocationTitleValueTransformer.h"
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
};

VELMORA_TEST(LocationValueTransformersTest)
#include "LocationValueTransformersTest.moc"
