#pragma once

#include "Host/PZDropboxAccountInfo.h"

/// An account, identified by the e-mail address that Dropbox reports. Immutable.
class DropboxAccountInfo : public PZDropboxAccountInfo {
public:
    explicit DropboxAccountInfo(const QString &email) : m_email(email) {}
    QString email() const override { return m_email; }

private:
    const QString m_email;
};
