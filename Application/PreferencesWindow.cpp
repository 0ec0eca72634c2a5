#include "Application/PreferencesWindow.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>

#include "Application/CloseKeys.h"
#include "Application/Guide.h"
#include "Application/LocationRemovals.h"
#include "Application/PaneArea.h"
#include "Application/PresentIfFailed.h"
#include "Application/UndoBar.h"
#include "Application/WindowMemory.h"
#include "Application/WindowSize.h"
#include "Host/PaneSelection.h"
#include "Host/QVLocationEditing.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SaveLocations.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/Mnemonics.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/PreferencePane.h"

namespace {

/// Names in WindowMemory.
const QString PaneWindowName = QStringLiteral("SyncPreferences");
const QString PaneDatabaseName = QStringLiteral("SyncPreferencesDatabase");
const QString PaneLocationName = QStringLiteral("SyncPreferencesLocation");
const QString PaneOpenName = QStringLiteral("SyncPreferencesOpen");

/// Identifies the location from one start to the next.
QString addressOf(const QVSyncLocation &location) {
    return location.URL().stringWithoutPassword();
}

std::shared_ptr<QVSyncLocation> locationWithAddress(const QString &address) {
    const auto locations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    const auto found = std::find_if(locations.begin(), locations.end(),
                                    [&](const auto &each) { return addressOf(*each) == address; });
    return found == locations.end() ? nullptr : *found;
}

}  // namespace

PreferencesWindow::PreferencesWindow(std::unique_ptr<PreferencePane> pane, QWidget *parent)
    : QWidget(parent, Qt::Window), m_area(new PaneArea) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Sync Preferences"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_area, 1);
    new HeightKeeper(this);
    CloseKeys::add(*this);
    Guide::addShortcut(this, Guide::LocationsPage);
    // Larger fonts need more room.
    resize(WindowSize::atLeast({920, 600}, *this, 100, 36));
    showPane(std::move(pane));
}

PreferencesWindow::~PreferencesWindow() = default;

void PreferencesWindow::showPane(std::unique_ptr<PreferencePane> pane) {
    m_pane = std::move(pane);
    m_pane->loadMainView();
    m_area->setPane(m_pane->mainView());
    // Not only when the layout does so later: it can get the focus now.
    m_pane->mainView()->show();
    m_pane->willSelect();
    if (isVisible()) {
        Mnemonics::assign(*this);
    }
}

void PreferencesWindow::showEvent(QShowEvent *event) {
    Mnemonics::assign(*this);
    QWidget::showEvent(event);
}

void PreferencesWindow::showRemovals(
    LocationRemovals *removals,
    std::function<Expected<std::unique_ptr<PreferencePane>>()> makePane) {
    m_removals = removals;
    m_makePane = std::move(makePane);
    m_removalBar = new UndoBar;
    m_removalBar->setObjectName(QStringLiteral("removalBar"));
    m_removalBar->layout()->setContentsMargins(16, 0, 16, 12);
    connect(m_removalBar, &UndoBar::undoRequested, this, &PreferencesWindow::undoRemoval);
    layout()->addWidget(m_removalBar);
    connect(m_removals, &LocationRemovals::changed, this, &PreferencesWindow::updateRemovals);
    updateRemovals();
}

void PreferencesWindow::updateRemovals() {
    const bool wasVisible = !m_removalBar->isHidden();
    m_removalBar->setText(
        m_removals->isEmpty()
            ? QString()
            : PlainText::message(
                  tr("“%1” was removed. Its ticks and schedules can be restored with it.")
                      .arg(m_removals->title())));
    if (wasVisible == m_removals->isEmpty() && !isMaximized()) {
        // The pane keeps its size.
        const int height = m_removalBar->sizeHint().height();
        resize(size() + QSize(0, wasVisible ? -height : height));
    }
}

void PreferencesWindow::undoRemoval() {
    const QString database = selectedDatabase();
    const auto location = m_removals->location();
    // There may be one pane at a time.
    m_pane->willDeselect();
    m_pane.reset();
    presentIfFailed(m_removals->undo());
    auto pane = m_makePane();
    if (pane) {
        showPane(std::move(*pane));
        select(database, location);
        // The button that had the focus is hidden.
        focusNextChild();
    } else {
        NSApp()->presentError(pane.error());
        close();
    }
}

QString PreferencesWindow::selectedDatabase() const {
    const auto *selection = dynamic_cast<PaneSelection *>(m_pane.get());
    return selection ? selection->selectedDatabase() : QString();
}

QString PreferencesWindow::selectedAddress() const {
    const auto *selection = dynamic_cast<PaneSelection *>(m_pane.get());
    const auto location = selection ? selection->selectedLocation() : nullptr;
    return location ? addressOf(*location) : QString();
}

void PreferencesWindow::select(const QString &database,
                               const std::shared_ptr<QVSyncLocation> &location) {
    if (auto *selection = dynamic_cast<PaneSelection *>(m_pane.get())) {
        selection->selectDatabase(database);
        selection->selectLocation(location);
    }
}

void PreferencesWindow::remember() {
    m_remembers = true;
    setWasOpen(true);
    WindowMemory::restore(*this, PaneWindowName);
    select(WindowMemory::text(PaneDatabaseName),
           locationWithAddress(WindowMemory::text(PaneLocationName)));
}

bool PreferencesWindow::wasOpen() {
    return WindowMemory::text(PaneOpenName) != QLatin1StringView("false");
}

void PreferencesWindow::setWasOpen(bool wasOpen) {
    WindowMemory::saveText(PaneOpenName, QVariant(wasOpen).toString());
}

void PreferencesWindow::editLocation(const std::shared_ptr<QVSyncLocation> &location) {
    if (auto *editing = dynamic_cast<QVLocationEditing *>(m_pane.get())) {
        editing->editLocation(location);
    }
}

void PreferencesWindow::addLocation(const QString &kind, LocationAdding::Next next) {
    if (auto *adding = dynamic_cast<LocationAdding *>(m_pane.get())) {
        adding->addLocationOfKind(kind, next);
    }
}

void PreferencesWindow::closeInAnyCase() {
    m_closesInAnyCase = true;
    close();
}

void PreferencesWindow::closeEvent(QCloseEvent *event) {
    if (m_pane && !m_closesInAnyCase && !presentIfFailed(saveLocations())) {
        event->ignore();
        return;
    }
    if (m_remembers) {
        WindowMemory::save(*this, PaneWindowName);
        WindowMemory::saveText(PaneDatabaseName, selectedDatabase());
        WindowMemory::saveText(PaneLocationName, selectedAddress());
        // The end of the program closes it, too.
        setWasOpen(m_closesInAnyCase);
    }
    if (m_pane) {
        m_pane->willDeselect();
    }
    event->accept();
}
