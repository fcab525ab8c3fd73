#include "framework/window/WindowPages.h"

#include "framework/document/Define.h"
#include "framework/document/TestDocument.h"
#include "framework/grid/DataGrid.h"
#include "framework/grid/GridCells.h"
#include "framework/grid/GridEdits.h"
#include "framework/window/ChartPage.h"
#include "framework/window/CornerLabel.h"
#include "framework/window/Descriptions.h"
#include "framework/window/EditCommands.h"
#include "framework/window/GridNotices.h"
#include "framework/window/GridView.h"
#include "framework/window/ResultTable.h"
#include "framework/window/WindowCommands.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
/// As wide as the header fields become, captions included.
constexpr int kHeaderCharacters = 165;
} // namespace

WindowPages::WindowPages(TestDocument& document, WindowFields& fields, Descriptions& descriptions,
                         WindowCommands& commands, GridNotices& notices)
    : m_document(document),
      m_fields(fields),
      m_descriptions(descriptions),
      m_commands(commands),
      m_notices(notices),
      m_regions(*this),
      m_views(document.Grids().size())
{
    setObjectName(u"SSTab1"_s);
    m_descriptions.Describe(this, {});
    connect(this, &QTabWidget::currentChanged, this, &WindowPages::RestoreFocus);
}

WindowPages::~WindowPages()
{
    disconnect(this, &QTabWidget::currentChanged, this, nullptr); // the pages that go, one after the other
}

void WindowPages::AddPage(QWidget* page, const QString& caption)
{
    auto* area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    addTab(area, caption);
}

void WindowPages::AddInfoPage(const QString& labelName, const QString& conclusionsFrame)
{
    auto* page = new QWidget;
    QGroupBox* conclusions = m_fields.ConclusionsFrame(conclusionsFrame);
    m_descriptions.Describe(conclusions, m_document.Context().define.DescConcl);
    auto* layout = new QVBoxLayout(page);
    QWidget* header = m_fields.HeaderFields(labelName);
    header->setMaximumWidth(header->fontMetrics().averageCharWidth() * kHeaderCharacters);
    layout->addWidget(header);
    layout->addWidget(conclusions, 1);
    m_regions.Add(Region::Header, header);
    m_regions.Add(Region::Conclusions, conclusions);
    AddPage(page, u"Info/Conclusioni"_s);
}

void WindowPages::AddDataPage(const QList<QWidget*>& left, const QList<QWidget*>& right)
{
    auto* page = new QWidget;
    auto* sides = new QHBoxLayout(page);
    const auto addSide = [sides](const QList<QWidget*>& frames) {
        auto* side = new QVBoxLayout;
        for (QWidget* frame : frames)
            side->addWidget(frame);
        sides->addLayout(side);
        return side;
    };
    addSide(left)->setStretchFactor(left.constLast(), 1);
    addSide(right)->addStretch(1);
    sides->addStretch(1);
    AddPage(page, u"Dati"_s);
}

QWidget* WindowPages::Beside(const QList<QWidget*>& frames)
{
    auto* all = new QWidget;
    auto* layout = new QHBoxLayout(all);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* frame : frames)
        layout->addWidget(frame);
    return all;
}

void WindowPages::AddChartPage(const QString& caption)
{
    auto* page = new ChartPage(m_document);
    m_charts.append(page);
    m_regions.Add(Region::Chart, page);
    AddPage(page, caption);
}

QGroupBox* WindowPages::SizeFrame(const QString& name, const QString& title, const QList<SizeRow>& rows)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    auto* layout = new QGridLayout(box);
    for (const SizeRow& row : rows)
        m_fields.AddSize(layout, row);
    m_regions.Add(Region::Sizes, box);
    return box;
}

QGroupBox* WindowPages::GridFrame(const QString& name, const QString& title, std::size_t grid,
                                  const QString& corner)
{
    QGroupBox* box = m_fields.TitledBox(name, title);
    auto* layout = new QVBoxLayout(box);
    GridView* view = MakeGridView(grid, box->title());
    new CornerLabel(corner, view);
    // As wide as its columns, and one ground under cells and headers.
    layout->addWidget(view, 0, Qt::AlignLeft);
    for (QHeaderView* header : {view->horizontalHeader(), view->verticalHeader()}) {
        QPalette ground = header->palette();
        ground.setColor(QPalette::Window, ground.color(QPalette::Base));
        header->setPalette(ground);
    }
    const DataGrid& model = m_document.Grid(grid);
    connect(&model, &DataGrid::modelReset, view, &QWidget::updateGeometry);
    connect(&model, &DataGrid::headerDataChanged, view, &QWidget::updateGeometry);
    return box;
}

