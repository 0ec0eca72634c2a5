#pragma once

#include <QtWidgets/QScrollArea>

/// The scroll area of a QVListView: keeps the list as wide as its viewport and lays the list out
/// again whenever that width changes. Its viewport is white in every theme.
class ListScrollArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ListScrollArea(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void useListPalette();
};
