#include "CoarseAdjustment.h"

#include "ObjectWatch.h"
#include "RenderArea.h"
#include "Resources.h"
#include "RoomAngleExchange.h"
#include "TextColor.h"
#include "WheelGuard.h"
#include "ui_CoarseAdjustment.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QStandardItemModel>

namespace
{

constexpr int rowHeight = 28;
constexpr int columns = 4;
constexpr int darkLightness = 128;

QString textOf(int axis)
{
    return QString::fromLatin1(AxisAssigner::axisText(axis));
}

/// Red for x, green for y, blue for z, readable on the background of this palette.
QColor axisColor(int axis, const QPalette &palette)
{
    static const std::array<QColor, 3> onLight{QColor(179, 38, 30), QColor(23, 110, 50), QColor(31, 79, 168)};
    static const std::array<QColor, 3> onDark{QColor(255, 172, 164), QColor(125, 220, 154),
                                              QColor(158, 194, 255)};
    const bool isDark = palette.color(QPalette::Window).lightness() < darkLightness;
    return (isDark ? onDark : onLight).at(static_cast<std::size_t>(axis / 2));
}

} // namespace

CoarseAdjustment::CoarseAdjustment(IOManager *commands, BackendVersions *versions, RoomAngleExchange *angles,
                                   QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::CoarseAdjustment>())
    , m_controller(commands, versions)
    , m_angles(angles)
{
    loadResources();
    m_ui->setupUi(this);
    WheelGuard::protectAll(this);
    buildTable();
    m_picture = new RenderArea(m_ui->stackedWidget->width(), m_ui->stackedWidget, versions);
    m_ui->stackedWidget->addWidget(m_picture);
    m_ui->stackedWidget->setCurrentWidget(m_picture);
}

CoarseAdjustment::~CoarseAdjustment() = default;

void CoarseAdjustment::buildTable()
{
    m_ui->tableView->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_ui->tableView->verticalHeader()->setVisible(false);
    m_ui->tableView->horizontalHeader()->setSectionsClickable(false);
    m_ui->tableView->setSelectionMode(QAbstractItemView::NoSelection);
    m_ui->tableView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_ui->tableView->installEventFilter(this);
}

void CoarseAdjustment::setCameraModel(QStandardItemModel *model)
{
    m_ui->tableView->setModel(model);
    fitColumns();
}

void CoarseAdjustment::updatePanel()
{
    m_isInitialised = false;
    fillComboBoxes();
    fitColumns();
    const ObjectWatch self(this);
    const CoordinateType type = m_controller.coordinateType();
    if (!self)
        return;
    m_isKnownType = type != CoordinateType::Unknown;
    m_assigner.setCoordinateType(type);
    m_picture->setCoordinateType(m_assigner.coordinateType());
    showRoomAngles();
    m_isInitialised = true;
}

void CoarseAdjustment::recompute()
{
    m_isInitialised = false;
    showRoomAngles();
    m_isInitialised = true;
}

void CoarseAdjustment::showRoomAngles()
{
    double rx = 0.0;
    double ry = 0.0;
    double rz = 0.0;
    if (m_angles != nullptr)
        m_angles->getRoomAngles(rx, ry, rz);
    m_hasQuarterAngles = m_assigner.assignAngles(rx, ry, rz);
    showAssignment();
    showState();
}

void CoarseAdjustment::fillComboBoxes()
{
    for (QComboBox *comboBox : {m_ui->comboBox_right, m_ui->comboBox_top}) {
        const QSignalBlocker silence(comboBox);
        comboBox->clear();
        for (int axis = 0; axis < AxisAssigner::axisCodes; ++axis)
            comboBox->addItem(textOf(axis));
    }
}

void CoarseAdjustment::showAssignment()
{
    const QSignalBlocker silentRight(m_ui->comboBox_right);
    const QSignalBlocker silentTop(m_ui->comboBox_top);
    m_ui->comboBox_right->setCurrentIndex(m_assigner.right());
    m_ui->comboBox_top->setCurrentIndex(m_assigner.top());
    const DirectionAxes axes = m_assigner.directionAxes();
    m_ui->label_left->setText(textOf(axes[0]));
    m_ui->label_bottom->setText(textOf(axes[3]));
    m_ui->label_bottom_left->setText(textOf(axes[4]));
    m_ui->label_top_right->setText(textOf(axes[5]));
    m_picture->setAxes(axes);
    colorAxes();
}

