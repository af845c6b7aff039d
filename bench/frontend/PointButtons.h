#pragma once

#include <QObject>

class QGridLayout;
class QPushButton;
class QWidget;
class RoomControls;

/// A button for each point of the workpiece, in rows of three.
class PointButtons : public QObject
{
    Q_OBJECT

public:
    /// The buttons stand in `layout`, between `before` and `behind` in the order of the tabulator. All of it
    /// must outlive this object.
    PointButtons(RoomControls &controls, QGridLayout *layout, QWidget *before, QWidget *behind);

    /// As many buttons as there are points now.
    void showState();

    /// The texts in the language of this moment.
    void showTexts();

signals:
    /// The number of the point, from 1.
    void clicked(int point);

private:
    void add(int point);

    RoomControls &m_controls;
    QGridLayout *m_layout;
    QWidget *m_before;
    QWidget *m_behind;
    QList<QPushButton *> m_buttons;
};
