#include "CalibrationIcon.h"

#include "Resources.h"

#include <QPixmap>

/// Not loaded by a QIcon: the cache of pictures would take it for a new one every time.
QPixmap calibrationIcon()
{
    loadResources();
    return QPixmap(QStringLiteral(":/images/icons/velmar_16x16.png"));
}
