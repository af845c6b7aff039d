#include "CameraStatus.h"

#include "ObjectWatch.h"
#include "PercentText.h"
#include "Percentage.h"
#include "ui_CameraStatus.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QPalette>

namespace
{

constexpr int wholePercent = 100;
constexpr int margin = 5;
constexpr int thickBorder = 4;
constexpr int titleRoom = 5;

QString twoDigits(const QString &text, int number)
{
    return text.arg(number, 2, 10, QLatin1Char('0'));
}

QString highlightedGroupStyle()
{
    return QStringLiteral(
        "QGroupBox{background-color: %1;color: %2;border: 4px solid gray;border-radius: 5px;margin-top: "
        "1ex;}\n QGroupBox::title {subcontrol-origin: margin;subcontrol-position: top center;padding: 0 "
        "3px;border: 1px solid gray;border-radius: 5px;background-color: %3;color: %4;}");
}

QString plainGroupStyle()
{
    return QStringLiteral(
        "QGroupBox{background-color: %1;color: %2;border: 0px solid gray;border-radius: 5px;margin-top: "
        "1ex;}\nQGroupBox::title {subcontrol-origin: margin;subcontrol-position: top center;padding: 0 "
        "3px;border: 1px solid gray;border-radius: 5px;background-color: %3;color: %4;}");
}

QString runningBarStyle()
{
    return QStringLiteral("QProgressBar{border: 1px solid grey;border-radius: "
                          "15px;}\nQProgressBar::chunk{background: qlineargradient(x1: 0, y1: 0.5, x2: 1, "
                          "y2: 0.5, stop: 0 blue, stop: 1 white);}");
}

QString completeBarStyle()
{
    return QStringLiteral("QProgressBar{border: 1px solid grey;border-radius: "
                          "15px;}\nQProgressBar::chunk{background: qlineargradient(x1: 0, y1: 0.5, x2: 1, "
                          "y2: 0.5, stop: 0 green, stop: 1 white);}");
}

} // namespace

CameraStatus::CameraStatus(IOManager *commands, QWidget *parent, const BackendVersions *versions, int index)
    : QGroupBox(parent)
    , m_ui(std::make_unique<Ui::CameraStatus>())
    , m_controller(commands, versions)
    , m_index(index)
{
    m_ui->setupUi(this);
    showPercentBeside(m_ui->progressBar, m_ui->label_percent);
    setTitle(twoDigits(QStringLiteral("c%1"), m_index + 1));
    highlight(false);
    m_serial = QString::fromUtf8(m_controller.cameraSerial(m_index + 1));
    showTexts();
    resetProgress(0);
}

CameraStatus::~CameraStatus() = default;

void CameraStatus::highlight(bool isMostActive)
{
    m_isHighlighted = isMostActive;
    // The thick border takes its room from the margin, so that no box changes its size.
    const int side = margin + (m_isHighlighted ? 0 : thickBorder);
    layout()->setContentsMargins(side, side + titleRoom, side, side);
    applyGroupStyle();
}

void CameraStatus::applyGroupStyle()
{
    const QPalette palette = QApplication::palette();
    const QString base = palette.color(QPalette::Active, QPalette::Base).name();
    const QString text = palette.color(QPalette::Active, QPalette::WindowText).name();
    const QString pattern = m_isHighlighted ? highlightedGroupStyle() : plainGroupStyle();
    const QString style = pattern.arg(base, text, base, text);
    if (style != styleSheet())
        setStyleSheet(style);
}

void CameraStatus::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyGroupStyle();
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        showTexts();
    }
}

/// What the form itself does not know.
void CameraStatus::showTexts()
{
    m_ui->label_tab->setText(twoDigits(tr("tab %1"), m_tabNumber + 1));
    m_ui->label_serial->setText(QLatin1Char('#') + m_serial);
}

void CameraStatus::resetProgress(int percent)
{
    m_ui->progressBar->setValue(percent);
}

void CameraStatus::set_progressBar(int value)
{
    m_ui->progressBar->setValue(value);
}

void CameraStatus::set_tab_number(int value)
{
    m_tabNumber = value;
    showTexts();
}

void CameraStatus::update_progressBar()
{
    const ObjectWatch self(this);
    const float fraction = m_controller.cameraProgress(m_index + 1);
    if (self)
        showProgress(fraction);
}

void CameraStatus::showProgress(float fraction)
{
    const int percent = Percentage::ofCamera(fraction);
    set_progressBar(percent < 1 ? 0 : percent);
    setBarStyle(percent == wholePercent ? completeBarStyle() : runningBarStyle());
}

void CameraStatus::setBarStyle(const QString &style)
{
    if (style != m_ui->progressBar->styleSheet())
        m_ui->progressBar->setStyleSheet(style);
}
