#include "CountdownDlg.h"

#include "CalibrationIcon.h"
#include "ui_CountdownDialog.h"

#include <QEvent>
#include <QLayout>
#include <QPixmap>

#include <limits>

using namespace std::chrono_literals;

CountdownDlg::CountdownDlg(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowCloseButtonHint)
    , m_ui(std::make_unique<Ui::CountdownDialog>())
{
    m_ui->setupUi(this);
    setWindowIcon(calibrationIcon());
    fitButtons();
    m_timer.setTimerType(Qt::PreciseTimer);
    setTick(1000ms);
    connect(&m_timer, &QTimer::timeout, this, &CountdownDlg::updateCountdown);
    connect(m_ui->pushButton_start, &QPushButton::clicked, this, &CountdownDlg::accept);
    connect(m_ui->pushButton_cancel, &QPushButton::clicked, this, &CountdownDlg::reject);
}

CountdownDlg::~CountdownDlg() = default;

void CountdownDlg::setCountdown(const QString &text, int seconds)
{
    m_ui->label->setText(text);
    m_secondsLeft = seconds;
    m_ui->lcdNumber->display(m_secondsLeft);
    m_timer.start();
}

void CountdownDlg::updateCountdown()
{
    if (m_secondsLeft > std::numeric_limits<int>::min())
        --m_secondsLeft;
    m_ui->lcdNumber->display(m_secondsLeft);
    if (m_secondsLeft <= 0)
        done(Accepted);
}

/// The required least size alone would cut the buttons' texts.
void CountdownDlg::fitButtons()
{
    layout()->activate();
    resize(size().expandedTo(layout()->totalMinimumSize()));
}

void CountdownDlg::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    const QString text = m_ui->label->text(); // given from outside
    m_ui->retranslateUi(this);
    m_ui->label->setText(text);
    fitButtons();
}

void CountdownDlg::done(int result)
{
    m_timer.stop();
    QDialog::done(result);
}
