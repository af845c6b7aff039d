#include "LanguageMenu.h"

#include "BenchLanguage.h"

#include <QActionGroup>

LanguageMenu::LanguageMenu(BenchLanguage &language, QWidget *parent)
    : QMenu(parent)
    , m_language(language)
    , m_group(new QActionGroup(this))
{
    const auto codes = m_language.codes();
    for (const QString &code : codes) {
        QAction *action = m_group->addAction(QLatin1Char('&') + BenchLanguage::nameOf(code));
        action->setData(code);
        action->setCheckable(true);
    }
    addActions(m_group->actions());
    connect(this, &QMenu::aboutToShow, this, &LanguageMenu::showCurrent);
    connect(m_group, &QActionGroup::triggered, this, &LanguageMenu::choose);
    showCurrent();
}

void LanguageMenu::showCurrent()
{
    const auto choices = m_group->actions();
    for (QAction *action : choices)
        action->setChecked(action->data().toString() == m_language.current());
}

void LanguageMenu::choose(const QAction *action)
{
    (void)m_language.choose(action->data().toString()); // the mark tells what is chosen
    showCurrent();
}
