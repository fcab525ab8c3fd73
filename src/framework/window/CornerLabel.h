// The text in the corner of a table, where its headers meet.
#pragma once

#include <QLabel>
#include <QString>
#include <QTableView>

/// Keeps to the corner, and the header of the rows wide enough for its text. The corner's own click still
/// selects all.
class CornerLabel : public QLabel
{
    Q_OBJECT

public:
    CornerLabel(const QString& text, QTableView* view);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Place();

    QTableView* m_view;
};
