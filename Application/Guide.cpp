#include "Application/Guide.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QShortcut>
#include <QtWidgets/QHBoxLayout>

#include "Application/ApplicationError.h"
#include "Host/QVApplication.h"
#include "Platform/Interface/HelpButton.h"

QString Guide::path(const QString &page) {
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/" VELMORA_GUIDE "/") + page);
}

void Guide::open(const QString &page) {
    const QString file = path(page);
    if (!QFileInfo::exists(file) || !QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
        NSApp()->presentError(applicationError(
            QCoreApplication::translate(
                "Guide",
                "The guide “%1” cannot be opened. Open it in a browser, or install "
                "Velmora again if it is missing.")
                .arg(file)));
    }
}

QHBoxLayout *Guide::rowWithHelp(const QString &page, QWidget *buttons) {
    auto *help = new HelpButton;
    help->setPage(page);
    auto *row = new QHBoxLayout;
    row->addWidget(help);
    row->addWidget(buttons, 1);
    return row;
}

void Guide::addShortcut(QWidget *window, const QString &page) {
    new QShortcut(QKeySequence::HelpContents, window, [page] { open(page); });
}
