#include "Controller/QVBinding.h"

#include "Platform/Foundation/UserDefaults.h"
#include "Support/SetDefault.h"
#include "Support/TestMain.h"

namespace {

/// Something with a key to bind.
class Holder : public QObject {
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
public:
    int number() const { return m_number; }
    void setNumber(int number) {
        m_number = number;
        KeyValue::announce<&Holder::numberChanged>(this);
    }

Q_SIGNALS:
    void numberChanged();

private:
    int m_number = 0;
};

QStringList messages;

void recordMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/,
                   const QString &text) {
    messages.append(text);
}

}  // namespace

class QVBindingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_view = std::make_unique<Holder>();
        m_model = std::make_unique<Holder>();
        m_binding = QVBinding::bindingWithObject(m_view.get(), "number", m_model.get(), "number",
                                                 {{QStringLiteral("anything"), 7}});
    }

    void aNewRecordHasItsFieldsAndDoesNotObserve() {
        m_model->setNumber(3);
        QCOMPARE(m_binding->object(), m_view.get());
        QCOMPARE(m_binding->target(), m_model.get());
        QCOMPARE(m_binding->key(), QByteArray("number"));
        QCOMPARE(m_binding->keyPath(), QByteArray("number"));
        QCOMPARE(m_binding->options(), QVariantMap({{QStringLiteral("anything"), 7}}));
        QCOMPARE(m_view->number(), 0);
        m_view->setNumber(5);
        QCOMPARE(m_model->number(), 3);
    }

    void bindingTakesTheModelsValueBeforeItObserves() {
        m_model->setNumber(3);
        QSignalSpy written(m_model.get(), &Holder::numberChanged);
        m_binding->bind();
        QCOMPARE(m_view->number(), 3);
        QCOMPARE(written.count(), 0);
    }

    void aValueSetInTheObjectIsWrittenToTheTargetEvenIfEqual() {
        m_binding->bind();
        QSignalSpy written(m_model.get(), &Holder::numberChanged);
        m_view->setNumber(4);
        QCOMPARE(m_model->number(), 4);
        m_view->setNumber(4);
        QCOMPARE(written.count(), 2);
    }

    void aChangeOfTheTargetDoesNotReachTheObject() {
        m_binding->bind();
        m_model->setNumber(9);
        QCOMPARE(m_view->number(), 0);
    }

    void unbindingEndsTheWritingAndKeepsTheFields() {
        m_binding->bind();
        m_binding->unbind();
        m_view->setNumber(4);
        QCOMPARE(m_model->number(), 0);
        QCOMPARE(m_binding->object(), m_view.get());
        QCOMPARE(m_binding->target(), m_model.get());
        QCOMPARE(m_binding->key(), QByteArray("number"));
        m_binding->bind();
        m_view->setNumber(6);
        QCOMPARE(m_model->number(), 6);
    }

    void aRecordMayGoWhileItWrites() {
        m_binding->bind();
        connect(m_model.get(), &Holder::numberChanged, this, [this] {
            m_binding->unbind();
            m_binding.reset();
        });
        m_view->setNumber(4);
        QVERIFY(!m_binding);
        QCOMPARE(m_model->number(), 4);
        m_view->setNumber(5);
        QCOMPARE(m_model->number(), 4);
    }

    void aRecordKeepsSharedObjectsAliveUntilItIsDestroyed() {
        auto view = std::make_shared<Holder>();
        auto model = std::make_shared<Holder>();
        const std::weak_ptr<Holder> weakView = view;
        const std::weak_ptr<Holder> weakModel = model;
        auto binding = QVBinding::bindingWithObject(view, "number", model, "number", {});
        binding->bind();
        model.reset();
        view->setNumber(4);
        QVERIFY(!weakModel.expired());
        QCOMPARE(weakModel.lock()->number(), 4);
        view.reset();
        binding->unbind();
        QVERIFY(binding->object());
        QVERIFY(binding->target());
        binding.reset();
        QVERIFY(weakView.expired());
        QVERIFY(weakModel.expired());
    }

    void aRecordIsSilentOnceAGuardedTargetOrObjectIsGone() {
        m_binding->bind();
        m_model.reset();
        m_view->setNumber(4);
        QCOMPARE(m_view->number(), 4);
        QVERIFY(!m_binding->target());
        m_view.reset();
        QVERIFY(!m_binding->object());
        m_binding->bind();
        m_binding->unbind();
    }

    void itsEndIsLoggedOnlyWhenBothDebugFlagsAreSet() {
        messages.clear();
        const QtMessageHandler previous = qInstallMessageHandler(&recordMessage);
        setDefault(QStringLiteral("QVSyncDebug"), true);
        m_binding.reset();
        const QStringList withOneFlag = messages;
        init();
        setDefault(QStringLiteral("QVSyncDebugHigh"), true);
        m_binding.reset();
        qInstallMessageHandler(previous);
        removeDefault(QStringLiteral("QVSyncDebug"));
        removeDefault(QStringLiteral("QVSyncDebugHigh"));
        QCOMPARE(withOneFlag, QStringList());
        QCOMPARE(messages, QStringList(QStringLiteral("QVBinding deallocated.")));
    }

private:
    std::unique_ptr<Holder> m_view;
    std::unique_ptr<Holder> m_model;
    std::shared_ptr<QVBinding> m_binding;
};

VELMORA_TEST(QVBindingTest)
#include "QVBindingTest.moc"
