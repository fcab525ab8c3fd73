// The concentrations of the calibration, one below the other, to be typed or pasted.
#pragma once

#include "framework/window/Guard.h"

#include <QDialog>

class GridView;
class NoticeBar;
class QMenu;
class TaraDocument;

class ConcentrationsDialog : public QDialog
{
    Q_OBJECT

public:
    /// The caret stands at this column's concentration. The document outlives the dialog.
    ConcentrationsDialog(TaraDocument& document, int col, Guard guard, QWidget* parent = nullptr);

private:
    GridView* MakeView(int col);
    QMenu* MakePopup(GridView* view);
    void Watch(GridView* view, NoticeBar* bar);
    /// Puts them into the headers, in one step.
    void Store(GridView* view);

    TaraDocument& m_document;
    Guard m_guard;
};
