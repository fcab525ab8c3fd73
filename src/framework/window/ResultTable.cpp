#include "framework/window/ResultTable.h"

#include "framework/document/TextTable.h"
#include "framework/window/CopyTable.h"
#include "framework/window/CornerLabel.h"

#include <QHeaderView>

namespace
{
/// Points above and below a row's text.
constexpr int kRowMargins = 8;
} // namespace

ResultTable::ResultTable(TextTable& table) : m_table(table)
{
    setObjectName(table.Shape().control);
    setAccessibleName(table.Shape().caption);
    setModel(&table);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setTabKeyNavigation(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setVisible(!table.Shape().columnTitles.isEmpty());
    verticalHeader()->setVisible(!table.Shape().rowTitles.isEmpty());
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargins);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizeAdjustPolicy(AdjustToContents);
    connect(horizontalHeader(), &QHeaderView::geometriesChanged, this, &QWidget::updateGeometry);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &QWidget::updateGeometry);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    if (!table.Shape().columnTitles.isEmpty())
        new CornerLabel(table.Shape().columnTitles.constFirst(), this);
}

QList<QStringList> ResultTable::Texts() const
{
    return m_table.Rows();
}

void ResultTable::Copy() const
{
    CopyTable(Texts());
}

void ResultTable::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Copy();
    else
        QTableView::keyPressEvent(event);
}
