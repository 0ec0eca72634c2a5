#include "Benchmarks/Benchmark.h"
#include "Platform/KeyValue/KeyValue.h"

namespace {

constexpr int changesAWork = 1000;
constexpr int dependentCount = 8;

/// The key "lone" has no dependents, "source" has eight.
class Subject : public QObject {
    Q_OBJECT
    Q_PROPERTY(int lone READ value NOTIFY loneChanged)
    Q_PROPERTY(int source READ value NOTIFY sourceChanged)
    Q_PROPERTY(int a READ value NOTIFY aChanged)
    Q_PROPERTY(int b READ value NOTIFY bChanged)
    Q_PROPERTY(int c READ value NOTIFY cChanged)
    Q_PROPERTY(int d READ value NOTIFY dChanged)
    Q_PROPERTY(int e READ value NOTIFY eChanged)
    Q_PROPERTY(int f READ value NOTIFY fChanged)
    Q_PROPERTY(int g READ value NOTIFY gChanged)
    Q_PROPERTY(int h READ value NOTIFY hChanged)

public:
    int value() const { return m_value; }
    void emitLone() {
        ++m_value;
        Q_EMIT loneChanged();
    }
    void announceLone() {
        ++m_value;
        KeyValue::announce<&Subject::loneChanged>(this);
    }
    void announceSource() {
        ++m_value;
        KeyValue::announce<&Subject::sourceChanged>(this);
    }

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingA() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingB() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingC() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingD() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingE() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingF() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingG() { return {"source"}; }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingH() { return {"source"}; }

Q_SIGNALS:
    void loneChanged();
    void sourceChanged();
    void aChanged();
    void bChanged();
    void cChanged();
    void dChanged();
    void eChanged();
    void fChanged();
    void gChanged();
    void hChanged();

private:
    int m_value = 0;
};

Benchmark::Report::Work repeat(Subject &subject, void (Subject::*change)()) {
    return [&subject, change] {
        for (int i = 0; i < changesAWork; ++i) {
            (subject.*change)();
        }
    };
}

void run(Benchmark::Report &report) {
    int count = 0;
    Subject bare;
    QObject::connect(&bare, &Subject::loneChanged, &bare, [&] { ++count; });
    Subject lone;
    const auto ofLone = KeyValue::observe(&lone, "lone", [&] { ++count; });
    Subject source;
    const auto ofSource = KeyValue::observe(&source, "source", [&] { ++count; });

    // The baseline is the bare signal, received by one lambda.
    const auto emission = repeat(bare, &Subject::emitLone);
    const Benchmark::Row alone =
        report.compare(QStringLiteral("1,000 changes heard by one observer"),
                       repeat(lone, &Subject::announceLone), emission, 1.3);
    report.compareTenTimes(QStringLiteral("the same, the slowest of ten runs"),
                           repeat(lone, &Subject::announceLone), emission, 1.3);
    const Benchmark::Row together =
        report.compare(QStringLiteral("the same with eight dependents that are not observed"),
                       repeat(source, &Subject::announceSource), emission);
    const double each = (together.ratio() - alone.ratio()) / dependentCount;
    report.add({QStringLiteral("each of these dependents"), each * together.reference,
                together.reference, together.unit, 0.5});
    Benchmark::keep(count);
}

const Benchmark::Suite suite(QStringLiteral("key-value"), run);

}  // namespace

#include "KeyValueBenchmark.moc"
