#include "RoomPanel.h"

#include "MillimetreText.h"
#include "PointButtons.h"
#include "RoomControls.h"
#include "SaveQuestion.h"
#include "ui_RoomPanel.h"

#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTabBar>

#include <algorithm>
#include <chrono>

namespace
{

using namespace std::chrono_literals;

constexpr auto readingInterval = 100ms;
constexpr double perCent = 0.01;
constexpr int scrollBarRoom = 20; // a page may be higher than the screen; above there may be a menu bar

QString versionText(const std::array<int, 3> &version)
{
    const QString text = QStringLiteral("%1.%2").arg(version[0]).arg(version[1]);
    return version[2] < 0 ? text : text + QStringLiteral(".%1").arg(version[2]);
}

/// Checks the box or not, as if nobody had touched it; a state that is not known leaves it as it is.
void check(QCheckBox *box, std::optional<bool> state)
{
    const QSignalBlocker blocker(box);
    box->setChecked(state.value_or(box->isChecked()));
}

} // namespace

RoomPanel::RoomPanel(RoomControls &controls, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::RoomPanel>())
    , m_controls(controls)
{
    m_ui->setupUi(this);
    m_ui->versionBox->addItems({QStringLiteral("0.8"), QStringLiteral("0.10"), QStringLiteral("0.16"),
                                QStringLiteral("0.17"), QStringLiteral("1.2"), QStringLiteral("1.17"),
                                QStringLiteral("1.18"), QStringLiteral("1.23"), QStringLiteral("1.24")});
    m_ui->versionBox->setInsertPolicy(QComboBox::NoInsert);
    QWidget *tabs = m_ui->tabWidget->tabBar(); // behind the tabs themselves would be behind all pages
    m_points = std::make_unique<PointButtons>(m_controls, m_ui->pointLayout, tabs, m_ui->savePointsButton);
    connect(m_points.get(), &PointButtons::clicked, this, &RoomPanel::touch);
    connect(&m_controls, &RoomControls::refused, this, &RoomPanel::showMessage);
    connect(&m_controls, &RoomControls::changed, this, [this] { showMessage(QString()); });
    connect(&m_readingTimer, &QTimer::timeout, this, &RoomPanel::showReading);
    // The box itself says nothing of a text that is not in its list.
    connect(m_ui->versionBox->lineEdit(), &QLineEdit::returnPressed, this,
            [this] { setVersion(m_ui->versionBox->currentText()); });
    m_readingTimer.start(readingInterval);
    showState();
}

RoomPanel::~RoomPanel() = default;

QSize RoomPanel::sizeHint() const
{
    QSize shown;
    QSize whole;
    const auto areas = findChildren<QScrollArea *>();
    for (const QScrollArea *area : areas) {
        shown = shown.expandedTo(area->sizeHint());
        whole.setWidth(std::max(whole.width(), area->widget()->minimumSizeHint().width()));
    }
    for (const QScrollArea *area : areas)
        whole.setHeight(std::max(whole.height(), area->widget()->heightForWidth(whole.width())));
    return QWidget::sizeHint() - shown + whole + QSize(scrollBarRoom, 2 * fontMetrics().height());
}

void RoomPanel::showState()
{
    m_points->showState();
    if (const auto version = m_controls.interfaceVersion()) {
        const QSignalBlocker blocker(m_ui->versionBox);
        m_ui->versionBox->setEditText(versionText(*version));
    }
    if (const auto reading = m_controls.toolReading()) {
        const QSignalBlocker blocker(m_ui->tremorBox);
        m_ui->tremorBox->setValue(reading->tremorMm);
        check(m_ui->trackedBox, reading->isTracked);
    }
    check(m_ui->lockedBox, m_controls.isLocked());
    check(m_ui->availableBox, m_controls.isAvailable());
    check(m_ui->angleToolBox, m_controls.isAngleToolVisible());
    showCoordinateType();
    showTools();
    showReading();
}

void RoomPanel::showCoordinateType()
{
    QComboBox *box = m_ui->coordinateTypeBox;
    if (box->count() == 0)
        box->addItems(m_controls.coordinateTypes());
    if (const auto type = m_controls.coordinateType())
        box->setCurrentIndex(box->findText(*type));
}

/// A line for each tool behind the first.
void RoomPanel::showTools()
{
    const int others = std::max(0, m_controls.toolCount() - 1);
    while (m_toolLabels.size() > others) {
        m_ui->readingLayout->removeRow(m_toolCaptions.takeLast());
        m_toolLabels.removeLast();
    }
    while (m_toolLabels.size() < others) {
        m_toolCaptions << new QLabel(m_ui->readingGroup);
        m_toolLabels << new QLabel(m_ui->readingGroup);
        m_toolLabels.last()->setObjectName(QStringLiteral("toolLabel%1").arg(m_toolLabels.size() + 1));
        m_toolLabels.last()->setWordWrap(true);
        m_ui->readingLayout->addRow(m_toolCaptions.last(), m_toolLabels.last());
    }
}

void RoomPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_points->showTexts();
    showReading();
}

void RoomPanel::touch(int point)
{
    m_controls.touchPoint(point);
    m_ui->toolButton->setFocus();
    showReading();
}

void RoomPanel::showReading()
{
    const std::optional<ToolReading> reading = m_controls.toolReading();
    const bool isSeen = reading && reading->isTracked;
    const QString none = QStringLiteral("-");
    m_ui->xLabel->setText(isSeen ? millimetreText(reading->tipMm[0]) : none);
    m_ui->yLabel->setText(isSeen ? millimetreText(reading->tipMm[1]) : none);
    m_ui->zLabel->setText(isSeen ? millimetreText(reading->tipMm[2]) : none);
    m_ui->stateLabel->setText(stateText(reading));
    showOtherReadings();
}

QString RoomPanel::stateText(const std::optional<ToolReading> &reading) const
{
    if (!reading)
        return tr("not known, the controller does not say it");
    if (!reading->isTracked)
        return tr("out of sight");
    return reading->isMeasuring ? tr("in sight, measuring a point ...") : tr("in sight");
}

void RoomPanel::showOtherReadings()
{
    for (int i = 0; i < m_toolLabels.size(); ++i) {
        const auto reading = m_controls.toolReading(i + 2);
        m_toolCaptions.at(i)->setText(tr("Tool %1").arg(i + 2));
        m_toolLabels.at(i)->setText(reading && reading->isTracked
                                        ? tr("x %1, y %2, z %3 mm, %4")
                                              .arg(millimetreText(reading->tipMm[0]),
                                                   millimetreText(reading->tipMm[1]),
                                                   millimetreText(reading->tipMm[2]), stateText(reading))
                                        : stateText(reading));
    }
}

void RoomPanel::showMessage(const QString &text)
{
    m_ui->messageLabel->setText(text);
}

void RoomPanel::on_savePointsButton_clicked()
{
    const QString file = SaveQuestion::ask(this, tr("Save the nominal coordinates"),
                                           tr("Reference points (*.txt);;All files (*)"));
    if (!file.isEmpty())
        m_controls.saveNominalPoints(file);
}

void RoomPanel::on_toolButton_clicked()
{
    m_controls.pressToolButton();
}

void RoomPanel::on_deviceButton_clicked()
{
    m_controls.pressDeviceButton();
}

void RoomPanel::on_trackedBox_toggled(bool checked)
{
    m_controls.setToolTracked(checked);
    showReading();
}

void RoomPanel::on_tremorBox_valueChanged(double value)
{
    m_controls.setTremor(value);
}

void RoomPanel::on_versionBox_activated(int)
{
    setVersion(m_ui->versionBox->currentText());
}

void RoomPanel::setVersion(const QString &version)
{
    const QStringList parts = version.split(QLatin1Char('.'));
    bool isMajor = false;
    bool isMinor = false;
    bool isThird = parts.size() == 2;
    const int major = parts.value(0).toInt(&isMajor);
    const int minor = parts.value(1).toInt(&isMinor);
    const int third = isThird ? -1 : parts.value(2).toInt(&isThird);
    if (!isMajor || !isMinor || !isThird || parts.size() > 3)
        showMessage(tr("A version is two or three numbers with points, such as 1.24."));
    else
        m_controls.setInterfaceVersion(major, minor, third);
}

void RoomPanel::on_lockedBox_toggled(bool checked)
{
    m_controls.setLocked(checked);
}

void RoomPanel::on_availableBox_toggled(bool checked)
{
    m_controls.setAvailable(checked);
}

void RoomPanel::on_lineEdit_returnPressed()
{
    on_sendButton_clicked();
}

void RoomPanel::on_sendButton_clicked()
{
    m_ui->answerLabel->setText(m_controls.send(m_ui->lineEdit->text()));
    showState();
}

void RoomPanel::on_angleToolBox_toggled(bool checked)
{
    m_controls.setAngleToolVisible(checked);
}

void RoomPanel::on_coordinateTypeBox_activated(int index)
{
    m_controls.setCoordinateType(m_ui->coordinateTypeBox->itemText(index));
    showCoordinateType();
}

void RoomPanel::on_stallButton_clicked()
{
    m_controls.stallCalibration(m_ui->stallAtBox->value() * perCent, m_ui->stallForBox->value());
}

void RoomPanel::on_errorButton_clicked()
{
    m_controls.failCalibration(m_ui->errorAtBox->value() * perCent, m_ui->errorTextEdit->text());
}

void RoomPanel::on_repairButton_clicked()
{
    m_controls.repairCalibration();
}

void RoomPanel::on_callButton_clicked()
{
    m_controls.failCall(static_cast<int>(m_ui->callNumberBox->value()), m_ui->callTextEdit->text());
}

void RoomPanel::on_lostButton_clicked()
{
    m_controls.disconnectFor(m_ui->lostForBox->value());
}
