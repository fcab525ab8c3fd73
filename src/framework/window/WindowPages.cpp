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
#include "framework/window/GridView.h"
#include "framework/window/WindowCommands.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

WindowPages::WindowPages(TestDocument& document, WindowFields& fields, Descriptions& descriptions,
                         WindowCommands& commands)
    : m_document(document),
      m_fields(fields),
      m_descriptions(descriptions),
      m_commands(commands),
      m_views(document.Grids().size())
{
    setObjectName(u"SSTab1"_s);
    m_descriptions.Describe(this, {});
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
    layout->addWidget(m_fields.HeaderFields(labelName));
    layout->addWidget(conclusions, 1);
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
        sides->addLayout(side, 1);
        return side;
    };
    addSide(left)->setStretchFactor(left.constLast(), 1);
    addSide(right)->addStretch(1);
    AddPage(page, u"Dati"_s);
}

void WindowPages::AddChartPage(const QString& caption)
{
    auto* page = new ChartPage(m_document, caption);
    m_charts.append(page);
    AddPage(page, caption);
}

QGroupBox* WindowPages::SizeFrame(const QString& name, const QString& title, const QList<SizeRow>& rows)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    auto* layout = new QGridLayout(box);
    for (const SizeRow& row : rows)
        m_fields.AddSize(layout, row);
    return box;
}

QGroupBox* WindowPages::GridFrame(const QString& name, const QString& title, std::size_t grid,
                                  const QString& corner)
{
    QGroupBox* box = m_fields.TitledBox(name, title);
    auto* layout = new QVBoxLayout(box);
    GridView* view = MakeGridView(grid, box->title());
    new CornerLabel(corner, view);
    layout->addWidget(view);
    return box;
}

/// The one place where what the user does to a grid is connected: by keys, mouse, paste or undo, it all ends
/// in Edited.
GridView* WindowPages::MakeGridView(std::size_t index, const QString& caption)
{
    DataGrid& grid = m_document.Grid(index);
    const QString name = m_views.size() == 1 ? u"GridData"_s : u"GridData%1"_s.arg(index);
    auto* view = new GridView(grid, name, caption);
    m_views[index] = view;
    m_commands.AddGrid(view);
    m_descriptions.Describe(view, m_document.Context().define.DescGrid);
    connect(&grid, &DataGrid::Edited, this, [this, &grid](const GridChange& change) {
        m_commands.SetTools(true);
        m_commands.Run([&] { m_document.CellsEdited(grid, change); });
        Q_EMIT Said({});
    });
    connect(view, &GridView::Refused, this, [this, &grid](const QString& text) {
        Q_EMIT Said(u"\"%1\" non è un numero da 0 a %2"_s.arg(text, grid.Format().LargestText()));
    });
    connect(view, &GridView::Pasted, this, [this](const PasteCount& count) {
        Q_EMIT Said(u"Celle incollate: %1, rifiutate: %2, fuori dalla griglia: %3"_s.arg(
            QString::number(count.taken), QString::number(count.refused), QString::number(count.outside)));
    });
    connect(view, &GridView::Dropped, this, [this, view, &grid](const GridBlock& from, int row, int col) {
        m_commands.Run([&] { DropBlock(*view, grid.Edits(), from, row, col, m_document.Context()); });
    });
    return view;
}

QGroupBox* WindowPages::TableFrame(const QString& name, const QString& title, QLatin1StringView control)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    m_descriptions.Describe(box, m_document.Context().define.DescResults);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(m_fields.TableView(control));
    return box;
}

QGroupBox* WindowPages::ResultBox(const QString& name, QGridLayout*& layout, const QString& title)
{
    QGroupBox* box = WindowFields::FrameBox(name, title);
    m_descriptions.Describe(box, m_document.Context().define.DescResults);
    layout = new QGridLayout(box);
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

void WindowPages::Refresh()
{
    for (ChartPage* page : std::as_const(m_charts))
        page->Refresh();
}

QSize WindowPages::PagesHint() const
{
    QSize pages;
    for (int i = 0; i < count(); ++i)
        pages = pages.expandedTo(qobject_cast<QScrollArea*>(widget(i))->widget()->sizeHint());
    return pages;
}
