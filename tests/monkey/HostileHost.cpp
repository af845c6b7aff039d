#include "HostileHost.h"

#include "BuiltFiles.h"
#include "FormattedText.h"
#include "ModuleInterface.h"
#include "Requester.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFileDialog>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTimer>
#include <QVariant>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace std::chrono_literals;

namespace
{

constexpr auto hangLimit = 2min;
constexpr int deepest = 3;
constexpr int largestSize = 16384;

[[noreturn]] void endHanging(unsigned seed, const QStringList &events)
{
    std::fprintf(stderr, "it hangs; ROOM_HOSTILE_SEED=%u; the last events:\n%s\n", seed,
                 qPrintable(events.join(QLatin1Char('\n'))));
    std::abort();
}

/// The main dialog, whatever stands before it.
QWidget *mainDialog()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->inherits("RoomAdjustmentDlg2g"))
            return window;
    }
    return nullptr;
}

void leave(QWidget *window)
{
    if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->reject();
    else
        window->close();
}

} // namespace

HostileHost::HostileHost(unsigned seed, int steps)
    : m_chance(seed)
    , m_left(steps)
    , m_watchdog(hangLimit, [seed](const QStringList &last) { endHanging(seed, last); })
    , m_loader(BuiltFiles::module())
{
    m_versions.interfaceMajor = 1;
    m_versions.interfaceMinor = 24;
    m_loader.setLoadHints(m_loader.loadHints() & ~QLibrary::PreventUnloadHint);
    m_module = qobject_cast<ModuleInterface *>(m_loader.instance());
    if (m_module == nullptr)
        qFatal("%s", qPrintable(m_loader.errorString()));
}

HostileHost::~HostileHost()
{
    unload();
}

bool HostileHost::unload()
{
    if (m_module == nullptr)
        return true;
    m_module->releaseRequests();
    m_module->unload();
    m_module = nullptr;
    return m_loader.unload();
}

void HostileHost::play()
{
    m_isPlaying = true;
    actLater();
    while (!isTame()) {
        open();
        QCoreApplication::processEvents();
    }
    m_isPlaying = false;
}

/// With a new parent and a new dialog where the old ones are gone.
void HostileHost::open()
{
    ++m_openings;
    if (!m_parent) {
        m_module->unload();
        m_parent = std::make_unique<QWidget>();
        m_parent->show();
    }
    const auto set = [this](const char *name, const QVariant &value) {
        m_module->setModuleProperty(QString::fromLatin1(name), value);
    };
    set("CommandManager", QVariant::fromValue(static_cast<IOManager *>(this)));
    set("ModuleParent", QVariant::fromValue(m_parent.get()));
    set("BackendVersions", QVariant::fromValue(&m_versions));
    set("ObserverMode", false);
    m_module->actions().constFirst()->trigger();
}

void HostileHost::adjustAsUsual()
{
    m_left = 0;
    m_writes = 0;
    QTimer::singleShot(0, this, [] {
        auto *dialog = QApplication::activeModalWidget();
        QVERIFY(dialog != nullptr);
        dialog->findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(1);
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinBox_x"))->setValue(5.0);
        QTest::mouseClick(dialog->findChild<QAbstractButton *>(QStringLiteral("btn_ok")), Qt::LeftButton);
    });
    open();
}

// Each modal loop has a timer of its own.
void HostileHost::actLater()
{
    QTimer::singleShot(1, this, &HostileHost::act);
}

void HostileHost::act()
{
    QWidget *window = QApplication::activePopupWidget();
    if (window == nullptr)
        window = QApplication::activeModalWidget();
    if (m_isPlaying)
        actLater();
    if (isTame()) {
        if (m_isPlaying && window != nullptr)
            leave(window);
        return;
    }
    --m_left;
    if (m_chance.onceIn(10))
        misbehave();
    else if (window != nullptr)
        useWindow(window);
}

void HostileHost::useWindow(QWidget *window)
{
    m_watchdog.note(QStringLiteral("uses ") + QString::fromLatin1(window->metaObject()->className()));
    if (auto *tabs = window->findChild<QTabWidget *>(); tabs != nullptr && m_chance.onceIn(3))
        tabs->setCurrentIndex(m_chance.upTo(tabs->count()));
    const auto buttons = window->findChildren<QAbstractButton *>();
    if (buttons.isEmpty() || window->inherits("QFileDialog") || m_chance.onceIn(12)) {
        leave(window);
        return;
    }
    QAbstractButton *button = buttons.at(m_chance.upTo(buttons.size()));
    m_watchdog.note(QStringLiteral("clicks ") + button->objectName() + button->text());
    if (button->window() == window && button->isVisible())
        button->click();
}

