#include "ScenePlay.h"

#include "BenchOptions.h"
#include "DarkPalette.h"

#include <QApplication>

namespace
{

using namespace std::chrono_literals;

constexpr auto patience = 30s;

QString libraryOf(const BenchOptions &options)
{
    return options.plugin.isEmpty() ? ModuleLibrary::find(QApplication::applicationDirPath())
                                    : options.plugin;
}

/// Nothing when only the bench itself is open.
QWidget *openWindow()
{
    QWidget *popup = QApplication::activePopupWidget();
    return popup != nullptr ? popup : QApplication::activeModalWidget();
}

} // namespace

ScenePlay::ScenePlay(std::unique_ptr<BenchSession> session, const BenchOptions &options,
                     const QString &folder)
    : m_session(std::move(session))
    , m_language(BenchLanguage::folders(QApplication::applicationDirPath()))
    , m_window(m_session->channel(), libraryOf(options), options.observerMode)
    , m_activation(&m_window)
    , m_outcome{folder, {}}
    , m_directions(m_window, m_session->channel(), m_outcome)
    , m_steps(patience)
{
    connect(&m_steps, &EventSteps::finished, this, [this] { end(m_outcome.error); });
    connect(&m_steps, &EventSteps::failed, this, [this](const QString &name) {
        end(QStringLiteral("this could not be done: %1 %2").arg(name, m_outcome.error));
    });
}

std::unique_ptr<ScenePlay> ScenePlay::prepare(const Scene &scene, const QString &folder, QString *error)
{
    const std::optional<BenchOptions> options =
        BenchOptions::read(QStringList(QString()) + scene.benchOptions, error);
    if (!options)
        return nullptr;
    // A caret that comes and goes would make another picture each time.
    QApplication::setCursorFlashTime(0);
    if (scene.isDark)
        QApplication::setPalette(darkPalette());
    std::unique_ptr<BenchSession> session = BenchSession::open(*options, error);
    if (session == nullptr)
        return nullptr;
    std::unique_ptr<ScenePlay> play(new ScenePlay(std::move(session), *options, folder));
    if (!play->prepareBench(*options, error) || !play->prepareSteps(scene, error))
        return nullptr;
    return play;
}

bool ScenePlay::prepareBench(const BenchOptions &options, QString *error)
{
    if (!options.language.isEmpty() && !m_language.choose(options.language)) {
        *error = QStringLiteral("there is no translation %1").arg(options.language);
        return false;
    }
    m_window.offerLanguage(m_language);
    m_window.setBackendName(options.backendName);
    if (m_window.loadModule())
        return true;
    *error = m_window.module().error();
    return false;
}

bool ScenePlay::prepareSteps(const Scene &scene, QString *error)
{
    for (const Scene::Line &line : scene.lines) {
        std::vector<EventSteps::Step> steps = m_directions.stepsOf(line);
        if (steps.empty()) {
            *error = QStringLiteral("line %1 says too little: %2").arg(line.number).arg(line.text);
            return false;
        }
        for (EventSteps::Step &step : steps) {
            step.name = QStringLiteral("line %1, %2").arg(line.number).arg(line.text);
            m_steps.add(std::move(step));
        }
    }
    return true;
}

void ScenePlay::start()
{
    m_window.show();
    m_steps.start();
}

/// What waits for the end may stand below the loops of windows that the scene has left open.
void ScenePlay::end(const QString &error)
{
    while (QWidget *window = openWindow())
        window->hide();
    emit finished(error);
}
