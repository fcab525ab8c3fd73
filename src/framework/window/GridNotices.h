// What the notice bar tells of the grids: texts that were refused, and what became of a paste.
#pragma once

#include "framework/grid/GridEdits.h"
#include "framework/window/Guard.h"
#include "framework/window/NoticeBar.h"

#include <QObject>
#include <QString>

class GridView;
class TestDocument;

/// A text that a cell of the grid refuses.
QString RefusalNotice(const GridView& view, const QString& text);
/// What became of a paste that was not taken as it stood.
QString PasteNotice(const PasteCount& count);

class GridNotices : public QObject
{
    Q_OBJECT

public:
    /// All outlive this object. guard: settles what is being typed, too.
    GridNotices(TestDocument& document, Guard guard, NoticeBar& bar, QObject* parent);

    void Watch(GridView* view);
    /// A step of the history: the paste that is told of can't be done in another way any more, or was taken
    /// back.
    void StepMade();

private:
    void TellPaste(GridView* view, const PasteCount& count, const QString& text);
    void PasteAgain(GridView* view, const PasteCount& count, const QString& text, bool whole);
    QList<NoticeAction> Offers(GridView* view, PasteCount count, const QString& text);

    TestDocument& m_document;
    Guard m_guard;
    NoticeBar& m_bar;
    // Of the history, with the paste that is told of.
    int m_pasteState = -1;
    std::size_t m_pasteDone = 0;
};
