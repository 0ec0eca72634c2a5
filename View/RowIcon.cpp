#include "View/RowIcon.h"

namespace {

constexpr int SmallestSide = 32;

}  // namespace

RowIcon::RowIcon(QWidget *parent) : QLabel(parent) {
    setScaledContents(true);
}

QSize RowIcon::sizeHint() const {
    const int side = qMax(SmallestSide, fontMetrics().height() * 3 / 2);
    return {side, side};
}
