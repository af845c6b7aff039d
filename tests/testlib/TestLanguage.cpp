#include "TestLanguage.h"

#include "BuiltFiles.h"

#include <QCoreApplication>
#include <QLibraryInfo>

TestLanguage::TestLanguage(const QString &code)
{
    if (code.isEmpty())
        return;
    install("qtbase_" + code, QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install("room_adjustment_" + code, BuiltFiles::translations());
    install("room_bench_" + code, BuiltFiles::benchTranslations());
}

TestLanguage::~TestLanguage()
{
    for (const auto &translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
}

void TestLanguage::install(const QString &name, const QString &folder)
{
    m_translators.push_back(std::make_unique<QTranslator>());
    m_isSpoken = m_translators.back()->load(name, folder) &&
                 QCoreApplication::installTranslator(m_translators.back().get()) && m_isSpoken;
}

QString spoken(const char *context, const char *text)
{
    return QCoreApplication::translate(context, text);
}
