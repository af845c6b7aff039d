#include "RegularFile.h"

#include <QByteArray>
#include <QFile>
#include <QSaveFile>

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

bool replace(const QString &name, const std::function<void(QIODevice &)> &write)
{
    QSaveFile file(name);
    if (!beginToReplace(file))
        return false;
    write(file);
    return endToReplace(file);
}

bool beginToReplace(QSaveFile &file)
{
    const QByteArray encoded = QFile::encodeName(file.fileName());
    return (!isThere(encoded) || isRegular(encoded)) && file.open(QIODevice::WriteOnly | QIODevice::Text);
}

bool endToReplace(QSaveFile &file)
{
    return file.flush() && file.commit(); // commit() alone does not see that its last write fails
}

} // namespace RegularFile
