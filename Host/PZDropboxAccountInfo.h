#pragma once

#include <QtCore/QString>

#include "Host/HostExport.h"

/// An account that was authorized. Immutable; shared.
class HOST_EXPORT PZDropboxAccountInfo {
public:
    virtual ~PZDropboxAccountInfo();
    virtual QString email() const = 0;
};
