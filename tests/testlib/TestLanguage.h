#pragma once

#include <QString>
#include <QTranslator>

#include <memory>
#include <vector>

/// The language that product, bench and Qt speak as long as it lives, such as "de"; English when it is empty.
class TestLanguage
{
public:
    explicit TestLanguage(const QString &code);
    ~TestLanguage();
    Q_DISABLE_COPY(TestLanguage)

    /// False when a translation is missing.
    bool isSpoken() const { return m_isSpoken; }

private:
    void install(const QString &name, const QString &folder);

    std::vector<std::unique_ptr<QTranslator>> m_translators;
    bool m_isSpoken = true;
};

/// What the language of the run says for an English text. In English it is that text, so that a test that
/// asks for it still pins what is said; whether a translation is there and right is the translations' own
/// test.
QString spoken(const char *context, const char *text);
