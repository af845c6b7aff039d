#include "CameraTable.h"

#include "ObjectWatch.h"
#include "TrackingAccess.h"

#include <QStandardItemModel>

namespace
{

constexpr int columns = 4;
constexpr int coordinateDecimals = 2;

} // namespace

CameraTable::CameraTable(QObject *owner)
    : m_model(new QStandardItemModel(0, columns, owner))
{
    showTexts();
}

void CameraTable::showTexts() const
{
    m_model->setHorizontalHeaderLabels({tr("Camera"), tr("x [mm]"), tr("y [mm]"), tr("z [mm]")});
}

void CameraTable::fill(const TrackingAccess &controller) const
{
    if (!controller.supports(ControllerFeature::CameraTable))
        return;
    const ObjectWatch model(m_model); // goes with the owner, as the access does
    m_model->removeRows(0, m_model->rowCount());
    const int cameras = controller.numberOfCameras().value_or(0);
    if (model)
        m_model->setRowCount(cameras);
    for (int row = 0; row < cameras && model; ++row) {
        const std::array<double, 3> position = controller.positionOfCamera(row + 1);
        if (model)
            setCamera(row, position);
    }
}

void CameraTable::setCamera(int row, const std::array<double, 3> &position) const
{
    const QString name = QStringLiteral("c%1").arg(row + 1, 2, 10, QLatin1Char('0'));
    m_model->setItem(row, 0, new QStandardItem(name));
    for (int i = 0; i < 3; ++i) {
        const double coordinate = position[static_cast<std::size_t>(i)];
        auto *item = new QStandardItem(QString::number(coordinate, 'f', coordinateDecimals));
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_model->setItem(row, i + 1, item);
    }
}
