// The area of the frame's windows: while it is empty it says how to begin.
#pragma once

#include <QLabel>
#include <QMdiArea>

class FrameArea : public QMdiArea
{
    Q_OBJECT

public:
    FrameArea();

    void ShowHint(bool shown) { m_hint->setVisible(shown); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ColourGround();

    QLabel* m_hint;
};
