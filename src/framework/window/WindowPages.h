// The pages of a test window, and the frames that they are put together from.
#pragma once

#include "framework/window/Regions.h"
#include "framework/window/WindowFields.h"

#include <QGroupBox>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QTabWidget>

#include <cstddef>
#include <vector>

class ChartPage;
class Descriptions;
class GridNotices;
class GridView;
class TestDocument;
class WindowCommands;

class WindowPages : public QTabWidget
{
    Q_OBJECT

public:
    /// All but this object outlive it.
    WindowPages(TestDocument& document, WindowFields& fields, Descriptions& descriptions,
                WindowCommands& commands, GridNotices& notices);
    ~WindowPages() override;

    /// The page scrolls where the window is smaller than what stands on it.
    void AddPage(QWidget* page, const QString& caption);
    /// "Info/Conclusioni": header fields and conclusions.
    void AddInfoPage(const QString& labelName, const QString& conclusionsFrame);
    /// "Dati": frames one below the other, on the left and on the right, none wider than it needs; the last
    /// on the left takes the height that is left.
    void AddDataPage(const QList<QWidget*>& left, const QList<QWidget*>& right);
    /// Frames beside each other, as one.
    static QWidget* Beside(const QList<QWidget*>& frames);
    /// The charts of the document, one or two beside each other.
    void AddChartPage(const QString& caption);

    /// A frame with fields that size the grid, in the first rows of a grid layout of three columns.
    QGroupBox* SizeFrame(const QString& name, const QString& title, const QList<SizeRow>& rows);
    /// A frame with a grid of the document. title: as at WindowFields::TitledBox. corner: where the headers
    /// meet.
    QGroupBox* GridFrame(const QString& name, const QString& title, std::size_t grid = 0,
                         const QString& corner = QStringLiteral("Dati"));
    GridView* View(std::size_t index) const { return m_views[index]; }
    /// A frame with a table of the document, under its caption.
    QGroupBox* TableFrame(const QString& name, QLatin1StringView control);
    /// The frame of the results, with an empty grid layout.
    QGroupBox* ResultBox(const QString& name, QGridLayout*& layout,
                         const QString& title = QStringLiteral("Risultato dell'elaborazione"));

    /// The page that a new window shows; the first one where none is told.
    void SetFirstPage(int page) { m_firstPage = page; }
    /// Shows it. The focus goes to its first field.
    void ShowFirstPage();

    void Refresh();
    QSize PagesHint() const;

    /// The last widget that Tab reaches on the pages.
    QWidget* LastInTabOrder() const;
    /// A widget of the window has the focus: its page gives it back when it is turned to again.
    void NoteFocus(QWidget* now);
    /// The next page, or the one before; behind the last one comes the first.
    void TurnPage(bool forward);
    Regions& GetRegions() { return m_regions; }

private:
    void RestoreFocus();
    GridView* MakeGridView(std::size_t index, const QString& caption);

    TestDocument& m_document;
    WindowFields& m_fields;
    Descriptions& m_descriptions;
    WindowCommands& m_commands;
    GridNotices& m_notices;
    Regions m_regions;
    std::vector<GridView*> m_views; ///< by the grid's index
    QList<ChartPage*> m_charts;
    QHash<int, QPointer<QWidget>> m_lastFocus; ///< by page
    int m_noted = 0;                           ///< the page whose focus is noted
    int m_firstPage = 0;
};
