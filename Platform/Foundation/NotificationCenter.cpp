#include "Platform/Foundation/NotificationCenter.h"

#include "Platform/Foundation/NotificationChannel.h"

NotificationCenter &NotificationCenter::defaultCenter() {
    static NotificationCenter center;
    return center;
}

NotificationCenter::NotificationCenter() = default;
NotificationCenter::~NotificationCenter() = default;

void NotificationCenter::addObserver(QObject *observer, const QString &name, Handler handler) {
    auto &channel = m_channels[name];
    if (!channel) {
        channel = std::make_unique<NotificationChannel>();
    }
    QObject::connect(channel.get(), &NotificationChannel::posted, observer, std::move(handler),
                     Qt::DirectConnection);
}

void NotificationCenter::removeObserver(QObject *observer, const QString &name) {
    if (const auto found = m_channels.find(name); found != m_channels.end()) {
        QObject::disconnect(found->second.get(), nullptr, observer, nullptr);
    }
}

void NotificationCenter::removeObserver(QObject *observer) {
    for (const auto &[name, channel] : m_channels) {
        QObject::disconnect(channel.get(), nullptr, observer, nullptr);
    }
}

void NotificationCenter::post(const QString &name, QObject *object) {
    if (const auto found = m_channels.find(name); found != m_channels.end()) {
        Q_EMIT found->second->posted({name, object});
    }
}
