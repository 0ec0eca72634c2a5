#pragma once

#include <QtWidgets/QScrollArea>

class QVListView;

/// The scroll area of a QVListView: keeps the list as wide as its viewport and lays the list out
/// again whenever that width or the height of a row changes. Its viewport is white in every theme.
class ListScrollArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ListScrollArea(QWidget *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QVListView *list() const;
    void useListPalette();
};
