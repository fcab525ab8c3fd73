#include "framework/grid/History.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{

/// The oldest steps go when all together hold more cells than this: some 40 MiB.
constexpr std::size_t kMostWeight = 1 << 20;

HistoryStep Together(std::vector<HistoryStep> steps)
{
    const auto weight =
        std::accumulate(steps.begin(), steps.end(), std::size_t{0},
                        [](std::size_t sum, const HistoryStep& step) { return sum + step.weight; });
    const auto apply = [steps = std::move(steps)](bool forward) {
        const auto run = [forward](const HistoryStep& step) { step.apply(forward); };
        if (forward)
            std::for_each(steps.begin(), steps.end(), run);
        else
            std::for_each(steps.rbegin(), steps.rend(), run);
    };
    return {apply, weight};
}

} // namespace

void History::Add(HistoryStep step)
{
    if (m_group) {
        m_group->push_back(std::move(step));
        return;
    }
    ++m_state;
    while (m_steps.size() > m_done) {
        m_weight -= m_steps.back().weight;
        m_steps.pop_back();
    }
    m_weight += step.weight;
    m_steps.push_back(std::move(step));
    while (m_weight > kMostWeight && m_steps.size() > 1) {
        m_weight -= m_steps.front().weight;
        m_steps.erase(m_steps.begin());
    }
    m_done = m_steps.size();
}

void History::Clear()
{
    m_steps.clear();
    m_done = 0;
    m_weight = 0;
}

bool History::Undo()
{
    if (m_done == 0)
        return false;
    ++m_state;
    // A copy: who is told of it may add a step.
    const auto apply = m_steps[--m_done].apply;
    apply(false);
    return true;
}

bool History::Redo()
{
    if (m_done == m_steps.size())
        return false;
    ++m_state;
    const auto apply = m_steps[m_done++].apply;
    apply(true);
    return true;
}

History::Group::Group(History& history) : m_history(history)
{
    m_history.m_group.emplace();
}

History::Group::~Group()
{
    std::vector<HistoryStep> steps = std::move(*m_history.m_group);
    m_history.m_group.reset();
    if (!steps.empty())
        m_history.Add(Together(std::move(steps)));
}
