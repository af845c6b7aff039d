#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

/// The language in which the module, the windows of the bench and Qt's own buttons speak. What the programs
/// print stays English.
///
/// A translation of the module is a file "room_adjustment_CODE.qm", with CODE such as "de"; that of the bench
/// is "room_bench_CODE.qm". English needs none.
class BenchLanguage
{
public:
    /// The translations are looked for in these folders, the first one first. A language is offered when the
    /// module speaks it; the bench follows if it can.
    explicit BenchLanguage(const QStringList &folders);
    ~BenchLanguage();

    /// The codes that can be chosen: "en", then those of the translations in alphabetical order.
    QStringList codes() const;
    const QString &current() const { return m_current; }

    /// Changes the language of the running program. False when there is no such translation; the language
    /// then stays as it is.
    [[nodiscard]] bool choose(const QString &code);

    /// The language's own name for itself, such as "Deutsch".
    static QString nameOf(const QString &code);

    /// Where the translations of the program in that folder lie: in the build tree and where they are
    /// installed.
    static QStringList folders(const QString &executableFolder);

private:
    std::unique_ptr<QTranslator> translator(const QString &name) const;
    void install(std::vector<std::unique_ptr<QTranslator>> translators);

    QStringList m_folders;
    QString m_current;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
