#include "ReferencePointFile.h"

#include "NumberText.h"
#include "ReferencePointReader.h"

#include <QFile>
#include <QSaveFile>

#include <sys/stat.h>

#include <cstdio>
#include <memory>

namespace
{

struct FileCloser {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

using FilePointer = std::unique_ptr<std::FILE, FileCloser>;

using Status = struct stat;

bool readStatus(const QByteArray &name, Status &status)
{
    return ::stat(name.constData(), &status) == 0;
}

bool isThere(const QByteArray &name)
{
    Status status{};
    return readStatus(name, status);
}

/// A directory opens but cannot be read, and a pipe may wait for ever.
bool isRegularFile(const QByteArray &name)
{
    Status status{};
    return readStatus(name, status) && S_ISREG(status.st_mode);
}

FilePointer openForReading(const QByteArray &name)
{
    return FilePointer(isRegularFile(name) ? std::fopen(name.constData(), "rb") : nullptr);
}

} // namespace

namespace ReferencePointFile
{

LoadResult load(const QString &fileName, MatchingPoints &points)
{
    FilePointer file = openForReading(fileName.toLatin1());
    if (!file)
        file = openForReading(QFile::encodeName(fileName));
    QFile device;
    if (!file || !device.open(file.get(), QIODevice::ReadOnly))
        return LoadResult::NotOpened;
    std::optional<MatchingPoints> loaded = ReferencePointReader(device).read();
    if (!loaded)
        return LoadResult::UnknownFormat;
    points = std::move(*loaded);
    return LoadResult::Loaded;
}

bool exists(const QString &fileName)
{
    return isThere(fileName.toLatin1()) || isThere(QFile::encodeName(fileName));
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
    if (isThere(encoded) && !isRegularFile(encoded))
        return false;
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    write(file, rows);
    return file.flush() && file.commit(); // commit() alone does not see that its last write fails
}

} // namespace ReferencePointFile
