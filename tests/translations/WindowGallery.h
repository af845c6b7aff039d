#pragma once

#include "BackendVersions.h"
#include "BenchIOManager.h"
#include "LocalController.h"
#include "SimController.h"

#include <QStringList>
#include <QWidget>

#include <functional>

/// Every window of the product, opened on the simulated controller as a user sees it.
class WindowGallery
{
public:
    static QStringList names();

    WindowGallery();

    /// Opens the window with that name, looks at it and closes it. False when it did not open.
    bool visit(const QString &name, const std::function<void(QWidget &)> &look);

private:
    bool visitMain(int tab, const std::function<void(QWidget &)> &look);
    bool visitMatching(const std::function<void(QWidget &)> &look);
    bool visitAngleTool(const std::function<void(QWidget &)> &look);
    bool visitProgress(const std::function<void(QWidget &)> &look);

    SimController m_controller;
    LocalController m_link{m_controller};
    BenchIOManager m_channel{m_link};
    BackendVersions m_versions;
    QWidget m_window;
};
