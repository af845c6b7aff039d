#include "BenchLanguage.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>

namespace
{

const QLatin1String baseName("room_adjustment_");
const QLatin1String benchBaseName("room_bench_");
const QLatin1String ending(".qm");
const QLatin1String withoutTranslation("en");

} // namespace

BenchLanguage::BenchLanguage(const QStringList &folders)
    : m_folders(folders)
    , m_current(withoutTranslation)
{
}

BenchLanguage::~BenchLanguage() = default;

QStringList BenchLanguage::codes() const
{
    QStringList found;
    for (const QString &folder : m_folders) {
        const QStringList files = QDir(folder).entryList({baseName + QLatin1Char('*') + ending}, QDir::Files);
        for (const QString &file : files)
            found << file.mid(baseName.size(), file.size() - baseName.size() - ending.size());
    }
    found.removeDuplicates();
    found.sort();
    return QStringList(withoutTranslation) + found;
}

bool BenchLanguage::choose(const QString &code)
{
    if (code == m_current)
        return true;
    std::vector<std::unique_ptr<QTranslator>> translators;
    if (code != withoutTranslation) {
        // What is installed last is asked first: the module's own texts go before Qt's.
        auto ofQt = std::make_unique<QTranslator>();
        if (ofQt->load(QLatin1String("qtbase_") + code,
                       QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
            translators.push_back(std::move(ofQt));
        if (auto ofBench = translator(benchBaseName + code))
            translators.push_back(std::move(ofBench));
        translators.push_back(translator(baseName + code));
        if (translators.back() == nullptr)
            return false;
    }
    install(std::move(translators));
    m_current = code;
    return true;
}

std::unique_ptr<QTranslator> BenchLanguage::translator(const QString &name) const
{
    for (const QString &folder : m_folders) {
        auto found = std::make_unique<QTranslator>();
        // QTranslator would cut the name short until some file fits, and an empty code fits none.
        const QString file = QDir(folder).filePath(name + ending);
        if (QFile::exists(file) && found->load(file))
            return found;
    }
    return nullptr;
}

void BenchLanguage::install(std::vector<std::unique_ptr<QTranslator>> translators)
{
    for (const auto &old : m_translators)
        QCoreApplication::removeTranslator(old.get());
    for (const auto &translator : translators)
        QCoreApplication::installTranslator(translator.get());
    m_translators = std::move(translators);
}

QString BenchLanguage::nameOf(const QString &code)
{
    if (code == withoutTranslation)
        return QStringLiteral("English"); // not "American English"
    QString name = QLocale(code).nativeLanguageName();
    if (!name.isEmpty())
        name[0] = name.at(0).toUpper();
    return name;
}

QStringList BenchLanguage::folders(const QString &executableFolder)
{
    const QDir folder(executableFolder);
    QStringList found;
    for (const char *place : {"../../translations", "../translations", ROOM_TRANSLATIONS_FROM_PROGRAMS})
        found << QDir::cleanPath(folder.absoluteFilePath(QLatin1String(place)));
    return found;
}
