#pragma once

#include <QtWidgets/QTreeView>

class NoteVersionsModel;

/// A list whose rows are read as the user scrolls to them. All of them are read before all are
/// selected or the last one is gone to, so that neither leaves any out.
/// Must be used on the main thread; reading all may block for the profile, see NoteVersionsModel.
class NoteVersionsList : public QTreeView {
    Q_OBJECT
public:
    /// `versions` is not owned, must outlive the list, and must not be null.
    explicit NoteVersionsList(NoteVersionsModel *versions);

    /// Reads the rows that are missing first. Blocks until then.
    void selectAll() override;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    /// Reads the rows that are missing; stops at a failure, which the model has reported.
    void readAll();

    NoteVersionsModel *const m_versions;
};
