#pragma once

#include <QtCore/QMetaType>
#include <memory>

// Lets a variant tell which QObject a std::shared_ptr in it points to.
Q_DECLARE_SMART_POINTER_METATYPE(std::shared_ptr)
