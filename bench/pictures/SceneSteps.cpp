#include "SceneSteps.h"

#include "BenchIOManager.h"
#include "ScriptRunner.h"
#include "Shot.h"
#include "WidgetEvents.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QProcess>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace
{

constexpr int hundredths = 100;

bool isPopup(const QWidget *widget)
{
    return widget->windowType() == Qt::Popup;
}

bool isReady(QWidget *widget)
{
    if (widget == nullptr || !widget->isEnabled())
        return false;
    return isPopup(widget->window()) ? widget->window()->windowHandle()->isExposed()
                                     : WidgetEvents::isReady(widget);
}

void pressKeys(QWidget &widget, const QString &key)
{
    const int code = QKeySequence(key)[0];
    const auto modifiers = static_cast<unsigned>(code) & static_cast<unsigned>(Qt::KeyboardModifierMask);
    WidgetEvents::pressKey(&widget, static_cast<Qt::Key>(static_cast<unsigned>(code) & ~modifiers),
                           Qt::KeyboardModifiers(static_cast<int>(modifiers)));
}

/// A click from the event loop: what it opens may run a loop of its own.
void clickLater(QWidget &widget, Qt::MouseButton button, const QPoint &place)
{
    QWidget *window = widget.window();
    const QPoint inWindow = widget.mapTo(window, place);
    QTimer::singleShot(0, window, [window, button, inWindow] {
        QTest::mouseClick(window->windowHandle(), button, Qt::NoModifier, inWindow);
    });
}

} // namespace

SceneSteps::SceneSteps(QWidget &window, BenchIOManager &channel, Outcome &outcome)
    : m_window(window)
    , m_channel(channel)
    , m_outcome(outcome)
{
}

std::vector<EventSteps::Step> SceneSteps::stepsOf(const Scene::Line &line) const
{
    using Maker = Steps (SceneSteps::*)(const QStringList &) const;
    struct Verb {
        const char *name;
        int fewestWords;
        Maker make;
    };
    static const Verb verbs[] = {
        {"press", 1, &SceneSteps::press},   {"click", 1, &SceneSteps::click},
        {"point", 4, &SceneSteps::point},   {"type", 2, &SceneSteps::type},
        {"choose", 2, &SceneSteps::choose}, {"tab", 1, &SceneSteps::tab},
        {"rows", 2, &SceneSteps::rows},     {"row", 2, &SceneSteps::row},
        {"await", 3, &SceneSteps::await},   {"notify", 3, &SceneSteps::notify},
        {"pause", 1, &SceneSteps::pause},   {"picture", 1, &SceneSteps::picture},
    };
    QStringList words = QProcess::splitCommand(line.text);
    const QString name = words.takeFirst();
    for (const Verb &verb : verbs) {
        if (name == QLatin1String(verb.name))
            return words.size() < verb.fewestWords ? Steps() : (this->*verb.make)(words);
    }
    return script(line.text);
}

EventSteps::Step SceneSteps::withWidget(const QString &name, const Deed &deed) const
{
    return {{}, [this, name] { return isReady(find(name)); }, [this, name, deed] { deed(*find(name)); }};
}

SceneSteps::Steps SceneSteps::press(const QStringList &words) const
{
    Steps steps;
    for (const QString &key : words)
        steps.push_back({{}, [this] { return isReady(front()); }, [this, key] { pressKeys(*front(), key); }});
    return steps;
}

SceneSteps::Steps SceneSteps::click(const QStringList &words) const
{
    return {withWidget(words[0], [](QWidget &widget) { WidgetEvents::click(&widget); })};
}

SceneSteps::Steps SceneSteps::point(const QStringList &words) const
{
    const auto button = words[3] == QLatin1String("right") ? Qt::RightButton : Qt::LeftButton;
    const QPoint place(words[1].toInt(), words[2].toInt());
    return {withWidget(words[0], [button, place](QWidget &widget) {
        clickLater(widget, button,
                   {widget.width() * place.x() / hundredths, widget.height() * place.y() / hundredths});
    })};
}

SceneSteps::Steps SceneSteps::type(const QStringList &words) const
{
    return {withWidget(words[0], [text = words[1]](QWidget &widget) { WidgetEvents::type(&widget, text); })};
}

