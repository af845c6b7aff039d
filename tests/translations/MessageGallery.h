#pragma once

#include "GalleryRoom.h"

/// Every message box of the product, brought up the way a user or a controller does, and the display of a
/// long search.
namespace MessageGallery
{

QStringList names();

/// Brings the message up, looks at it and closes it. False when it did not come.
bool visit(const QString &name, GalleryRoom &room, const Look &look);

} // namespace MessageGallery
