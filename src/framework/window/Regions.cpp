#include "framework/window/Regions.h"

#include <QApplication>

#include <algorithm>
#include <iterator>

namespace
{

/// The first widget, this one or inside it, that Tab reaches; null where there is none.
QWidget* FirstInside(QWidget* widget)
{
    if ((widget->focusPolicy() & Qt::TabFocus) != 0)
        return widget;
    for (QWidget* next = widget->nextInFocusChain(); next != widget; next = next->nextInFocusChain()) {
        if (widget->isAncestorOf(next) && next->isVisibleTo(widget) && next->isEnabled() &&
            (next->focusPolicy() & Qt::TabFocus) != 0)
            return next;
    }
    return nullptr;
}

} // namespace

void Regions::Add(Region region, QWidget* widget)
{
    const auto behind = std::ranges::upper_bound(m_entries, region, {}, &Entry::region);
    m_entries.insert(behind, {region, widget});
}

std::vector<Regions::Entry> Regions::Stops() const
{
    std::vector<Entry> stops;
    for (const Entry& entry : m_entries) {
        const bool another =
            stops.empty() || stops.back().region != entry.region || entry.region == Region::Grid;
        if (another && !entry.widget->isHidden() && FirstInside(entry.widget) != nullptr)
            stops.push_back(entry);
    }
    return stops;
}

int Regions::PageOf(const QWidget* widget) const
{
    int page = 0;
    while (page < m_pages.count() && !m_pages.widget(page)->isAncestorOf(widget))
        ++page;
    return page;
}

void Regions::Turn(bool forward)
{
    std::vector<Entry> stops = Stops();
    if (!forward)
        std::ranges::reverse(stops);
    const QWidget* focus = QApplication::focusWidget();
    const auto has = [focus](const Entry& entry) {
        return focus != nullptr && (entry.widget == focus || entry.widget->isAncestorOf(focus));
    };
    const auto in = std::ranges::find_if(m_entries, has);
    const auto here = [&](const Entry& stop) {
        return in != m_entries.end() && stop.region == in->region &&
               (stop.region != Region::Grid || stop.widget == in->widget);
    };
    const auto seen = [&](const Entry& stop) { return PageOf(stop.widget) == m_pages.currentIndex(); };
    auto next = std::ranges::find_if(stops, here);
    // From what is no region, the tabs for one, to the first one that is seen.
    next = next == stops.end() ? std::ranges::find_if(stops, seen) : std::next(next);
    if (!stops.empty())
        GoTo((next == stops.end() ? stops.front() : *next).widget);
}

void Regions::Show(const QWidget* widget)
{
    m_pages.setCurrentIndex(PageOf(widget));
}

void Regions::GoTo(QWidget* target)
{
    Show(target);
    if (!target->isAncestorOf(QApplication::focusWidget()))
        FirstInside(target)->setFocus(Qt::TabFocusReason);
}
