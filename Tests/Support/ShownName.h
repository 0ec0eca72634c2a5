#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

/// Finds where the widgets of this process show a name.
class ShownName {
public:
    /// Full of what Qt gives a meaning to: an image, an open tag, a character reference, a
    /// mnemonic. Also valid as the name of a file.
    static const QString Hostile;

    explicit ShownName(const QString &name);

    /// The class and object name of each widget that shows the name in a text, cell or tool tip.
    const QStringList &places() const { return m_places; }
    /// Those of the places where Qt reads the name as markup or takes an "&" in it for a mnemonic.
    const QStringList &misreadPlaces() const { return m_misreadPlaces; }

    /// Whether `toolTip` shows exactly `text`.
    static bool isToolTipOf(const QString &toolTip, const QString &text);

private:
    void add(const QObject &place, bool isMisread);
    void lookAt(const class QWidget &widget);
    void lookAt(const class QAbstractItemView &view);
    void lookAtToolTip(const QObject &place, const QString &toolTip);

    const QString m_name;
    QStringList m_places;
    QStringList m_misreadPlaces;
};
