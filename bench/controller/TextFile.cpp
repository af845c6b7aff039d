#include "TextFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace
{

const QString notRegular = QStringLiteral("it is not a regular file");

bool isOther(const QString &file)
{
    const QFileInfo info(file);
    return info.exists() && !info.isFile();
}

} // namespace

std::optional<QByteArray> readText(const QString &file, qint64 mostBytes, QString *reason)
{
    QFile source(file);
    if (!isOther(file) && source.open(QIODevice::ReadOnly))
        return source.read(mostBytes);
    if (reason != nullptr)
        *reason = isOther(file) ? notRegular : source.errorString();
    return std::nullopt;
}

std::optional<QString> saveText(const QString &file, const QByteArray &text)
{
    if (isOther(file))
        return notRegular;
    QSaveFile target(file);
    // commit() alone does not see that the write of what was kept back fails.
    if (target.open(QIODevice::WriteOnly) && target.write(text) == text.size() && target.flush() &&
        target.commit())
        return std::nullopt;
    return target.errorString();
}
