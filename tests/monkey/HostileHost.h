#pragma once

#include "HostileAnswers.h"
#include "Watchdog.h"

#include "BackendVersions.h"
#include "IOManager.h"

#include <QList>
#include <QObject>
#include <QPair>
#include <QPluginLoader>
#include <QWidget>

#include <functional>
#include <memory>

class ModuleInterface;

/// A host that does whatever a host may do, at the worst of times: each call may let events through, deliver
/// records, trigger the action, close, hide and resize windows, change the language, destroy the window that
/// the dialog belongs to, release the requests and unload the module.
///
/// Every call and everything that is done in a window counts as a step; when the steps are used up, all
/// windows are closed and the host answers well. The same seed makes the same choices; only what the module's
/// timers and its search do meanwhile may differ.
class HostileHost final : public QObject, public IOManager
{
public:
    HostileHost(unsigned seed, int steps);
    ~HostileHost() override;

    /// Opens the dialog again and again until all steps are done.
    void play();
    /// Opens the dialog once more, as a host that behaves, and writes an offset by "OK".
    void adjustAsUsual();
    /// False when the library stays loaded.
    bool unload();

    int openings() const { return m_openings; }
    int deaths() const { return m_deaths; }
    /// The writes of adjustAsUsual().
    int writes() const { return m_writes; }
    bool hasSubscriptions() const { return !m_subscriptions.isEmpty(); }

    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    int sendCommand(char *answer, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    void reserved5() override {}
    int getParameter(char *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterInt(int *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDouble(double *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterBool(bool *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDoubles(double *values, int count, const char *format, ...) override
        HOST_PRINTF_FORMAT(4, 5);
    void reserved11() override {}
    int setParameter(const char *format, ...) override HOST_PRINTF_FORMAT(2, 3);
    void addRequester(const char *kind, Requester *requester) override;
    void removeRequester(const char *kind, Requester *requester) override;
    void reserved15() override {}
    void releaseRequester(Requester *requester) override;
    void reportError(const char *category, const char *backend, int level, const char *message) override;

private:
    void open();
    int begin(const std::string &text);
    void answer(char *buffer, const std::string &question);
    void act();
    void actLater();
    void useWindow(QWidget *window);
    void misbehave();
    void deliver();
    void resizeSomething(QWidget *window);
    void destroyParent();
    bool isTame() const { return m_left <= 0; }

    HostileAnswers m_chance;
    int m_left;
    Watchdog m_watchdog;
    QPluginLoader m_loader;
    ModuleInterface *m_module = nullptr;
    std::unique_ptr<QWidget> m_parent;
    BackendVersions m_versions;
    QList<QPair<QByteArray, Requester *>> m_subscriptions;
    int m_depth = 0; ///< of misbehaviour inside misbehaviour
    bool m_isPlaying = false;
    int m_openings = 0;
    int m_deaths = 0;
    int m_writes = 0;
};
