#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>

#include "Platform/KeyValue/KeyValue.h"

class QWidget;

/// Controls one view, which it loads from the nib of its name, about one object. Main thread.
class PLATFORM_EXPORT ViewController : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY
                   representedObjectChanged)
public:
    explicit ViewController(const QString &nibName, QObject *parent = nullptr);
    ~ViewController() override;

    QVariant representedObject() const { return m_representedObject; }
    void setRepresentedObject(const QVariant &object);
    /// Loaded when first asked for. Whoever gives it a parent owns it; the controller deletes it
    /// when it goes, if it is still there.
    QWidget *view();

Q_SIGNALS:
    void representedObjectChanged();

private:
    const QString m_nibName;
    QPointer<QWidget> m_view;
    QVariant m_representedObject;
};
