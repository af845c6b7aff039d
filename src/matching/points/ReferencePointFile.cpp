#include "ReferencePointFile.h"

#include "NumberText.h"
#include "RegularFile.h"

#include <QFile>
#include <QIODevice>

namespace ReferencePointFile
{

bool exists(const QString &fileName)
{
    return RegularFile::isThere(fileName.toLatin1()) || RegularFile::isThere(QFile::encodeName(fileName));
}

QString suffix()
{
    return QStringLiteral("txt");
}

QString savedName(const QString &fileName)
{
    const QString ending = QLatin1Char('.') + suffix();
    const QString name = fileName.trimmed();
    return name.endsWith(ending) ? name : name + ending;
}

void write(QIODevice &device, int number, const Row &row)
{
    QByteArray line = QByteArray::number(number);
    for (QString text : row) {
        (void)normalizeNumberText(text);
        line += ' ' + text.toLatin1();
    }
    device.write(line + '\n');
}

} // namespace ReferencePointFile
