#include "Platform/Interface/BindableView.h"

BindableView::~BindableView() = default;
