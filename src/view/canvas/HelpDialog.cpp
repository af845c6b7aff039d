#include "HelpDialog.h"

#include "Resources.h"
#include "ui_HelpDialog.h"

#include <QEvent>

HelpDialog::HelpDialog(QWidget *parent)
    : QDialog(parent, Qt::WindowTitleHint | Qt::WindowSystemMenuHint)
    , m_ui(std::make_unique<Ui::HelpDialog>())
{
    loadResources();
    m_ui->setupUi(this);
    for (QLabel *picture : {m_ui->label_5, m_ui->label_3, m_ui->label_7})
        picture->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    connect(m_ui->exit_button, &QPushButton::clicked, this, &HelpDialog::close);
}

HelpDialog::~HelpDialog() = default;

void HelpDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}