/// The one place where what the user does to a grid is connected: by keys, mouse, paste or undo, it all comes
/// here.
GridView* WindowPages::MakeGridView(std::size_t index, const QString& caption)
{
    DataGrid& grid = m_document.Grid(index);
    const QString name = m_views.size() == 1 ? u"GridData"_s : u"GridData%1"_s.arg(index);
    auto* view = new GridView(grid, name, caption);
    m_views[index] = view;
    m_commands.AddGrid(view);
    m_descriptions.Describe(view, m_document.Context().define.DescGrid);
    m_notices.Watch(view);
    m_regions.Add(Region::Grid, view);
    connect(&grid, &DataGrid::Edited, this, [this, view, &grid](const GridChange& change) {
        m_commands.SetTools(true);
        m_commands.Run([&] { m_document.CellsEdited(grid, change); });
        if (change.again && change.part == GridChange::Part::Cells) {
            m_regions.GoTo(view);
            view->SelectBlock(change.block);
        }
    });
    connect(view, &GridView::MendingAsked, this, [this, view] { m_regions.Show(view); });
    connect(view, &GridView::TurnAsked, this, [this, view](bool forward) {
        const QModelIndex at = view->currentIndex();
        m_commands.Run([&] { forward ? m_document.Redo() : m_document.Undo(); });
        if (!view->currentIndex().isValid()) // the grid has another size
            view->setCurrentIndex(view->model()->index(std::min(at.row(), view->Grid().Rows() - 1),
                                                       std::min(at.column(), view->Grid().Cols() - 1)));
    });
    connect(view, &GridView::Dropped, this, [this, view, &grid](const GridBlock& from, int row, int col) {
        m_commands.Run([&] { DropBlock(*view, grid.Edits(), from, row, col, m_document.Context()); });
    });
    return view;
}

QGroupBox* WindowPages::TableFrame(const QString& name, QLatin1StringView control)
{
    ResultTable* table = m_fields.TableView(control);
    QGroupBox* box = WindowFields::FrameBox(name, table->accessibleName());
    m_descriptions.Describe(box, m_document.Context().define.DescResults);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(table);
    m_regions.Add(Region::Results, box);
    return box;
}

QGroupBox* WindowPages::ResultBox(const QString& name, QGridLayout*& layout, const QString& title)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    m_descriptions.Describe(box, m_document.Context().define.DescResults);
    layout = new QGridLayout(box);
    m_regions.Add(Region::Results, box);
    return box;
}

void WindowPages::ShowFirstPage()
{
    setCurrentIndex(m_firstPage);
    if (m_firstPage == 0)
        m_fields.FocusFirst();
    else
        widget(m_firstPage)->findChild<QLineEdit*>()->setFocus();
}

QWidget* WindowPages::LastInTabOrder() const
{
    QWidget* last = nullptr;
    for (QWidget* next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
        if (isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) != 0)
            last = next;
    }
    return last;
}

void WindowPages::NoteFocus(QWidget* now)
{
    if (currentIndex() == m_noted && currentWidget()->isAncestorOf(now))
        m_lastFocus[m_noted] = now;
}

/// The pages give it to a field of their own choice: the first one where the last had been a cell's, which is
/// gone.
void WindowPages::RestoreFocus()
{
    m_noted = currentIndex();
    QWidget* last = m_lastFocus.value(m_noted);
    QWidget* now = QApplication::focusWidget();
    if (last != nullptr && last->isVisible() && currentWidget()->isAncestorOf(now))
        last->setFocus();
    else if (isAncestorOf(now))
        NoteFocus(now);
}

void WindowPages::TurnPage(bool forward)
{
    setCurrentIndex((currentIndex() + (forward ? 1 : count() - 1)) % count());
}

void WindowPages::Refresh()
{
    for (ChartPage* page : std::as_const(m_charts))
        page->Refresh();
}

QSize WindowPages::PagesHint() const
{
    QSize pages;
    for (int i = 0; i < count(); ++i) {
        const QWidget* page = qobject_cast<QScrollArea*>(widget(i))->widget();
        const QSize hint = page->sizeHint();
        pages = pages.expandedTo({hint.width(), std::max(hint.height(), page->heightForWidth(hint.width()))});
    }
    return pages;
}
