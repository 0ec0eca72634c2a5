#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QtPlugin>

#include "Host/HostExport.h"

/// A kind of sync location, as an application offers it to a user who has no location yet. A value.
struct LocationOffer {
    /// Identifies the kind to LocationAdding: a word of Latin letters that is not shown.
    QString kind;
    /// Where notes are kept, in the user's language: the text of a choice, without a period.
    QString place;
};

/// The kinds of sync locations that a pane offers to new users.
///
/// This is an optional addition to the plug-in of a pane: the root object of a plug-in that has it
/// is also a LocationOffers. It needs no pane, no host and no profile. Must be used on the main
/// thread.
class HOST_EXPORT LocationOffers {
public:
    virtual ~LocationOffers();

    /// Returns the kinds, in display order.
    virtual QList<LocationOffer> locationOffers() const = 0;
};

/// Identifies the interface to Qt's plug-in loader.
#define LocationOffers_iid "LocationOffers/1"
Q_DECLARE_INTERFACE(LocationOffers, LocationOffers_iid)
