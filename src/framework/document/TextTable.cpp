#include "framework/document/TextTable.h"

#include <algorithm>

TextTable::TextTable(const TableShape& shape, QObject* parent) : QAbstractTableModel(parent), m_shape(shape)
{
    Reset({});
}

void TextTable::Fill(const QList<QStringList>& rows)
{
    beginResetModel();
    m_rows = rows;
    m_columns = std::max(0, static_cast<int>(m_shape.columnTitles.size()) - 1);
    if (m_shape.columnTitles.isEmpty()) {
        for (const QStringList& row : rows)
            m_columns = std::max(m_columns, static_cast<int>(row.size()));
    }
    m_rows.resize(std::max(m_rows.size(), m_shape.rowTitles.size()));
    for (QStringList& row : m_rows)
        row.resize(m_columns);
    endResetModel();
}

void TextTable::Reset(const QString& zero)
{
    QList<QStringList> rows;
    for (const QString& pattern : m_shape.reset) {
        QStringList row;
        for (const QChar cell : pattern)
            row += cell == u'0' ? zero : QString();
        rows += row;
    }
    Fill(rows);
}

QList<QStringList> TextTable::Rows() const
{
    if (m_shape.columnTitles.isEmpty())
        return m_rows;
    QList<QStringList> rows{m_shape.columnTitles};
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        rows += QStringList(m_shape.rowTitles.value(i)) + m_rows[i];
    return rows;
}

int TextTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TextTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant TextTable::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? m_rows[index.row()][index.column()] : QVariant();
}

QVariant TextTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return orientation == Qt::Vertical ? m_shape.rowTitles.value(section)
                                       : m_shape.columnTitles.value(section + 1);
}
