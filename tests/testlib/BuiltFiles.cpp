#include "BuiltFiles.h"

namespace BuiltFiles
{

QString module()
{
    return QStringLiteral(MODULE_LIBRARY);
}

QString fakeModule()
{
    return QStringLiteral(FAKE_MODULE);
}

QString bench()
{
    return QStringLiteral(BENCH_PROGRAM);
}

QString controller()
{
    return QStringLiteral(CONTROLLER_PROGRAM);
}

QString pictures()
{
    return QStringLiteral(PICTURES_PROGRAM);
}

QString nothingAsserted()
{
    return QStringLiteral(NOTHING_ASSERTED);
}

QString translations()
{
    return build() + "/translations";
}

QString benchTranslations()
{
    return build() + "/bench/translations";
}

QString scenarios()
{
    return sources() + "/bench/scenarios";
}

QString scenario(const QString &fileName)
{
    return scenarios() + '/' + fileName;
}

QString sources()
{
    return QStringLiteral(SOURCE_FOLDER);
}

QString build()
{
    return QStringLiteral(BUILD_FOLDER);
}

} // namespace BuiltFiles
