#include "MatchingHelp.h"

#include "Resources.h"
#include "ui_MatchingHelp.h"

#include <QLayout>

MatchingHelp::MatchingHelp(QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::MatchingHelpClass>())
{
    loadResources();
    m_ui->setupUi(this);
    // The wrapped texts need this height; the layout alone would let the window open lower and cut them.
    resize(width(), layout()->totalHeightForWidth(width()));
}

MatchingHelp::~MatchingHelp() = default;

void MatchingHelp::on_pushButton_exit_clicked()
{
    close();
}
