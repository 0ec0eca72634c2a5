#include "Platform/Interface/AccessibleCheckBox.h"

#include <QtWidgets/QCheckBox>

#include "Support/TestMain.h"

/// A check box as screen readers see it.
class AccessibleCheckBoxTest : public QObject {
    Q_OBJECT

    static QAccessibleInterface *accessible(QCheckBox &box) {
        return QAccessible::queryAccessibleInterface(&box);
    }

private Q_SLOTS:
    void initTestCase() { AccessibleCheckBox::install(); }

    void togglingItIsAClick() {
        QCheckBox box(QStringLiteral("&Use HTTPS && more"));
        const QSignalSpy clicks(&box, &QCheckBox::clicked);
        QCOMPARE(accessible(box)->role(), QAccessible::CheckBox);
        QCOMPARE(accessible(box)->text(QAccessible::Name), QStringLiteral("Use HTTPS & more"));
        QVERIFY(!accessible(box)->state().checked);
        const QString action = accessible(box)->actionInterface()->actionNames().constFirst();
        accessible(box)->actionInterface()->doAction(action);
        QCOMPARE(clicks.count(), 1);
        QVERIFY(box.isChecked());
        QVERIFY(accessible(box)->state().checkable);
        QVERIFY(accessible(box)->state().checked);
    }

    void itsAccessibleNameIsItsName() {
        QCheckBox box;
        box.setAccessibleName(QStringLiteral("R&D"));
        QCOMPARE(accessible(box)->text(QAccessible::Name), QStringLiteral("R&D"));
    }

    void whileDisabledItHasNoAction() {
        QCheckBox box;
        box.setEnabled(false);
        QVERIFY(accessible(box)->actionInterface()->actionNames().isEmpty());
        accessible(box)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(!box.isChecked());
    }
};

VELMORA_TEST(AccessibleCheckBoxTest)
#include "AccessibleCheckBoxTest.moc"
