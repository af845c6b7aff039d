#pragma once

#include "AbcGLCanvas.h"
#include "BackendVersions.h"
#include "CooTrans.h"
#include "ModalAnswer.h"
#include "RecordingHost.h"
#include "TrackingControl.h"
#include "bsMatrix.h"

#include <Eigen/Core>

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSignalSpy>

/// Notes among the host's calls when the panel stops and starts tracking.
class NotedTracking final : public TrackingControl
{
public:
    explicit NotedTracking(RecordingHost &host)
        : m_host(host)
    {
    }
    void stopTracking() override { m_host.reserved1(); }
    void startTracking() override { m_host.reserved2(); }

private:
    RecordingHost &m_host;
};

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
