#include "Application/WindowMemory.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QSplitter>

#include "Host/QVApplication.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

QString keyOf(const QString &name) {
    return QStringLiteral("QVWindows") + name;
}

/// Moves `window` to the nearest screen, and makes it fit there.
void bringToScreen(QWidget &window) {
    QRect place = window.geometry();
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    const QRect free = (screen ? screen : window.screen())->availableGeometry();
    if (free.contains(place)) {
        return;
    }
    // With room for the frame.
    place.setSize(place.size().boundedTo(free.size() * 9 / 10));
    window.resize(place.size());
    window.move(qBound(free.left(), place.left(), free.right() + 1 - place.width()),
                qBound(free.top(), place.top(), free.bottom() + 1 - place.height()));
}

void logIfFailed(const Expected<void> &result) {
    if (!result) {
        NSApp()->logItemCmd(QStringLiteral("Velmora:"), result.error().localizedDescription);
    }
}

}  // namespace

void WindowMemory::restore(QWidget &window, const QString &name) {
    QDataStream saved(QByteArray::fromBase64(text(name).toLatin1()));
    saved.setVersion(QDataStream::Qt_6_4);
    QByteArray geometry;
    QByteArrayList splitters;
    saved >> geometry >> splitters;
    const auto present = window.findChildren<QSplitter *>();
    if (saved.status() != QDataStream::Ok || splitters.size() != present.size()) {
        return;
    }
    window.restoreGeometry(geometry);
    bringToScreen(window);
    for (qsizetype i = 0; i < present.size(); ++i) {
        present.at(i)->restoreState(splitters.at(i));
    }
}

void WindowMemory::save(const QWidget &window, const QString &name) {
    QByteArray saved;
    QDataStream stream(&saved, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    QByteArrayList splitters;
    for (const QSplitter *splitter : window.findChildren<QSplitter *>()) {
        splitters.append(splitter->saveState());
    }
    stream << window.saveGeometry() << splitters;
    saveText(name, QString::fromLatin1(saved.toBase64()));
}

QString WindowMemory::text(const QString &name) {
    const Expected<QString> text = UserDefaults::stringForKey(keyOf(name));
    logIfFailed(text.map([](const QString &) {}));
    return text.value_or(QString());
}

void WindowMemory::saveText(const QString &name, const QString &text) {
    if (WindowMemory::text(name) != text) {
        logIfFailed(UserDefaults::setValue(keyOf(name), text));
    }
}
