#include "TextFile.h"

#include <QSaveFile>

std::optional<QString> saveText(const QString &file, const QByteArray &text)
{
    QSaveFile target(file);
    if (target.open(QIODevice::WriteOnly) && target.write(text) == text.size() && target.commit())
        return std::nullopt;
    return target.errorString();
}
