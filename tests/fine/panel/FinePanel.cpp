#include "FinePanel.h"

#include "InterfaceVersion.h"

#include <QtTest>

FinePanel::FinePanel()
    : versions(interfaceVersion(1, 24))
    , tracking(host)
    , widget(&host, &versions, &tracking, &record, nullptr)
    , enable(&widget, &CooTrans::do_btn_apply_enable)
{
    widget.resize(1000, 640);
    widget.show();
}

void FinePanel::type(const char *name, const QString &text)
{
    box(name)->setFocus();
    box(name)->selectAll();
    QTest::keyClicks(box(name), text);
    QTest::keyClick(box(name), Qt::Key_Return);
}

void FinePanel::click(const char *name)
{
    QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton);
}

void FinePanel::loadAMovedRoomBesideABody()
{
    host.setAnswer("tracking extra_translation", "10 0 0");
    host.setAnswer("tracking reference", "body b03");
    record.translation = {10, 0, 0};
    widget.loadPage();
}

Eigen::Matrix4d eigen(const bsMatrix &matrix)
{
    return Eigen::Map<const Eigen::Matrix4d>(matrix.data());
}

double difference(const bsMatrix &a, const bsMatrix &b)
{
    return (eigen(a) - eigen(b)).cwiseAbs().maxCoeff();
}
