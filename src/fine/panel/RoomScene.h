#pragma once

#include <QCoreApplication>

#include <memory>

class AbcGLCanvas;
class QAction;
class QMenu;
class QWidget;
class ViewControls;
class bsMatrix;
struct RoomPreview;
struct RoomTrafoData;

namespace Ui
{
class CooTransClass;
}

/// The room in 3D on the fine page: the canvas with its context menu and its controls, and how the room that
/// is edited is shown there.
class RoomScene
{
    Q_DECLARE_TR_FUNCTIONS(CooTrans)

public:
    /// Puts the canvas into the form, which must outlive this; `page` owns what is made.
    RoomScene(Ui::CooTransClass &ui, QWidget *page);
    ~RoomScene();

    [[nodiscard]] AbcGLCanvas *view() const { return m_view; }

    /// An entry of the context menu that is on or off, off at first. To be added in the order of the texts.
    [[nodiscard]] QAction *addSwitch();
    void addSeparator();

    /// Renews the texts in the present language.
    void showTexts();

    /// A sentence stands in place of the picture where the platform offers no OpenGL.
    void showWhetherItCanDraw();

    /// Begins with this room, without an edit.
    void load(const RoomTrafoData &record);

    /// Takes in the whole scene. Returns what is a unit now: the step of offsets, in millimetres.
    double adjustView();
    void resetView();

    /// The room as it is edited now.
    void show(const RoomPreview &preview);
    void showPosition(const RoomPreview &preview);

    /// Edits a neutral room by a fitted transformation and writes into the record what came of it. Returns as
    /// adjustView() does.
    double apply(const bsMatrix &referenceFromMeasured, RoomTrafoData &record);

private:
    void colorPlanes();

    Ui::CooTransClass &m_ui;
    AbcGLCanvas *m_view;
    QMenu *m_menu;
    std::unique_ptr<ViewControls> m_controls;
};
