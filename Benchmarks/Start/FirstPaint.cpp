#include <QtGui/qgenericplugin.h>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <ctime>

namespace {

constexpr std::chrono::seconds Rest(1);

qint64 nanosecondsOf(clockid_t clock) {
    timespec time = {};
    clock_gettime(clock, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

/// Returns the resident memory in kilobytes.
qint64 residentMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    const QByteArray text = status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray();
    const QByteArray value = text.mid(text.indexOf("VmRSS:") + 6);
    return value.left(value.indexOf("kB")).trimmed().toLongLong();
}

/// Prints when the first window of the program is painted, the CPU time until then, both in
/// nanoseconds, and the resident memory a while later. Then it ends the program.
class FirstPaint : public QObject {
public:
    FirstPaint() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *object, QEvent *event) override {
        if (!m_isPainted && event->type() == QEvent::Paint && object->isWidgetType()) {
            m_isPainted = true;
            // The window is painted completely, and no other work has begun.
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
        return false;
    }

    bool event(QEvent *event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        m_painted = nanosecondsOf(CLOCK_MONOTONIC);
        m_processor = nanosecondsOf(CLOCK_PROCESS_CPUTIME_ID);
        QTimer::singleShot(Rest, this, [this] {
            std::printf("%lld %lld %lld\n", m_painted, m_processor, residentMemory());
            std::fflush(stdout);
            std::raise(SIGTERM);
        });
        return true;
    }

private:
    bool m_isPainted = false;
    qint64 m_painted = 0;
    qint64 m_processor = 0;
};

}  // namespace

/// Can be loaded into any program that uses Qt Widgets.
class FirstPaintPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstPaint.json")
public:
    QObject *create(const QString & /*key*/, const QString & /*arguments*/) override {
        return new FirstPaint;
    }
};

#include "FirstPaint.moc"