SceneSteps::Steps SceneSteps::choose(const QStringList &words) const
{
    return {withWidget(words[0], [index = words[1].toInt()](QWidget &widget) {
        widget.setFocus();
        WidgetEvents::pressKey(&widget, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            WidgetEvents::pressKey(&widget, Qt::Key_Down);
    })};
}

SceneSteps::Steps SceneSteps::tab(const QStringList &words) const
{
    const auto bar = [this] { return front()->findChild<QTabBar *>(); };
    return {
        {{},
         [this, bar] { return isReady(front()) && bar() != nullptr; },
         [bar, index = words[0].toInt()] { WidgetEvents::click(bar(), bar()->tabRect(index).center()); }}};
}

SceneSteps::Steps SceneSteps::rows(const QStringList &words) const
{
    return {withWidget(words[0], [rows = words.mid(1).join(QLatin1Char('\n'))](QWidget &widget) {
        QGuiApplication::clipboard()->setText(rows);
        widget.setFocus();
        WidgetEvents::pressKey(&widget, Qt::Key_V, Qt::ControlModifier);
    })};
}

SceneSteps::Steps SceneSteps::row(const QStringList &words) const
{
    return {withWidget(words[0], [number = words[1].toInt()](QWidget &widget) {
        const QHeaderView *header = static_cast<QTableView &>(widget).verticalHeader();
        const int middle = header->sectionViewportPosition(number - 1) + header->sectionSize(number - 1) / 2;
        WidgetEvents::click(header->viewport(), {header->width() / 2, middle});
    })};
}

SceneSteps::Steps SceneSteps::await(const QStringList &words) const
{
    const auto holds = [this, words] {
        const QWidget *widget = find(words[0]);
        return widget != nullptr && widget->property(words[1].toLatin1()).toString().contains(words[2]);
    };
    return {{{}, holds, [] {}}};
}

SceneSteps::Steps SceneSteps::notify(const QStringList &words) const
{
    return {withWidget(words[0], [this, words](QWidget &window) {
        if (!QMetaObject::invokeMethod(&window, words[1].toLatin1(), Q_ARG(QString, words[2])))
            fail(QStringLiteral("%1 has no slot %2").arg(words[0], words[1]));
    })};
}

SceneSteps::Steps SceneSteps::pause(const QStringList &words) const
{
    const int milliseconds = qRound(words[0].toDouble() * 1000.0);
    return {{{}, [] { return true; }, [milliseconds] { QTest::qWait(milliseconds); }}};
}

SceneSteps::Steps SceneSteps::picture(const QStringList &words) const
{
    const QString name = words.value(2);
    const auto target = [this, name]() -> QWidget * {
        return name.isEmpty() || name == QLatin1String("screen") ? front() : find(name);
    };
    const auto take = [target, isOfAll = name == QLatin1String("screen")] {
        return isOfAll ? Shot::ofAllWindows() : Shot::of(*target());
    };
    auto last = std::make_shared<QImage>();
    const auto stands = [this, target, take, last] {
        if (target() == nullptr || !isReady(front()))
            return false;
        const QImage before = *last;
        *last = take();
        return before == *last;
    };
    const auto save = [this, take, file = words[0]] {
        if (!Shot::save(take(), m_outcome.folder + QLatin1Char('/') + file + QStringLiteral(".png")))
            fail(QStringLiteral("the picture %1 could not be saved").arg(file));
    };
    return {{{}, stands, save}};
}

SceneSteps::Steps SceneSteps::script(const QString &line) const
{
    return {{{},
             [] { return true; },
             [this, line] {
                 ScriptRunner runner(m_channel);
                 if (!runner.run(line))
                     fail(line + QStringLiteral(": ") + runner.error());
             }}};
}

void SceneSteps::fail(const QString &error) const
{
    if (m_outcome.error.isEmpty())
        m_outcome.error = error;
}

QWidget *SceneSteps::front() const
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    QWidget *modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : &m_window;
}

QWidget *SceneSteps::find(const QString &name) const
{
    const QStringList way = name.split(QLatin1Char('/'));
    QWidget *widget = findAnywhere(way[0]);
    for (int i = 1; i < way.size() && widget != nullptr; ++i)
        widget = WidgetEvents::find(widget, way[i]);
    return widget;
}

QWidget *SceneSteps::findAnywhere(const QString &name) const
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.prepend(front());
    for (QWidget *window : qAsConst(windows)) {
        if (!window->isVisible())
            continue;
        if (window->objectName() == name)
            return window;
        if (QWidget *widget = WidgetEvents::find(window, name))
            return widget;
    }
    return nullptr;
}
