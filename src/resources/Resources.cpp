#include "Resources.h"

#include <QtGlobal>

void loadResources()
{
    Q_INIT_RESOURCE(room_adjustment);
}
