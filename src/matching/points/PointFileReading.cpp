#include "PointFileReading.h"

#include "RegularFile.h"

#include <algorithm>

PointFileReading::PointFileReading(const QString &fileName)
    : m_file(open(fileName.toLatin1()))
{
    if (!m_file)
        m_file = open(QFile::encodeName(fileName));
    if (m_file)
        m_device.open(m_file.get(), QIODevice::ReadOnly);
}

bool PointFileReading::doPiece()
{
    return m_device.isOpen() && m_reader.readPiece();
}

int PointFileReading::percent() const
{
    constexpr qint64 all = 100;
    const qint64 size = std::max<qint64>(m_device.size(), 1);
    return static_cast<int>(std::min(all * m_reader.position() / size, all));
}

PointFileReading::Result PointFileReading::result() const
{
    if (!m_device.isOpen())
        return Result::NotOpened;
    switch (m_reader.result()) {
    case ReferencePointReader::Result::UnknownFormat:
        return Result::UnknownFormat;
    case ReferencePointReader::Result::TooManyPoints:
        return Result::TooManyPoints;
    case ReferencePointReader::Result::Read:
        break;
    }
    return Result::Loaded;
}

PointFileReading::FilePointer PointFileReading::open(const QByteArray &name)
{
    return FilePointer(RegularFile::isRegular(name) ? std::fopen(name.constData(), "rb") : nullptr);
}
