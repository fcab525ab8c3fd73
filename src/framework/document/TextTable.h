// A table of texts beside the results: an analysis of variance, a list of means.
#pragma once

#include "framework/document/DocumentShape.h"

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

/// Cells are counted from 0, without the titles.
class TextTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The shape outlives the table.
    explicit TextTable(const TableShape& shape, QObject* parent = nullptr);

    const TableShape& Shape() const { return m_shape; }

    /// All cells anew. Rows that are shorter than the titles are filled up with empty cells, what is longer
    /// is cut.
    void Fill(const QList<QStringList>& rows);
    /// `zero` in the cells that the shape tells, the others empty.
    void Reset(const QString& zero);

    /// All rows as they are shown, titles included.
    QList<QStringList> Rows() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    const TableShape& m_shape;
    QList<QStringList> m_rows;
    int m_columns = 0;
};
