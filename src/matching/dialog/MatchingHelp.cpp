#include "MatchingHelp.h"

#include "Resources.h"
#include "ui_MatchingHelp.h"

#include <QEvent>
#include <QLayout>

MatchingHelp::MatchingHelp(QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::MatchingHelpClass>())
{
    loadResources();
    m_ui->setupUi(this);
    fitHeight();
}

MatchingHelp::~MatchingHelp() = default;

/// The wrapped texts need this height; the layout alone would let the window open lower and cut them.
void MatchingHelp::fitHeight()
{
    resize(width(), layout()->totalHeightForWidth(width()));
}

void MatchingHelp::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    fitHeight();
}

void MatchingHelp::on_pushButton_exit_clicked()
{
    close();
}
