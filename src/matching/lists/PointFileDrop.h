#pragma once

#include <QObject>

class ListEditing;
class QWidget;

/// Loads a file of points that is dropped anywhere on the window, while the lists may be changed.
class PointFileDrop : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the window; the editing must live as long.
    PointFileDrop(ListEditing &editing, QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ListEditing &m_editing;
};
