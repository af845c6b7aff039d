#include "MatchingHelp.h"

#include "Resources.h"
#include "ScreenFit.h"
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

/// The height that the wrapped texts need, where the screen has it; otherwise they scroll.
void MatchingHelp::fitHeight()
{
    layout()->activate();
    const int texts = m_ui->scrollAreaContents->layout()->totalHeightForWidth(m_ui->scrollArea->width());
    resize(width(), height() - m_ui->scrollArea->height() + texts);
    fitToScreen(this);
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
