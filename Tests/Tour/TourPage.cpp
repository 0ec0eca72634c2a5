#include "Tour/TourPage.h"

#include <QtCore/QFile>
#include <QtGui/QImage>

#include "Tour/User.h"

namespace {

const QString PageName = QStringLiteral("index.html");

const QString Page = QStringLiteral(R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>A tour of Sync Preferences</title>
<style>
:root { color-scheme: light dark; }
body { font: 16px/1.5 sans-serif; max-width: 70rem; margin: 2rem auto; padding: 0 1rem; }
li { margin-bottom: 3rem; }
img { display: block; max-width: 100%; height: auto; margin-top: .75rem; }
</style>
<h1>A tour of Sync Preferences</h1>
<ol>
%1</ol>
</html>
)");

}  // namespace

TourPage::TourPage(const QString &folder, const Guide &guide) : m_folder(folder), m_guide(guide) {
    if (!QDir().mkpath(folder)) {
        throw TourFailure(QStringLiteral("The folder %1 cannot be made.").arg(folder));
    }
    const QStringList old =
        m_folder.entryList({QStringLiteral("[0-9][0-9]-*.png"), PageName}, QDir::Files);
    for (const QString &name : old) {
        QFile::remove(m_folder.filePath(name));
    }
}

void TourPage::add(const QString &name, const QString &sentence, const QImage &picture) {
    const QString file = QStringLiteral("%1-%2.png").arg(count() + 1, 2, 10, QChar(u'0')).arg(name);
    if (!picture.save(m_folder.filePath(file))) {
        throw TourFailure(QStringLiteral("The picture %1 cannot be written.").arg(file));
    }
    m_steps.append({file, sentence, picture.width()});
}

void TourPage::addToGuide(const QString &name, const QImage &picture) const {
    if (m_guide.folder.isEmpty()) {
        return;
    }
    const QString file =
        QStringLiteral("%1/%2-%3.png")
            .arg(m_guide.folder, name,
                 m_guide.isDark ? QStringLiteral("dark") : QStringLiteral("light"));
    if (!picture.save(file)) {
        throw TourFailure(QStringLiteral("The picture %1 cannot be written.").arg(file));
    }
}

void TourPage::write() const {
    QString items;
    for (const Step &step : m_steps) {
        items += QStringLiteral("<li>%1\n<img src=\"%2\" width=\"%3\" alt=\"\"></li>\n")
                     .arg(step.sentence.toHtmlEscaped(), step.file.toHtmlEscaped())
                     .arg(step.width);
    }
    const QByteArray text = Page.arg(items).toUtf8();
    QFile file(m_folder.filePath(PageName));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        throw TourFailure(QStringLiteral("The page %1 cannot be written.").arg(file.fileName()));
    }
}