void HostileHost::misbehave()
{
    if (m_depth >= deepest)
        return;
    const QScopedValueRollback<int> deeper(m_depth, m_depth + 1);
    QWidget *window = m_chance.onceIn(2) ? mainDialog() : QApplication::activeModalWidget();
    const int choice = m_chance.upTo(16);
    m_watchdog.note(QStringLiteral("misbehaves %1").arg(choice));
    if (choice < 5)
        QCoreApplication::processEvents();
    else if (choice < 8)
        deliver();
    else if (choice == 8 && !m_module->actions().isEmpty())
        m_module->actions().constFirst()->trigger();
    else if (choice == 9 && window != nullptr)
        window->close();
    else if (choice == 10 && window != nullptr)
        window->setVisible(m_chance.onceIn(3));
    else if (choice == 11 && window != nullptr)
        resizeSomething(window);
    else if (choice == 12)
        QCoreApplication::postEvent(qApp, new QEvent(QEvent::LanguageChange));
    else if (choice == 13 && m_chance.onceIn(3))
        destroyParent();
    else if (choice == 14 && m_chance.onceIn(3))
        m_module->unload();
    else if (choice == 15)
        m_module->releaseRequests();
}

void HostileHost::deliver()
{
    const auto subscriptions = m_subscriptions;
    for (const auto &entry : subscriptions) {
        const QByteArray record = m_chance.record();
        if (m_subscriptions.contains(entry))
            entry.second->dataReceived(entry.first.constData(), record.constData());
    }
}

void HostileHost::resizeSomething(QWidget *window)
{
    constexpr int sizes[] = {0, 1, 500, 1600, 4096, largestSize};
    window->resize(sizes[m_chance.upTo(6)], sizes[m_chance.upTo(6)]);
}

/// The pointer is gone before the window is: its end leads to further calls.
void HostileHost::destroyParent()
{
    ++m_deaths;
    const std::unique_ptr<QWidget> parent = std::move(m_parent);
}

int HostileHost::begin(const std::string &text)
{
    m_watchdog.note(QString::fromStdString(text));
    if (isTame())
        return 0;
    --m_left;
    if (m_chance.onceIn(4))
        misbehave();
    return m_chance.onceIn(10) ? 1 : 0;
}

void HostileHost::answer(char *buffer, const std::string &question)
{
    const QString text = QString::fromStdString(question);
    if (isTame()) {
        const QByteArray plain = text.startsWith(QLatin1String("velmar2")) ? "velmar2 ok" : "yes";
        std::strcpy(buffer, plain.constData());
        return;
    }
    const QByteArray bytes = m_chance.text(text);
    std::memcpy(buffer, bytes.constData(), std::size_t(bytes.size()) + 1);
}

int HostileHost::sendCommand(char *buffer, const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    const int result = begin(text);
    answer(buffer, text);
    return result;
}

int HostileHost::getParameter(char *value, const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    const int result = begin(text);
    answer(value, text);
    return result;
}

int HostileHost::getParameterInt(int *value, const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    const int result = begin(text);
    *value = isTame() ? 2 : m_chance.wholeNumber();
    return result;
}

int HostileHost::getParameterDouble(double *value, const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    const int result = begin(text);
    *value = isTame() ? 1.0 : m_chance.number();
    return result;
}

int HostileHost::getParameterBool(bool *value, const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    const int result = begin(text);
    *value = isTame() || !m_chance.onceIn(6);
    return result;
}

int HostileHost::getParameterDoubles(double *values, int count, const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    const int result = begin(text);
    std::generate(values, values + count, [this] { return m_chance.number(); });
    return result;
}

int HostileHost::setParameter(const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    ++m_writes;
    return begin(text);
}

// The host enters and removes before or after it lets anything happen.
void HostileHost::addRequester(const char *kind, Requester *requester)
{
    const bool isLate = m_chance.onceIn(2);
    if (!isLate)
        m_subscriptions.append({kind, requester});
    begin(std::string("adds ") + kind);
    if (isLate)
        m_subscriptions.append({kind, requester});
}

void HostileHost::removeRequester(const char *kind, Requester *requester)
{
    m_subscriptions.removeOne({kind, requester});
    begin(std::string("removes ") + kind);
}

void HostileHost::releaseRequester(Requester *requester)
{
    m_subscriptions.erase(std::remove_if(m_subscriptions.begin(), m_subscriptions.end(),
                                         [&](const auto &entry) { return entry.second == requester; }),
                          m_subscriptions.end());
    begin("releases");
}

void HostileHost::reportError(const char *, const char *, int, const char *message)
{
    begin(message);
}
