#pragma once

class AbcGLCanvas;

namespace Ui
{
class CooTransClass;
}

/// The controls of the fine panel that move the 3D view: the editors of its position and orientation, the
/// steps back and forth.
class ViewControls
{
public:
    /// Gives the editors their ranges, connects everything with the view, and puts it into the tab order
    /// between the panel's left column and the buttons. Form and view must outlive this.
    ViewControls(Ui::CooTransClass &ui, AbcGLCanvas *view);

    /// In millimetres: a step of the position editor and a unit of the view.
    void setUnit(double unit);

private:
    void setRanges();
    void connectEditors();
    void connectHistory();
    void orderTabs();

    Ui::CooTransClass &m_ui;
    AbcGLCanvas *m_view;
};
