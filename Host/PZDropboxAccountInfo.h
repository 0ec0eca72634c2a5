#pragma once

#include <QtCore/QString>

#include "Host/HostExport.h"

/// The account that a user has authorized. Immutable, therefore thread-safe. Shared ownership.
class HOST_EXPORT PZDropboxAccountInfo {
public:
    virtual ~PZDropboxAccountInfo();
    /// Returns the e-mail address of the account, as the service reports it. Never empty. Do not
    /// compare it exactly: the service may write it with other letter cases.
    virtual QString email() const = 0;
};
