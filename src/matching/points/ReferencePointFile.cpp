#include "ReferencePointFile.h"

#include "NumberText.h"
#include "RegularFile.h"

#include <QFile>
#include <QSaveFile>

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

void write(QIODevice &device, const std::vector<Row> &rows)
{
    int number = 0;
    for (const Row &row : rows) {
        QByteArray line = QByteArray::number(++number);
        for (QString text : row) {
            (void)normalizeNumberText(text);
            line += ' ' + text.toLatin1();
        }
        device.write(line + '\n');
    }
}

bool save(const QString &fileName, const std::vector<Row> &rows)
{
    const QString name = savedName(fileName);
    const QByteArray encoded = QFile::encodeName(name);
    if (RegularFile::isThere(encoded) && !RegularFile::isRegular(encoded))
        return false;
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    write(file, rows);
    return file.flush() && file.commit(); // commit() alone does not see that its last write fails
}

} // namespace ReferencePointFile
