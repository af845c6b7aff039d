#include "RoomScene.h"

#include "AbcGLCanvas.h"
#include "RoomEdits.h"
#include "TextColor.h"
#include "ViewControls.h"
#include "abcRoom.h"
#include "ui_CooTrans.h"

#include <QMenu>
#include <QVBoxLayout>

namespace
{

constexpr double viewUnits = 300.0;

/// Where the view stands. It is a window of the window system and would make windows of all widgets around
/// it, were it not kept apart. Some forty windows that go with the dialog at once are more than the X library
/// can take: what it is told of their end may cost the host its connection.
QWidget *placeApart(const Ui::CooTransClass &ui)
{
    auto *place = new QWidget(ui.viewStack);
    for (QWidget *page : {place, static_cast<QWidget *>(ui.label_noView)})
        page->setAttribute(Qt::WA_DontCreateNativeAncestors);
    auto *layout = new QVBoxLayout(place);
    layout->setContentsMargins({});
    return place;
}

} // namespace

RoomScene::RoomScene(Ui::CooTransClass &ui, QWidget *page)
    : m_ui(ui)
    , m_view(new AbcGLCanvas(placeApart(ui), nullptr))
    , m_menu(new QMenu(page))
{
    m_view->setObjectName(QStringLiteral("w_view"));
    QWidget *place = m_view->parentWidget();
    place->layout()->addWidget(m_view);
    m_ui.viewStack->addWidget(place);
    m_ui.viewStack->setCurrentWidget(place);
    m_controls = std::make_unique<ViewControls>(m_ui, m_view);
    m_view->setContextMenu(m_menu);
    colorPlanes();
}

RoomScene::~RoomScene() = default;

QAction *RoomScene::addSwitch()
{
    QAction *action = m_menu->addAction(QString());
    action->setCheckable(true);
    return action;
}

void RoomScene::addSeparator()
{
    m_menu->addSeparator();
}

void RoomScene::showTexts()
{
    const QStringList texts = {tr("Long axes"), QString(), tr("Show XY plane"), tr("Show YZ plane"),
                               tr("Show XZ plane")};
    for (int i = 0; i < m_menu->actions().size(); ++i)
        m_menu->actions().at(i)->setText(texts.value(i));
    m_view->setAccessibleName(tr("Room in 3D"));
}

void RoomScene::showWhetherItCanDraw()
{
    if (!m_view->canDraw())
        m_ui.viewStack->setCurrentWidget(m_ui.label_noView);
}

void RoomScene::colorPlanes()
{
    QColor xy(150, 150, 0);
    QColor yz(0, 150, 150);
    QColor xz(150, 0, 150);
    colorText(m_ui.w_showXYGridCheckBox, xy, {QPalette::WindowText}, {QPalette::All});
    colorText(m_ui.w_showYZGridCheckBox, yz, {QPalette::WindowText}, {QPalette::All});
    colorText(m_ui.w_showXZGridCheckBox, xz, {QPalette::WindowText}, {QPalette::All});
    m_view->setXYGridColor(xy);
    m_view->setYZGridColor(yz);
    m_view->setXZGridColor(xz);
}

void RoomScene::load(const RoomTrafoData &record)
{
    // Who follows the room hears that the old one is gone, and then of the new one.
    if (m_view->room()->isLoaded())
        m_view->room()->resetRoom();
    m_view->room()->loadRoom(record);
}

double RoomScene::adjustView()
{
    const double distance = m_view->getBestZValue();
    const double unit = distance / viewUnits;
    m_controls->setUnit(unit);
    m_view->setViewPosition(bsVector(0.0, 0.0, -distance));
    return unit;
}

void RoomScene::resetView()
{
    m_view->setViewOrientation(bsMatrix::identityMatrix());
    m_view->setViewPosition(bsVector(0.0, 0.0, -viewUnits * m_view->scaleUnit()));
}

void RoomScene::show(const RoomPreview &preview)
{
    m_view->rotateRoom(preview.angles.eta, preview.angles.theta, preview.angles.phi);
    showPosition(preview);
}

void RoomScene::showPosition(const RoomPreview &preview)
{
    m_view->translateRoom(preview.position.x, preview.position.y, preview.position.z);
}

double RoomScene::apply(const bsMatrix &referenceFromMeasured, RoomTrafoData &record)
{
    m_view->room()->resetRoom();
    m_view->room()->loadRoom(RoomTrafoData());
    const double unit = adjustView();
    resetView();
    m_view->rotateRoom(referenceFromMeasured);
    const bsVector position = referenceFromMeasured.column(3);
    m_view->translateRoom(position.x, position.y, position.z);
    m_view->saveCurrentRoom();
    m_view->room()->getTransformation(record, true);
    return unit;
}
