#pragma once

#include "AbcGLCanvas.h"

#include <QtTest>

/// A canvas that counts how often it paints, wired like in its panel so that drags accumulate.
class CountingCanvas : public AbcGLCanvas
{
public:
    explicit CountingCanvas(QWidget *parent = nullptr)
        : AbcGLCanvas(parent, nullptr)
    {
        connect(this, &AbcGLCanvas::storeViewRequest, this, &AbcGLCanvas::saveCurrentView);
    }

    [[nodiscard]] int paintings() const { return m_paintings; }

protected:
    void paintGL() override
    {
        ++m_paintings;
        AbcGLCanvas::paintGL();
    }

private:
    int m_paintings = 0;
};

/// Shows the canvas with 400 by 300 pixels and waits until it has painted and nothing is left to do.
inline void showCanvas(CountingCanvas &canvas, const QSize &size = QSize(400, 300))
{
    canvas.resize(size);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    QTRY_VERIFY(canvas.paintings() > 0);
    for (int before = -1; before != canvas.paintings();) {
        before = canvas.paintings();
        QTest::qWait(20);
    }
}
