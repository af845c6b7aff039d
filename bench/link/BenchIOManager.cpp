#include "BenchIOManager.h"

#include "ControllerLink.h"
#include "FaultedCall.h"
#include "FormattedText.h"
#include "ParameterValue.h"
#include "Requester.h"
#include "SimAnswer.h"
#include "SimText.h"
#include "WorkpieceFile.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace
{

constexpr std::size_t longestBufferText = 199;
constexpr int success = 0;
constexpr int failure = 1;
constexpr int silence = 2;

const std::string getLead = "velmar2 get ";
const std::string setLead = "velmar2 set ";

void fill(char *buffer, const std::string &text)
{
    if (buffer == nullptr)
        return;
    const std::size_t length = std::min(text.size(), longestBufferText);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

/// Sets a value that was read only if it could be read.
template <typename Value, typename Target>
int take(const std::optional<Value> &value, Target *target)
{
    if (!value || target == nullptr)
        return failure;
    *target = *value;
    return success;
}

} // namespace

BenchIOManager::BenchIOManager(ControllerLink &link, QObject *parent)
    : QObject(parent)
    , m_link(link)
{
    qRegisterMetaType<CallRecord>();
    connect(&link, &ControllerLink::recordsArrived, this,
            [this](const std::vector<SimRecord> &records) { deliver(records); });
    connect(&link, &ControllerLink::noted, this,
            [this](const QString &text) { write("note", text.toStdString(), success, std::string()); });
    connect(&link, &ControllerLink::connectionChanged, this, [this](bool connected, const QString &text) {
        write("connection", text.toStdString(), connected ? success : silence, std::string());
    });
}

BenchIOManager::~BenchIOManager() = default;

int BenchIOManager::sendCommand(char *answer, const char *format, ...)
{
    FORMATTED_TEXT(line, format);
    const Outcome outcome = exchange(line, line);
    fill(answer, outcome.text);
    return finish("sendCommand", line, outcome);
}

int BenchIOManager::getParameter(char *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    const Outcome outcome = read(name);
    fill(value, outcome.text);
    return finish("getParameter", name, outcome);
}

int BenchIOManager::getParameterInt(int *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    Outcome outcome = read(name);
    if (outcome.result == success)
        outcome.result = take(SimText::integer(outcome.text), value);
    return finish("getParameterInt", name, outcome);
}

int BenchIOManager::getParameterDouble(double *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    Outcome outcome = read(name);
    if (outcome.result == success)
        outcome.result = take(SimText::real(outcome.text), value);
    return finish("getParameterDouble", name, outcome);
}

int BenchIOManager::getParameterBool(bool *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    Outcome outcome = read(name);
    if (outcome.result == success)
        outcome.result = take(ParameterValue::truth(outcome.text), value);
    return finish("getParameterBool", name, outcome);
}

int BenchIOManager::getParameterDoubles(double *values, int count, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    Outcome outcome = read(name);
    if (outcome.result == success) {
        const auto numbers = ParameterValue::reals(outcome.text, count);
        if (numbers && values != nullptr)
            std::copy(numbers->begin(), numbers->end(), values);
        else
            outcome.result = failure;
    }
    return finish("getParameterDoubles", name, outcome);
}

int BenchIOManager::setParameter(const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    Outcome outcome = exchange(setLead + text, text);
    if (outcome.result == success && outcome.text != SimAnswer::ok && !outcome.isForced)
        outcome.result = failure;
    return finish("setParameter", text, outcome);
}

void BenchIOManager::addRequester(const char *kind, Requester *requester)
{
    const Subscription subscription(kind, requester);
    if (!isSubscribed(subscription))
        m_subscriptions.push_back(subscription);
    write("addRequester", kind, success, std::string());
    updateSubscription();
}

void BenchIOManager::removeRequester(const char *kind, Requester *requester)
{
    const Subscription subscription(kind, requester);
    m_subscriptions.erase(std::remove(m_subscriptions.begin(), m_subscriptions.end(), subscription),
                          m_subscriptions.end());
    write("removeRequester", kind, success, std::string());
    updateSubscription();
}

void BenchIOManager::releaseRequester(Requester *requester)
{
    const auto isOf = [requester](const Subscription &one) { return one.second == requester; };
    m_subscriptions.erase(std::remove_if(m_subscriptions.begin(), m_subscriptions.end(), isOf),
                          m_subscriptions.end());
    write("releaseRequester", std::string(), success, std::string());
    updateSubscription();
}

void BenchIOManager::reportError(const char *category, const char *backend, int level, const char *message)
{
    write("reportError", message, success, std::string());
    emit errorReported(QString::fromLocal8Bit(category), QString::fromLocal8Bit(backend), level,
                       QString::fromLocal8Bit(message));
}

std::string BenchIOManager::control(const std::string &line)
{
    const std::string saving = "sim object save ";
    std::string answer;
    if (const auto handled = m_faults.run(line, m_link.time())) {
        answer = *handled;
    } else if (line == "sim record blank-kind on" || line == "sim record blank-kind off") {
        m_blankKind = SimText::truth(line.substr(line.rfind(' ') + 1)).value_or(false);
        answer = SimAnswer::controlOk;
    } else if (SimText::startsWith(line, saving)) {
        answer = saveWorkpiece(m_link, line.substr(saving.size()));
    } else {
        const LinkAnswer got = m_link.ask(line);
        answer = got.arrived ? got.text : SimAnswer::controlError(got.text);
    }
    write("control", line, SimAnswer::isControlError(answer) ? failure : success, answer);
    return answer;
}

BenchIOManager::Outcome BenchIOManager::read(const std::string &name)
{
    const std::string line = getLead + name;
    Outcome outcome = exchange(line, name);
    const bool isAnswer = SimText::startsWith(outcome.text, line + " ");
    if (outcome.result == success && isAnswer)
        outcome.text.erase(0, line.size() + 1);
    else if (outcome.result == success && !outcome.isForced)
        outcome.result = failure;
    return outcome;
}

// Sends a line, with whatever fault was asked for calls with that text.
BenchIOManager::Outcome BenchIOManager::exchange(const std::string &line, const std::string &logged)
{
    ++m_depth;
    const FaultedCall call(m_faults, logged);
    call.wait();
    const FaultedAnswer got = call.answer(m_link.time(), [&] { return m_link.ask(line); });
    --m_depth;
    const std::string text = got.arrived ? got.text : "no answer: " + got.text;
    return {got.result.value_or(resultOf(got)), text, got.result.has_value()};
}

int BenchIOManager::resultOf(const FaultedAnswer &answer)
{
    if (!answer.arrived)
        return silence;
    const bool isGood = answer.text == SimAnswer::ok || SimText::startsWith(answer.text, getLead);
    return isGood ? success : failure;
}

int BenchIOManager::finish(const char *operation, const std::string &text, const Outcome &outcome)
{
    write(operation, text, outcome.result, outcome.text);
    return outcome.result;
}

void BenchIOManager::write(const char *operation, const std::string &text, int result,
                           const std::string &answer)
{
    CallRecord record;
    record.controllerTime = m_link.time();
    record.operation = operation;
    record.text = text;
    record.result = result;
    record.answer = answer;
    m_log.append(record);
    emit called(m_log.calls().back());
}

bool BenchIOManager::isSubscribed(const Subscription &subscription) const
{
    return std::find(m_subscriptions.begin(), m_subscriptions.end(), subscription) != m_subscriptions.end();
}

void BenchIOManager::updateSubscription()
{
    std::set<std::string> kinds;
    for (const Subscription &subscription : m_subscriptions)
        kinds.insert(subscription.first);
    m_link.subscribe(kinds);
}

void BenchIOManager::deliver(const std::vector<SimRecord> &records)
{
    if (m_faults.isDisconnected(m_link.time()))
        return;
    for (const SimRecord &record : records)
        deliver(record);
}

// A receiver may end subscriptions, its own or others.
void BenchIOManager::deliver(const SimRecord &record)
{
    const std::vector<Subscription> subscriptions = m_subscriptions;
    for (const Subscription &one : subscriptions) {
        if (one.first != record.kind || !isSubscribed(one))
            continue;
        const std::string kind = m_blankKind ? one.first + " " : one.first;
        one.second->dataReceived(kind.c_str(), record.line.c_str());
    }
}
