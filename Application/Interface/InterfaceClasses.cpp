#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/QuestionPresenter.h"
#include "Application/Interface/SyncPlugIn.h"

// Defined here so that each class has a single home for its type information, which application and
// plug-in compare.
NoteDatabase::~NoteDatabase() = default;
NoteLibrary::~NoteLibrary() = default;
QuestionPresenter::~QuestionPresenter() = default;
SyncPlugIn::~SyncPlugIn() = default;

namespace {

QuestionPresenter *sharedPresenter = nullptr;

}  // namespace

QuestionPresenter *QuestionPresenter::shared() {
    return sharedPresenter;
}

void QuestionPresenter::setShared(QuestionPresenter *presenter) {
    sharedPresenter = presenter;
}
