#pragma once

#include <QtWidgets/QToolButton>

#include "Platform/PlatformExport.h"

/// A button “?” that opens a page of the application's guide, as F1 does in its window. It is
/// hidden if the application has no ShowFunction. Must be used on the main thread.
class PLATFORM_EXPORT HelpButton : public QToolButton {
    Q_OBJECT
    /// The file name of the page, such as "webdav.html"; empty until it is set.
    Q_PROPERTY(QString page READ page WRITE setPage)
public:
    /// The signature of the function that shows the page of the guide with the given file name, and
    /// returns at once. It is an optional addition to the application object of Qt, which must be
    /// able to invoke it.
    static constexpr char ShowFunction[] = "showHelp(QString)";

    explicit HelpButton(QWidget *parent = nullptr);

    QString page() const { return m_page; }
    void setPage(const QString &page) { m_page = page; }

    /// As high as the push buttons beside it, and at least as wide.
    QSize sizeHint() const override;

private:
    void showPage() const;

    QString m_page;
};
