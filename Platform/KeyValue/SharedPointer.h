#pragma once

#include <QtCore/QMetaType>
#include <memory>

// Lets a variant return the QObject to which a std::shared_ptr in it points.
Q_DECLARE_SMART_POINTER_METATYPE(std::shared_ptr)
