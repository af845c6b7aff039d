#include "ViewControls.h"

#include "AbcGLCanvas.h"
#include "bsDoubleWidget.h"
#include "ui_CooTrans.h"

namespace
{

constexpr double largestViewOffset = 999999.99;
constexpr double largestViewAngle = 360.0;

void setRange(xyzWidget *editor, double limit)
{
    editor->setXRange(-limit, limit);
    editor->setYRange(-limit, limit);
    editor->setZRange(-limit, limit);
}

} // namespace

ViewControls::ViewControls(Ui::CooTransClass &ui, AbcGLCanvas *view)
    : m_ui(ui)
    , m_view(view)
{
    setRanges();
    connectEditors();
    connectHistory();
    orderTabs();
}

void ViewControls::setRanges()
{
    setRange(m_ui.w_viewPositionXYZ, largestViewOffset);
    setRange(m_ui.w_viewOrientationXYZ, largestViewAngle);
}

void ViewControls::connectEditors()
{
    xyzWidget *orientation = m_ui.w_viewOrientationXYZ;
    xyzWidget *position = m_ui.w_viewPositionXYZ;
    QObject::connect(orientation, &xyzWidget::valueChanged, m_view, &AbcGLCanvas::rotateView);
    QObject::connect(m_view, &AbcGLCanvas::rotateViewRequest, orientation, &xyzWidget::adjustValues);
    QObject::connect(orientation, &xyzWidget::xyzEditingBegin, m_view, &AbcGLCanvas::rotateViewBegin);
    QObject::connect(orientation, &xyzWidget::xyzEditingFinished, m_view, &AbcGLCanvas::rotateViewEnd);
    QObject::connect(orientation, &xyzWidget::xyzEditingFinished, m_view, &AbcGLCanvas::storeViewRequest);
    QObject::connect(position, &xyzWidget::valueChanged, m_view, &AbcGLCanvas::translateView);
    QObject::connect(m_view, &AbcGLCanvas::translateViewRequest, position, &xyzWidget::adjustValues);
    QObject::connect(position, &xyzWidget::xyzEditingFinished, m_view, &AbcGLCanvas::storeViewRequest);
    QObject::connect(m_view, &AbcGLCanvas::storeViewRequest, m_view, &AbcGLCanvas::saveCurrentView);
    QObject::connect(m_view, &AbcGLCanvas::storeViewRequest, orientation, &xyzWidget::reset);
    QObject::connect(m_view, &AbcGLCanvas::storeViewRequest, position, &xyzWidget::reset);
}

void ViewControls::connectHistory()
{
    QPushButton *undo = m_ui.w_bodyUndoButton;
    QPushButton *redo = m_ui.w_bodyRedoButton;
    QObject::connect(m_view, &AbcGLCanvas::canUndo, undo, &QPushButton::setEnabled);
    QObject::connect(m_view, &AbcGLCanvas::canRedo, redo, &QPushButton::setEnabled);
    QObject::connect(undo, &QPushButton::clicked, m_view, &AbcGLCanvas::undo);
    QObject::connect(redo, &QPushButton::clicked, m_view, &AbcGLCanvas::redo);
}

void ViewControls::orderTabs()
{
    QList<QWidget *> stops{m_ui.w_bodyMatchingButton, m_view};
    for (const xyzWidget *group : {m_ui.w_viewPositionXYZ, m_ui.w_viewOrientationXYZ}) {
        for (const QWidget *editor :
             std::initializer_list<const QWidget *>{group->xEditor(), group->yEditor(), group->zEditor()}) {
            for (const char *part : {"spinBox", "wheel"})
                stops << editor->findChild<QWidget *>(QLatin1String(part));
        }
    }
    stops << m_ui.w_adjustViewButton << m_ui.w_resetViewButton << m_ui.pushButton_helpView;
    for (int i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops.at(i - 1), stops.at(i));
}

void ViewControls::setUnit(double unit)
{
    m_ui.w_viewPositionXYZ->setSingleStep(unit);
    m_view->setScaleUnit(unit);
}
