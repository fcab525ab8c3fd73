#include "framework/grid/GridHistory.h"

#include <utility>

namespace
{
/// The oldest actions go when all together hold more changes than this: some 40 MiB.
constexpr std::size_t kMostChanges = 1 << 20;
} // namespace

void GridHistory::Add(GridAction action)
{
    while (m_actions.size() > m_done) {
        m_changes -= m_actions.back().size();
        m_actions.pop_back();
    }
    m_changes += action.size();
    m_actions.push_back(std::move(action));
    while (m_changes > kMostChanges && m_actions.size() > 1) {
        m_changes -= m_actions.front().size();
        m_actions.erase(m_actions.begin());
    }
    m_done = m_actions.size();
}

void GridHistory::Clear()
{
    m_actions.clear();
    m_done = 0;
    m_changes = 0;
}

const GridAction* GridHistory::Undo()
{
    return m_done == 0 ? nullptr : &m_actions[--m_done];
}

const GridAction* GridHistory::Redo()
{
    return m_done == m_actions.size() ? nullptr : &m_actions[m_done++];
}
