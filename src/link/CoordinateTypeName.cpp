#include "CoordinateTypeName.h"

#include <QByteArray>

namespace CoordinateTypeName
{

CoordinateType typeOf(const QByteArray &name)
{
    if (name == normal)
        return CoordinateType::Normal;
    if (name == "powerwall")
        return CoordinateType::Powerwall;
    if (name == "powerwall_standing")
        return CoordinateType::PowerwallStanding;
    if (name == midCamera)
        return CoordinateType::MidCamera;
    return name == "none" ? CoordinateType::None : CoordinateType::Unknown;
}

} // namespace CoordinateTypeName
