#pragma once

#include <QtCore/QStringList>

/// The forms that the panel shows as sheets.
namespace SheetForms {

/// Returns their names: all forms in the sources but those known to be something else, so that the
/// form of a new kind of location is among them.
QStringList names();

}  // namespace SheetForms
