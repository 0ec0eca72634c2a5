#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/QuestionPresenter.h"
#include "Application/Interface/RemovalDecider.h"
#include "Application/Interface/SyncPlugIn.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncDispatcher.h"

// Defined here so that each class has a single home for its type information, which application and
// plug-in compare.
NoteDatabase::~NoteDatabase() = default;
NoteLibrary::~NoteLibrary() = default;
QuestionPresenter::~QuestionPresenter() = default;
RemovalDecider::~RemovalDecider() = default;
SyncPlugIn::~SyncPlugIn() = default;

QuestionPresenter *QuestionPresenter::ofApplication() {
    return dynamic_cast<QuestionPresenter *>(NSApp());
}

RemovalDecider *RemovalDecider::of(QVSyncDispatcher *dispatcher) {
    return dynamic_cast<RemovalDecider *>(dispatcher);
}
