#include "Application/PreferencesWindow.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QVBoxLayout>

#include "Platform/Interface/PreferencePane.h"

PreferencesWindow::PreferencesWindow(std::unique_ptr<PreferencePane> pane, QWidget *parent)
    : QWidget(parent, Qt::Window), m_pane(std::move(pane)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Sync Preferences"));
    m_pane->loadMainView();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pane->mainView());
    resize(760, 600);
    m_pane->willSelect();
}

PreferencesWindow::~PreferencesWindow() = default;

void PreferencesWindow::closeEvent(QCloseEvent *event) {
    m_pane->willDeselect();
    event->accept();
}
