#pragma once

#include "GalleryRoom.h"

/// Every window of the product, opened on the simulated controller as a user sees it.
class WindowGallery
{
public:
    /// The windows, and the states in which they look different.
    static QStringList windows();
    /// These, and the messages.
    static QStringList all();

    /// Opens the window with that name, looks at it and closes it. False when it did not open.
    bool visit(const QString &name, const Look &look);

private:
    GalleryRoom m_room;
};
