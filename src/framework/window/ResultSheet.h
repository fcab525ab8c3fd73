// The results of a window as one table, to be taken away by the clipboard.
#pragma once

#include "framework/window/ResultField.h"

#include <QLabel>
#include <QList>
#include <QObject>
#include <QPlainTextEdit>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

class ResultTable;

/// Knows what stands beside what, in the order of the window, and has the context menus of results and
/// conclusions. What it is told of outlives it, or goes with the same window.
class ResultSheet : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// A caption and its results. Without results the caption is a heading, without a caption (null) each
    /// result stands behind what a screen reader calls it.
    void AddRow(const QLabel* caption, const QList<ResultField*>& fields);
    /// The headings of the columns, from the first result on.
    void AddHeadings(const QList<const QLabel*>& headings);
    void AddTable(ResultTable* table);
    void AddConclusions(QPlainTextEdit* conclusions);

    /// Results that are not those of what stands in the document are taken away with a first row that says
    /// so.
    void SetStale(bool stale) { m_stale = stale; }

    /// What is seen of it, row by row, a caption in front of each row; all rows have the same count of cells,
    /// the last ones empty.
    QList<QStringList> Rows() const;
    /// Puts them on the clipboard, as text parted by tabs and as an HTML table.
    void Copy() const;

private:
    struct MenuItem {
        QString caption;
        std::function<void()> run;
        bool enabled = true;
    };
    struct Row {
        const QLabel* caption = nullptr;
        QList<const QLabel*> cells = {};
        const ResultTable* table = nullptr;
    };
    MenuItem CopyItem() const
    {
        return {QStringLiteral("Copia &risultati"), [this] { Copy(); }};
    }
    static QStringList RowTexts(const Row& row);
    static void PopUp(QWidget* over, const QPoint& at, const QList<MenuItem>& items);

    QList<Row> m_rows;
    bool m_stale = false;
};
