#include "CameraGrid.h"

#include "CalibrationRun.h"
#include "CameraMessages.h"
#include "CameraStatus.h"
#include "ObjectWatch.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

CameraGrid::CameraGrid(QGridLayout *layout, IOManager *commands, const BackendVersions *versions,
                       QObject *parent)
    : QObject(parent)
    , m_layout(layout)
    , m_commands(commands)
    , m_versions(versions)
{
}

int CameraGrid::columnsFor(int cameras)
{
    constexpr int mostInNarrowGrid = 100;
    return cameras > mostInNarrowGrid ? 12 : 6;
}

void CameraGrid::build()
{
    const ObjectWatch self(this);
    const std::optional<int> count = CalibrationAccess(m_commands, m_versions).numberOfCameras();
    if (!count || !self)
        return;
    clear();
    const int columns = columnsFor(*count);
    for (int i = 0; i < *count; ++i) {
        if (!addBox(i, columns))
            return;
    }
}

void CameraGrid::clear()
{
    for (const QPointer<CameraStatus> &box : qAsConst(m_boxes))
        delete box.data();
    m_boxes.clear();
}

bool CameraGrid::addBox(int index, int columns)
{
    const ObjectWatch self(this);
    auto box = std::make_unique<CameraStatus>(m_commands, nullptr, m_versions, index);
    if (!self)
        return false;
    m_boxes.append(box.get());
    m_layout->addWidget(box.release(), index / columns, index % columns);
    return true;
}

void CameraGrid::fit(QScrollArea *area, const QSize &screen) const
{
    constexpr double usableWidth = 0.95;
    constexpr double usableHeight = 0.7;
    const auto widgets = area->widget()->findChildren<QWidget *>();
    for (QWidget *widget : widgets)
        widget->ensurePolished();
    m_layout->activate();
    QSize wanted = area->widget()->sizeHint();
    const QSize usable(int(screen.width() * usableWidth), int(screen.height() * usableHeight));
    if (wanted.height() > usable.height())
        wanted.rwidth() += area->verticalScrollBar()->sizeHint().width();
    if (wanted.width() > usable.width())
        wanted.rheight() += area->horizontalScrollBar()->sizeHint().height();
    area->setMinimumSize(wanted.boundedTo(usable));
}

void CameraGrid::reset()
{
    for (const QPointer<CameraStatus> &box : qAsConst(m_boxes)) {
        if (box)
            box->resetProgress(0);
    }
}

void CameraGrid::refresh(const std::shared_ptr<CalibrationRun> &run)
{
    if (!run->takeTurn())
        return;
    const QList<QPointer<CameraStatus>> boxes = m_boxes;
    for (const QPointer<CameraStatus> &box : boxes) {
        if (box && run->keepsTurn())
            box->update_progressBar();
    }
    run->giveTurn();
}

void CameraGrid::markMostActive(const QString &message)
{
    for (int i = 0; i < m_boxes.size(); ++i) {
        if (m_boxes[i])
            m_boxes[i]->highlight(CameraMessages::holdsCamera(message, i));
    }
}

void CameraGrid::setTabNumbers(const QString &message)
{
    const std::vector<std::optional<int>> tabs = CameraMessages::tabs(message);
    const int count = std::min(m_boxes.size(), int(tabs.size()));
    for (int i = 0; i < count; ++i) {
        if (m_boxes[i] && tabs[std::size_t(i)])
            m_boxes[i]->set_tab_number(*tabs[std::size_t(i)]);
    }
}
