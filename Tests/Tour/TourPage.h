#pragma once

#include <QtCore/QDir>
#include <QtCore/QStringList>

class QImage;

/// The pictures of a tour in a folder, and the page that shows them in order, index.html.
class TourPage {
public:
    /// Makes the folder, and takes away what an earlier tour has written there. What cannot be
    /// written raises a TourFailure.
    explicit TourPage(const QString &folder);

    /// Writes `picture` as "NN-`name`.png"; `sentence` says what happens in it.
    void add(const QString &name, const QString &sentence, const QImage &picture);
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
    QList<Step> m_steps;
};
