#include "RegularFile.h"

#include <QByteArray>

#include <sys/stat.h>

namespace
{

using Status = struct stat;

bool readStatus(const QByteArray &name, Status &status)
{
    return ::stat(name.constData(), &status) == 0;
}

} // namespace

namespace RegularFile
{

bool isThere(const QByteArray &name)
{
    Status status{};
    return readStatus(name, status);
}

bool isRegular(const QByteArray &name)
{
    Status status{};
    return readStatus(name, status) && S_ISREG(status.st_mode);
}

} // namespace RegularFile
