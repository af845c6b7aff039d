#pragma once

#include <QMenu>

class BenchLanguage;
class QActionGroup;

/// The choice of the language. Several menus can offer the same one; each marks the current language when it
/// opens.
class LanguageMenu : public QMenu
{
    Q_OBJECT

public:
    /// The language must outlive the menu.
    explicit LanguageMenu(BenchLanguage &language, QWidget *parent = nullptr);

private:
    void showCurrent();
    void choose(const QAction *action);

    BenchLanguage &m_language;
    QActionGroup *m_group;
};
