#include "framework/grid/GridHistory.h"

#include <utility>

namespace
{

/// The oldest steps go when all together hold more cells than this: some 40 MiB.
constexpr std::size_t kMostWeight = 1 << 20;

std::size_t WeightOf(const GridStep& step)
{
    if (const auto* size = std::get_if<SizeChange>(&step))
        return size->before.values.size() + size->after.values.size();
    if (const auto* headers = std::get_if<std::vector<HeaderChange>>(&step))
        return headers->size();
    return std::get<std::vector<CellChange>>(step).size();
}

} // namespace

const GridStep& GridHistory::Add(GridStep step)
{
    while (m_steps.size() > m_done) {
        m_weight -= WeightOf(m_steps.back());
        m_steps.pop_back();
    }
    m_weight += WeightOf(step);
    m_steps.push_back(std::move(step));
    while (m_weight > kMostWeight && m_steps.size() > 1) {
        m_weight -= WeightOf(m_steps.front());
        m_steps.erase(m_steps.begin());
    }
    m_done = m_steps.size();
    return m_steps.back();
}

void GridHistory::Clear()
{
    m_steps.clear();
    m_done = 0;
    m_weight = 0;
}

const GridStep* GridHistory::Undo()
{
    return m_done == 0 ? nullptr : &m_steps[--m_done];
}

const GridStep* GridHistory::Redo()
{
    return m_done == m_steps.size() ? nullptr : &m_steps[m_done++];
}
