#include "RecordLine.h"

QByteArray tool2(const QByteArray &head, const QByteArray &flags)
{
    return head + "[1 2 3]" + unitRotation + flags + sixValues;
}

int parse(VelmarParser &parser, const QByteArray &line)
{
    QByteArray text = line;
    char *cursor = text.data();
    const int result = parser.parseLine(&cursor);
    if (text != line || cursor < text.data() || cursor > text.data() + text.size())
        return -1;
    return result;
}
