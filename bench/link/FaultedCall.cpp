#include "FaultedCall.h"

#include "ControllerLink.h"
#include "SimAnswer.h"
#include "SimReply.h"

#include <QEventLoop>
#include <QThread>
#include <QTimer>

FaultedCall::FaultedCall(FaultPlan &plan, const std::string &text, const std::string &otherText)
    : m_plan(plan)
    , m_effect(plan.next(text, otherText))
{
}

void FaultedCall::wait() const
{
    if (m_effect.delayMilliseconds <= 0)
        return;
    if (!m_effect.runsEvents) {
        QThread::msleep(static_cast<unsigned long>(m_effect.delayMilliseconds));
        return;
    }
    QEventLoop loop;
    QTimer::singleShot(m_effect.delayMilliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

FaultedAnswer FaultedCall::answer(double now, const std::function<LinkAnswer()> &ask) const
{
    FaultedAnswer answer = undisturbed(now, ask);
    if (m_effect.answer)
        answer = {true, *m_effect.answer, std::nullopt};
    answer.result = m_effect.result;
    return answer;
}

std::string FaultedCall::answerLine(double now, const std::function<LinkAnswer()> &ask) const
{
    const FaultedAnswer got = answer(now, ask);
    const int result = got.result.value_or(0);
    return result == 0 || m_effect.answer ? got.text : SimAnswer::error(SimReply::fault(result));
}

FaultedAnswer FaultedCall::undisturbed(double now, const std::function<LinkAnswer()> &ask) const
{
    if (m_plan.isDisconnected(now))
        return {false, "disconnected", std::nullopt};
    if (!m_effect.executed)
        return {true, SimAnswer::error(SimReply::fault(m_effect.result.value_or(0))), std::nullopt};
    const LinkAnswer got = ask();
    return {got.arrived, got.text, std::nullopt};
}
