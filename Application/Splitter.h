#pragma once

#include <QtWidgets/QSplitter>

/// A horizontal splitter. In right-to-left layouts QSplitter places all widgets one pixel too far
/// to the right, where the border of the last one is cut off; here they stay inside. Its contents
/// margins must not be set, since Qt does not mirror them. Must be used on the main thread.
class Splitter : public QSplitter {
    Q_OBJECT
public:
    explicit Splitter(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitContents();
};
