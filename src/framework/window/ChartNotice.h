// Says over a chart that part of it is out of view, and offers to show all of it.
#pragma once

#include <QFrame>
#include <QRect>

class QLabel;

class ChartNotice : public QFrame
{
    Q_OBJECT

public:
    explicit ChartNotice(QWidget* chart);

    /// Into the upper right corner of the axes, without its words where they have no room.
    void PlaceIn(const QRect& axes);

Q_SIGNALS:
    void AllAsked();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLabel* m_text;
};
