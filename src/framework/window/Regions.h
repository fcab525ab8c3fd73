// The regions of a test window, for the keys that go from one to the next.
#pragma once

#include <QTabWidget>

#include <vector>

/// In the order of the keys' way.
enum class Region { Header, Sizes, Grid, Notice, Results, Conclusions, Chart };

class Regions
{
public:
    /// pages: on which they stand, but for the notice bar.
    explicit Regions(QTabWidget& pages) : m_pages(pages) {}

    /// A widget of a region. It can be reached while it or a child of it takes the focus.
    void Add(Region region, QWidget* widget);
    /// Gives the focus to the next region, or to the one before, and turns to its page. Behind the last one
    /// comes the first. Each grid is one of its own.
    void Turn(bool forward);
    /// Turns to the page of this widget.
    void Show(const QWidget* widget);
    /// Shows it, and gives it the focus.
    void GoTo(QWidget* target);

private:
    struct Entry {
        Region region;
        QWidget* widget;
    };
    /// Where the keys stop: each region that can be reached, and each grid.
    std::vector<Entry> Stops() const;
    int PageOf(const QWidget* widget) const;

    QTabWidget& m_pages;
    std::vector<Entry> m_entries; ///< by region
};
