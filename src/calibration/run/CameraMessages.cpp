#include "CameraMessages.h"

#include <QStringList>

#include <limits>

namespace CameraMessages
{

bool holdsCamera(const QString &message, int camera)
{
    return message.split(QLatin1Char(',')).contains(QString::number(camera));
}

std::vector<std::optional<int>> tabs(const QString &message)
{
    std::vector<std::optional<int>> result;
    const QStringList entries = message.split(QLatin1Char(','));
    for (const QString &entry : entries) {
        bool isNumber = false;
        const int tab = entry.toInt(&isNumber);
        const bool isTab = isNumber && tab >= 0 && tab < std::numeric_limits<int>::max();
        result.push_back(isTab ? std::make_optional(tab) : std::nullopt);
    }
    return result;
}

} // namespace CameraMessages
