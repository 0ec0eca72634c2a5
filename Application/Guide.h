#pragma once

#include <QtCore/QString>

class QHBoxLayout;
class QWidget;

/// The guide for users, pages that are installed with the program. Must be used on the main thread.
namespace Guide {

/// The file names of pages that windows open.
inline const QString FirstPage = QStringLiteral("index.html");
inline const QString BeginPage = QStringLiteral("begin.html");
inline const QString LocationsPage = QStringLiteral("locations.html");
inline const QString NotesPage = QStringLiteral("notes.html");

/// Returns the path of a page.
QString path(const QString &page = FirstPage);
/// Opens the page in the user's browser. If that is not possible, presents an error that names the
/// page.
void open(const QString &page = FirstPage);
/// Returns a row of a “?” that opens the page and of the `buttons` of a dialog. The caller owns it.
QHBoxLayout *rowWithHelp(const QString &page, QWidget *buttons);
/// Lets F1 open the page while `window` has the keyboard.
void addShortcut(QWidget *window, const QString &page);

}  // namespace Guide
