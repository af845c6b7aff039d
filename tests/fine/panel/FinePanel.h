#pragma once

#include "AbcGLCanvas.h"
#include "BackendVersions.h"
#include "CooTrans.h"
#include "ModalAnswer.h"
#include "NotedTracking.h"
#include "RecordingHost.h"
#include "bsMatrix.h"

#include <Eigen/Core>

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSignalSpy>

/// The fine panel in a window of its own on a scripted host, with everything that it is lent.
class FinePanel
{
public:
    FinePanel();

    template <typename Widget>
    Widget *child(const char *name)
    {
        Widget *found = widget.findChild<Widget *>(QString::fromLatin1(name));
        Q_ASSERT(found != nullptr);
        return found;
    }
    QDoubleSpinBox *box(const char *name) { return child<QDoubleSpinBox>(name); }
    void type(const char *name, const QString &text);
    void click(const char *name);
    void loadAMovedRoomBesideABody();
    AbcGLCanvas *view() { return widget.findChild<AbcGLCanvas *>(); }
    abcRoom *room() { return view()->room(); }

    RecordingHost host;
    BackendVersions versions;
    NotedTracking tracking;
    RoomTrafoData record;
    ModalAnswer answer;
    CooTrans widget;
    QSignalSpy enable;
};

Eigen::Matrix4d eigen(const bsMatrix &matrix);
/// The largest difference between two numbers at the same place.
double difference(const bsMatrix &a, const bsMatrix &b);
