// A table of results on screen.
#pragma once

#include <QKeyEvent>
#include <QList>
#include <QStringList>
#include <QTableView>

class TextTable;

/// Never smaller than all that it shows. Its keys go from cell to cell; it is copied as a whole.
class ResultTable : public QTableView
{
    Q_OBJECT

public:
    /// Its objectName and what a screen reader calls it are those of the table, which outlives it.
    explicit ResultTable(TextTable& table);

    /// All rows as they are shown, titles included.
    QList<QStringList> Texts() const;
    void Copy() const;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    const TextTable& m_table;
};
