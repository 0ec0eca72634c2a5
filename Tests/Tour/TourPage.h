#pragma once

#include <QtCore/QDir>
#include <QtCore/QStringList>

class QImage;

/// The pictures of a tour in a folder, and the page that shows them in order, index.html.
class TourPage {
public:
    /// The folder of the pictures of the guide, which exists, or no path, and their colors.
    struct Guide {
        QString folder;
        bool isDark = false;
    };

    /// Makes the folder, and takes away what an earlier tour has written there. What cannot be
    /// written raises a TourFailure.
    TourPage(const QString &folder, const Guide &guide);

    /// Writes `picture` as "NN-`name`.png"; `sentence` says what happens in it.
    void add(const QString &name, const QString &sentence, const QImage &picture);
    /// Writes a picture of the guide as "`name`-light.png" or "`name`-dark.png".
    void addToGuide(const QString &name, const QImage &picture) const;
    /// Writes the page.
    void write() const;

    int count() const { return static_cast<int>(m_steps.size()); }

private:
    struct Step {
        QString file;
        QString sentence;
        int width;
    };

    const QDir m_folder;
    const Guide m_guide;
    QList<Step> m_steps;
};
