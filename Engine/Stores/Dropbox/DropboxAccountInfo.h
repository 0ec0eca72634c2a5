#pragma once

#include "Host/PZDropboxAccountInfo.h"

/// An account, identified by the e-mail address that Dropbox reports. Immutable; created for the
/// handler of a session, which shares ownership.
class DropboxAccountInfo : public PZDropboxAccountInfo {
public:
    explicit DropboxAccountInfo(const QString &email) : m_email(email) {}
    /// Contains "@", otherwise unchecked; may be written with other letter cases than in a
    /// location, see DropboxUrl::isSameAccount().
    QString email() const override { return m_email; }

private:
    const QString m_email;
};
