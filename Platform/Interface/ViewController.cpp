#include "Platform/Interface/ViewController.h"

#include <QtWidgets/QWidget>

#include "Platform/Interface/Nib.h"

ViewController::ViewController(const QString &nibName, QObject *parent)
    : QObject(parent), m_nibName(nibName) {}

ViewController::~ViewController() {
    delete m_view;
}

void ViewController::setRepresentedObject(const QVariant &object) {
    m_representedObject = object;
    KeyValue::announce<&ViewController::representedObjectChanged>(this);
}

QWidget *ViewController::view() {
    if (!m_view) {
        m_view = Nib::load(m_nibName, this);
    }
    return m_view;
}
