#pragma once

#include "BenchLanguage.h"
#include "BenchSession.h"
#include "BenchWindow.h"
#include "EventSteps.h"
#include "Scene.h"
#include "SceneSteps.h"
#include "WindowActivation.h"

#include <QObject>

struct BenchOptions;

/// A scene in a bench of its own, from the start of the bench to the last line.
class ScenePlay : public QObject
{
    Q_OBJECT

public:
    /// Needs an application object. Nothing when the scene asks for what is not there; `error` is then a
    /// sentence.
    static std::unique_ptr<ScenePlay> prepare(const Scene &scene, const QString &folder, QString *error);

    /// Begins; the event loop must run.
    void start();

signals:
    /// At the end, with a sentence on what failed; empty when every picture was made. No dialog or menu is
    /// open any more.
    void finished(const QString &error);

private:
    ScenePlay(std::unique_ptr<BenchSession> session, const BenchOptions &options, const QString &folder);

    [[nodiscard]] bool prepareBench(const BenchOptions &options, QString *error);
    [[nodiscard]] bool prepareSteps(const Scene &scene, QString *error);
    void end(const QString &error);

    std::unique_ptr<BenchSession> m_session;
    BenchLanguage m_language;
    BenchWindow m_window;
    WindowActivation m_activation;
    SceneSteps::Outcome m_outcome;
    SceneSteps m_directions;
    EventSteps m_steps;
};
