#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

class QWidget;

/// Records what the notifications of a window report to screen readers while this object exists.
/// Must be used on the main thread.
class SpokenTexts : public QObject {
    Q_OBJECT
public:
    explicit SpokenTexts(const QWidget &window);

    const QStringList &texts() const { return m_texts; }
    /// Returns the text that was reported last; empty if there is none.
    QString last() const { return m_texts.isEmpty() ? QString() : m_texts.constLast(); }

private:
    QStringList m_texts;
};
