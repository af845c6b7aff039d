#include "MillimetreText.h"

#include <QString>

QString millimetreText(double value)
{
    return QString::number(value, 'f', 2);
}