/// Enables, disables and explains by the coordinate type and the angles.
void CoarseAdjustment::showState()
{
    const bool canAssign = m_assigner.hasCoordinateType();
    m_ui->comboBox_right->setEnabled(canAssign);
    m_ui->comboBox_top->setEnabled(canAssign);
    m_ui->pushButton_reset->setEnabled(canAssign);
    for (QLabel *label :
         {m_ui->label_left, m_ui->label_bottom, m_ui->label_bottom_left, m_ui->label_top_right})
        label->setEnabled(canAssign);
    m_ui->frame->setEnabled(m_hasQuarterAngles);
    m_ui->label_assignNotice->setText(notice());
    m_ui->label_assignNotice->setVisible(!m_ui->label_assignNotice->text().isEmpty());
}

QString CoarseAdjustment::notice() const
{
    if (!m_isKnownType)
        return tr("The coordinate type of the room calibration is not known here, so axes cannot be assigned "
                  "to directions here. Use the tab \"Fine\".");
    if (!m_assigner.hasCoordinateType())
        return tr(
            "The controller has no coordinate type of a room calibration, so axes cannot be assigned to "
            "directions here. Use the tab \"Fine\".");
    if (!m_hasQuarterAngles)
        return tr(
            "The room is turned by angles that are not multiples of 90 degrees, so axes cannot be assigned "
            "to directions here. Use the tab \"Fine\".");
    return {};
}

void CoarseAdjustment::colorAxes()
{
    const DirectionAxes axes = m_assigner.directionAxes();
    const std::array<QWidget *, 6> widgets{m_ui->label_left,        m_ui->comboBox_right,
                                           m_ui->comboBox_top,      m_ui->label_bottom,
                                           m_ui->label_bottom_left, m_ui->label_top_right};
    for (std::size_t i = 0; i < widgets.size(); ++i)
        colorText(widgets[i], axisColor(axes[i], palette()),
                  {QPalette::WindowText, QPalette::ButtonText, QPalette::Text},
                  {QPalette::Active, QPalette::Inactive});
    for (QComboBox *comboBox : {m_ui->comboBox_right, m_ui->comboBox_top}) {
        for (int axis = 0; axis < comboBox->count(); ++axis)
            comboBox->setItemData(axis, axisColor(axis, palette()), Qt::ForegroundRole);
    }
}

void CoarseAdjustment::handOver()
{
    if (!m_isInitialised)
        return;
    const WholeAngles angles = m_assigner.angles();
    if (m_angles != nullptr)
        m_angles->setRoomAngles(angles[0], angles[1], angles[2]);
    emit do_btn_apply_enable(true);
}

void CoarseAdjustment::on_comboBox_top_currentIndexChanged(int index)
{
    if (!m_ui->comboBox_top->isEnabled())
        return;
    m_assigner.chooseTop(index);
    showAssignment();
    handOver();
}

void CoarseAdjustment::on_comboBox_right_currentIndexChanged(int index)
{
    if (!m_ui->comboBox_right->isEnabled())
        return;
    m_assigner.chooseRight(index);
    showAssignment();
    handOver();
}

void CoarseAdjustment::on_pushButton_reset_clicked()
{
    if (!m_ui->comboBox_right->isEnabled() || !m_ui->comboBox_top->isEnabled())
        return;
    m_assigner.assignDefault();
    showAssignment();
    handOver();
}

void CoarseAdjustment::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitColumns();
}

/// A panel that was resized while its page was hidden gives the table its size later.
bool CoarseAdjustment::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->tableView && event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void CoarseAdjustment::fitColumns()
{
    for (int column = 0; column < columns; ++column)
        m_ui->tableView->setColumnWidth(column, m_ui->tableView->width() / columns - 1);
}

void CoarseAdjustment::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colorAxes();
    if (event->type() == QEvent::LanguageChange) {
        const bool isNoticed = !m_ui->label_assignNotice->text().isEmpty();
        m_ui->retranslateUi(this);
        if (isNoticed)
            m_ui->label_assignNotice->setText(notice());
    }
}
