// What the user did to a document, to be taken back and done again.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

/// One action of the user: all that a typing, a paste, a clearing, a drag or a new size changed.
struct HistoryStep {
    /// Makes the state after the step (true), or the one before it. A step is applied in turn alone: no
    /// state comes about that did not stand.
    std::function<void(bool forward)> apply;
    std::size_t weight = 1; ///< so many cells does it hold
};

class History
{
public:
    /// Ends the chance to do again what was taken back. The step holds already.
    void Add(HistoryStep step);
    void Clear();

    /// Takes a step back, or does it again. False when there is none.
    bool Undo();
    bool Redo();
    /// So many steps hold.
    std::size_t Done() const { return m_done; }
    /// Another number after each step that was added, taken back or done again.
    int State() const { return m_state; }

    /// The steps that are added while it lives are one.
    class Group
    {
    public:
        explicit Group(History& history);
        ~Group();
        Group(const Group&) = delete;
        Group& operator=(const Group&) = delete;

    private:
        History& m_history;
    };

private:
    std::vector<HistoryStep> m_steps;
    std::size_t m_done = 0; ///< so many of them hold; the others were taken back
    std::size_t m_weight = 0;
    std::optional<std::vector<HistoryStep>> m_group;
    int m_state = 0;
};
